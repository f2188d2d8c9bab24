#include "vetools/framework/CFile.h"

#include <cstring>
#include <functional>
#include <memory>

#include <string>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"
#include "tests/support/TextPrinting.h"

namespace
{

/// The cause of the CFileException that an action throws; -1 when it throws none.
int CauseOf(const std::function<void()>& action)
{
    try
    {
        action();
    }
    catch (CFileException* exception)
    {
        const int cause = exception->m_cause;
        exception->Delete();
        return cause;
    }
    return -1;
}

void Write(CFile& file, std::string_view text)
{
    file.Write(text.data(), static_cast<UINT>(text.size()));
}

std::string Read(CFile& file, UINT size)
{
    std::string text(size, '?');
    text.resize(file.Read(text.data(), size));
    return text;
}

std::string TextOf(const std::filesystem::path& path)
{
    const Bytes bytes = ReadBytes(path);
    return {bytes.begin(), bytes.end()};
}

/// A file on the disk and one in memory: what both do alike.
class AnyFile : public testing::TestWithParam<const char*>
{
protected:
    AnyFile()
    {
        if (std::string_view(GetParam()) == "CMemFile")
            m_file = std::make_unique<CMemFile>();
        else
            m_file = std::make_unique<CFile>(m_folder[L"file"], CFile::modeCreate | CFile::modeReadWrite);
    }

    TestFolder m_folder;
    std::unique_ptr<CFile> m_file;
};

INSTANTIATE_TEST_SUITE_P(Framework, AnyFile, testing::Values("CFile", "CMemFile"));

}  // namespace

TEST_P(AnyFile, IsWrittenAndReadAtItsPosition)
{
    EXPECT_EQ(0u, m_file->GetLength());
    Write(*m_file, "hello");
    EXPECT_EQ(5u, m_file->GetPosition());
    m_file->SeekToBegin();
    EXPECT_EQ("he", Read(*m_file, 2));
    Write(*m_file, "LL");
    EXPECT_EQ("o", Read(*m_file, 2));
    EXPECT_EQ("", Read(*m_file, 2));
    m_file->SeekToBegin();
    EXPECT_EQ("heLLo", Read(*m_file, 99));
    EXPECT_EQ(5u, m_file->GetLength());
}

TEST_P(AnyFile, SeeksFromBeginningHereAndEnd)
{
    Write(*m_file, "hello");
    EXPECT_EQ(1u, m_file->Seek(1, CFile::begin));
    EXPECT_EQ(3u, m_file->Seek(2, CFile::current));
    EXPECT_EQ(2u, m_file->Seek(-1, CFile::current));
    EXPECT_EQ(4u, m_file->Seek(-1, CFile::end));
    EXPECT_EQ("o", Read(*m_file, 9));
    EXPECT_EQ(5u, m_file->SeekToEnd());
    EXPECT_EQ(CFileException::badSeek, CauseOf([&] { m_file->Seek(-6, CFile::end); }));
    EXPECT_EQ(5u, m_file->GetPosition());
}

TEST_P(AnyFile, IsFilledWithZerosUpToAPositionBehindItsEnd)
{
    Write(*m_file, "a");
    m_file->Seek(3, CFile::begin);
    EXPECT_EQ("", Read(*m_file, 1));
    Write(*m_file, "b");
    m_file->SeekToBegin();
    EXPECT_EQ(std::string("a\0\0b", 4), Read(*m_file, 9));
}

TEST_P(AnyFile, IsCutAndExtended)
{
    Write(*m_file, "hello");
    m_file->SetLength(2);
    EXPECT_EQ(2u, m_file->GetLength());
    EXPECT_EQ(2u, m_file->GetPosition());
    m_file->SetLength(4);
    m_file->SeekToBegin();
    EXPECT_EQ(std::string("he\0\0", 4), Read(*m_file, 9));
}

TEST_P(AnyFile, TransfersNothingOnRequest)
{
    EXPECT_EQ(0u, m_file->Read(nullptr, 0));
    m_file->Write(nullptr, 0);
    m_file->Flush();
    EXPECT_EQ(0u, m_file->GetLength());
}

