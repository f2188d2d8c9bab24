#include "vetools/framework/CArchive.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"

namespace
{

/// The cause of the CArchiveException that an action throws; none when it throws none.
int CauseOf(const std::function<void()>& action)
{
    try
    {
        action();
    }
    catch (CArchiveException* exception)
    {
        const int cause = exception->m_cause;
        exception->Delete();
        return cause;
    }
    return CArchiveException::none;
}

Bytes BytesOf(const CMemFile& file)
{
    return {file.GetBytes(), file.GetBytes() + file.GetLength()};
}

template <typename Value>
void ExpectStored(const Bytes& expected, Value value)
{
    CMemFile file;
    {
        CArchive archive(&file, CArchive::store);
        archive << value;
    }
    EXPECT_EQ(expected, BytesOf(file));
    file.SeekToBegin();
    CArchive archive(&file, CArchive::load);
    Value read{};
    archive >> read;
    EXPECT_EQ(value, read);
}

/// A file whose disk is full.
class FullFile : public CMemFile
{
public:
    void Write(const void*, UINT) override { AfxThrowFileException(CFileException::diskFull); }
};

}  // namespace

TEST(Archive, StoresValuesLowestByteFirst)
{
    ExpectStored({1}, true);
    ExpectStored({0x41}, 'A');
    ExpectStored({0xFE}, static_cast<std::uint8_t>(254));
    ExpectStored({0xFE, 0xFF}, static_cast<std::int16_t>(-2));
    ExpectStored({0xFF, 0xFF, 0xFF, 0x7F}, std::numeric_limits<int>::max());
    ExpectStored({4, 3, 2, 1}, 0x01020304u);
    ExpectStored({8, 7, 6, 5, 4, 3, 2, 1}, static_cast<std::uint64_t>(0x0102030405060708));
    ExpectStored({0xAC, 0x20}, L'\x20AC');
    ExpectStored({0, 0, 0x80, 0x3F}, 1.0f);
    ExpectStored({0, 0, 0, 0, 0, 0, 0xF0, 0xBF}, -1.0);
}

TEST(Archive, KnowsItsDirectionAndItsFile)
{
    CMemFile file;
    const CArchive storing(&file, CArchive::store);
    const CArchive loading(&file, CArchive::load);
    EXPECT_TRUE(storing.IsStoring());
    EXPECT_FALSE(storing.IsLoading());
    EXPECT_TRUE(loading.IsLoading());
    EXPECT_FALSE(loading.IsStoring());
    EXPECT_EQ(&file, loading.GetFile());
}

TEST(Archive, RaisesTheWrongDirection)
{
    CMemFile file;
    CArchive storing(&file, CArchive::store);
    CArchive loading(&file, CArchive::load);
    int value = 7;
    EXPECT_EQ(2, CauseOf([&] { loading << value; }));
    EXPECT_EQ(4, CauseOf([&] { storing >> value; }));
    EXPECT_EQ(2, CauseOf([&] { loading.Write(&value, 4); }));
    EXPECT_EQ(4, CauseOf([&] { storing.Read(&value, 4); }));
    EXPECT_EQ(7, value);
}

TEST(Archive, RaisesTheEndOfTheFileAndLeavesTheValue)
{
    const BYTE bytes[] = {1, 2, 3};
    CMemFile file(bytes, 3);
    CArchive archive(&file, CArchive::load);
    int value = 7;
    EXPECT_EQ(3, CauseOf([&] { archive >> value; }));
    EXPECT_EQ(7, value);
}

TEST(Archive, ReadsFewerBytesAtTheEndWithoutAnException)
{
    const BYTE bytes[] = {1, 2, 3};
    CMemFile file(bytes, 3);
    CArchive archive(&file, CArchive::load);
    BYTE read[8] = {};
    EXPECT_EQ(2u, archive.Read(read, 2));
    EXPECT_EQ(1u, archive.Read(read, 8));
    EXPECT_EQ(0u, archive.Read(read, 8));
}

TEST(Archive, KeepsAnythingWhateverTheSizeOfItsBuffer)
{
    std::mt19937 random(14);
    for (const int bufferSize : {-1, 0, 1, 128, 129, 1000, 4096})
    {
        Bytes bytes(20000);
        for (std::uint8_t& value : bytes)
            value = static_cast<std::uint8_t>(random());
        CMemFile file;
        {
            CArchive archive(&file, CArchive::store, bufferSize);
            for (std::size_t begin = 0; begin < bytes.size();)
            {
                const std::size_t size = std::min<std::size_t>(random() % 700, bytes.size() - begin);
                archive.Write(bytes.data() + begin, static_cast<UINT>(size));
                begin += size;
            }
        }
        EXPECT_EQ(bytes, BytesOf(file)) << bufferSize;
        file.SeekToBegin();
        CArchive archive(&file, CArchive::load, bufferSize);
        Bytes read(bytes.size());
        for (std::size_t begin = 0; begin < bytes.size();)
        {
            const std::size_t size = std::min<std::size_t>(random() % 700, bytes.size() - begin);
            ASSERT_EQ(size, archive.Read(read.data() + begin, static_cast<UINT>(size)));
            begin += size;
        }
        EXPECT_EQ(bytes, read) << bufferSize;
    }
}

TEST(Archive, LeavesTheFileBehindWhatWasRead)
{
    const BYTE bytes[] = {1, 0, 0, 0, 2, 0, 0, 0, 3};
    CMemFile file(bytes, 9);
    int value = 0;
    {
        CArchive archive(&file, CArchive::load);
        archive >> value;
        EXPECT_EQ(9u, file.GetPosition());
    }
    EXPECT_EQ(4u, file.GetPosition());
    CArchive next(&file, CArchive::load);
    next >> value;
    EXPECT_EQ(2, value);
}

TEST(Archive, HandsItsBufferOverWhenItIsClosedAndDropsItWhenItIsAborted)
{
    CMemFile file;
    CArchive closed(&file, CArchive::store);
    closed << 1;
    EXPECT_EQ(0u, file.GetLength());
    closed.Close();
    EXPECT_EQ(4u, file.GetLength());
    closed.Close();
    {
        CArchive aborted(&file, CArchive::store);
        aborted << 1;
        aborted.Abort();
        CArchive kept(&file, CArchive::store | CArchive::bNoFlushOnDelete);
        kept << 1;
    }
    EXPECT_EQ(4u, file.GetLength());
}

TEST(Archive, RaisesTheFailureOfTheFileWhenItIsClosedButNotWhenItIsDestroyed)
{
    FullFile file;
    CArchive archive(&file, CArchive::store);
    archive << 1;
    EXPECT_THROW(
        try { archive.Close(); } catch (CFileException* exception) {
            EXPECT_EQ(CFileException::diskFull, exception->m_cause);
            exception->Delete();
            throw 1;
        },
        int);
    archive.Abort();
    CArchive forgotten(&file, CArchive::store);
    forgotten << 1;
}

TEST(ArchiveException, IsCaughtAsAnyException)
{
    try
    {
        AfxThrowArchiveException(CArchiveException::badIndex, L"name");
        FAIL() << "nothing was thrown";
    }
    catch (CException* exception)
    {
        ASSERT_TRUE(exception->IsKindOf(RUNTIME_CLASS(CArchiveException)));
        EXPECT_EQ(5, static_cast<CArchiveException*>(exception)->m_cause);
        EXPECT_EQ(CString(L"name"), static_cast<CArchiveException*>(exception)->m_strFileName);
        exception->Delete();
    }
}