TEST(File, IsOpenedAsTheFlagsSay)
{
    const struct
    {
        UINT flags;
        const char* before;  ///< null for a file that is not there
        bool opened;
        const char* after;
    } rows[] = {
        {CFile::modeRead, "abc", true, "abc"},
        {CFile::modeRead, nullptr, false, nullptr},
        {CFile::modeWrite, "abc", true, "abc"},
        {CFile::modeWrite, nullptr, false, nullptr},
        {CFile::modeReadWrite, "abc", true, "abc"},
        {CFile::modeCreate | CFile::modeWrite, "abc", true, ""},
        {CFile::modeCreate | CFile::modeWrite, nullptr, true, ""},
        {CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite, "abc", true, "abc"},
        {CFile::modeCreate | CFile::modeNoTruncate | CFile::modeReadWrite, nullptr, true, ""},
        {CFile::modeRead | CFile::shareDenyNone | CFile::typeBinary, "abc", true, "abc"},
    };
    EXPECT_EQ(4097, CFile::modeCreate | CFile::modeWrite);
    for (const auto& row : rows)
    {
        const TestFolder folder;
        if (row.before)
            WriteBytes(folder / "file", Bytes(row.before, row.before + std::strlen(row.before)));
        CFile file;
        CFileException error;
        EXPECT_EQ(row.opened, file.Open(folder[L"file"], row.flags, &error)) << std::hex << row.flags;
        EXPECT_EQ(row.opened ? CFileException::none : CFileException::fileNotFound, error.m_cause);
        EXPECT_EQ(row.opened ? folder[L"file"] : CString(), file.GetFilePath());
        file.Close();
        EXPECT_TRUE(file.GetFilePath().IsEmpty());
        EXPECT_EQ(row.after != nullptr, std::filesystem::exists(folder / "file")) << std::hex << row.flags;
        if (row.after)
        {
            EXPECT_EQ(row.after, TextOf(folder / "file")) << std::hex << row.flags;
        }
    }
}

TEST(File, SaysWhyItIsNotOpened)
{
    const TestFolder folder;
    std::filesystem::create_directory(folder / "folder");
    const CFile exclusive(folder[L"open"], CFile::modeCreate | CFile::modeWrite);
    const struct
    {
        const wchar_t* name;
        int cause;
        LONG osError;
    } rows[] = {
        {L"missing", CFileException::fileNotFound, 2},
        {L"missing/file", CFileException::badPath, 3},
        {L"folder", CFileException::accessDenied, 5},
        {L"open", CFileException::sharingViolation, 32},
    };
    for (const auto& row : rows)
    {
        CFileException error;
        EXPECT_FALSE(CFile().Open(folder[row.name], CFile::modeRead, &error));
        EXPECT_EQ(row.cause, error.m_cause) << testing::PrintToString(row.name);
        EXPECT_EQ(row.osError, error.m_lOsError) << testing::PrintToString(row.name);
        EXPECT_EQ(folder[row.name], error.m_strFileName);
        EXPECT_FALSE(CFile().Open(folder[row.name], CFile::modeRead));
        EXPECT_EQ(row.cause, CauseOf([&] { CFile file(folder[row.name], CFile::modeRead); }));
    }
}

TEST(File, IsSharedAsTheFlagsSay)
{
    const struct
    {
        UINT share;
        bool read;
        bool written;
    } rows[] = {
        {CFile::shareCompat, false, false},   {CFile::shareExclusive, false, false},
        {CFile::shareDenyWrite, true, false}, {CFile::shareDenyRead, false, true},
        {CFile::shareDenyNone, true, true},
    };
    const TestFolder folder;
    WriteBytes(folder / "file", {});
    for (const auto& row : rows)
    {
        const CFile first(folder[L"file"], CFile::modeRead | row.share);
        EXPECT_EQ(row.read, CFile().Open(folder[L"file"], CFile::modeRead | CFile::shareDenyNone)) << row.share;
        EXPECT_EQ(row.written, CFile().Open(folder[L"file"], CFile::modeWrite | CFile::shareDenyNone)) << row.share;
    }
}

TEST(File, RaisesFailuresOfReadingAndWriting)
{
    const TestFolder folder;
    CFile file(folder[L"file"], CFile::modeCreate | CFile::modeWrite);
    EXPECT_EQ(CFileException::accessDenied, CauseOf([&] { Read(file, 1); }));
    file.Close();
    CFile reader(folder[L"file"], CFile::modeRead);
    EXPECT_EQ(CFileException::accessDenied, CauseOf([&] { Write(reader, "x"); }));
    CFile none;
    EXPECT_EQ(CFileException::invalidFile, CauseOf([&] { Read(none, 1); }));
    EXPECT_EQ(CFileException::invalidFile, CauseOf([&] { Write(none, "x"); }));
    EXPECT_EQ(CFileException::invalidFile, CauseOf([&] { none.GetLength(); }));
    EXPECT_EQ(CFileException::invalidFile, CauseOf([&] { none.GetPosition(); }));
    EXPECT_EQ(CFileException::invalidFile, CauseOf([&] { none.SetLength(1); }));
    none.Flush();
    none.Close();
    none.Abort();
}

TEST(File, OpensAnotherPathAfterTheFirst)
{
    const TestFolder folder;
    CFile file(folder[L"first"], CFile::modeCreate | CFile::modeWrite);
    EXPECT_TRUE(file.Open(folder[L"second"], CFile::modeCreate | CFile::modeWrite));
    Write(file, "2");
    file.Close();
    EXPECT_EQ("", TextOf(folder / "first"));
    EXPECT_EQ("2", TextOf(folder / "second"));
    EXPECT_TRUE(CFile().Open(folder[L"first"], CFile::modeRead));
}

TEST(FileException, HasACauseForAnErrorOfTheSystem)
{
    const struct
    {
        LONG error;
        int cause;
    } rows[] = {
        {0, CFileException::none},
        {2, CFileException::fileNotFound},
        {3, CFileException::badPath},
        {4, CFileException::tooManyOpenFiles},
        {5, CFileException::accessDenied},
        {6, CFileException::invalidFile},
        {16, CFileException::removeCurrentDir},
        {25, CFileException::badSeek},
        {29, CFileException::hardIO},
        {32, CFileException::sharingViolation},
        {33, CFileException::lockViolation},
        {38, CFileException::endOfFile},
        {39, CFileException::diskFull},
        {80, CFileException::accessDenied},
        {82, CFileException::directoryFull},
        {112, CFileException::diskFull},
        {131, CFileException::badSeek},
        {183, CFileException::accessDenied},
        {206, CFileException::badPath},
        {-1, CFileException::genericException},
        {99999, CFileException::genericException},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.cause, CFileException::OsErrorToException(row.error)) << row.error;
    EXPECT_EQ(CFileException::diskFull, CauseOf([] { CFileException::ThrowOsError(112, L"name"); }));
}

TEST(FileException, IsCaughtAsAnyException)
{
    try
    {
        AfxThrowFileException(CFileException::diskFull, 112, L"name");
        FAIL() << "nothing was thrown";
    }
    catch (CException* exception)
    {
        EXPECT_TRUE(exception->IsKindOf(RUNTIME_CLASS(CFileException)));
        const auto* const failure = static_cast<const CFileException*>(exception);
        EXPECT_EQ(13, failure->m_cause);
        EXPECT_EQ(112, failure->m_lOsError);
        EXPECT_EQ(CString(L"name"), failure->m_strFileName);
        exception->Delete();
    }
}

TEST(MemFile, IsMadeOfACopyOfBytes)
{
    BYTE bytes[] = {1, 2, 3};
    CMemFile file(bytes, 3);
    bytes[0] = 9;
    EXPECT_EQ(3u, file.GetLength());
    EXPECT_EQ(1, file.GetBytes()[0]);
    BYTE read[4] = {};
    EXPECT_EQ(3u, file.Read(read, 4));
    EXPECT_EQ(3, read[2]);
    file.Close();
    EXPECT_EQ(0u, file.GetLength());
    CMemFile empty(nullptr, 0);
    EXPECT_EQ(0u, empty.GetLength());
}
