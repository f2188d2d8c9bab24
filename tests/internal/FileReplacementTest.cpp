#include "vetools/util/FileReplacement.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"
#include "vetools/framework/CFile.h"

namespace
{

bool Replace(const TestFolder& folder, const wchar_t* name, const Bytes& bytes)
{
    return ReplaceFileContents(folder[name], bytes.data(), static_cast<UINT>(bytes.size()));
}

const Bytes c_bytes(1000, 0x42);

}  // namespace

TEST(FileReplacement, WritesTheWholeFileAndLeavesNothingAside)
{
    const TestFolder folder;
    for (const std::size_t before : {0u, 1u, 1000u, 5000u})
    {
        WriteBytes(folder / "file", Bytes(before, 0x7F));
        EXPECT_TRUE(Replace(folder, L"file", c_bytes));
        EXPECT_EQ(c_bytes, ReadBytes(folder / "file")) << before;
        EXPECT_EQ(1u, folder.Count());
    }
    EXPECT_TRUE(Replace(folder, L"new", c_bytes));
    EXPECT_EQ(c_bytes, ReadBytes(folder / "new"));
    EXPECT_EQ(2u, folder.Count());
}

TEST(FileReplacement, PassesOverTheFilesThatOthersLeftAside)
{
    const TestFolder folder;
    const auto aside = [&folder](int number)
    {
        return folder / ("~ve" + std::to_string(::GetCurrentProcessId()) + "-" + std::to_string(number) + ".tmp");
    };
    for (const int count : {1, 100})  // with 100, no name is left and the file is written where it is
    {
        for (int i = 0; i < count; ++i)
            WriteBytes(aside(i), {1, 2, 3});
        for (const std::size_t before : {1u, 5000u})
        {
            WriteBytes(folder / "file", Bytes(before, 0x7F));
            EXPECT_TRUE(Replace(folder, L"file", c_bytes));
            EXPECT_EQ(c_bytes, ReadBytes(folder / "file")) << count << " aside, " << before << " bytes before";
        }
        std::filesystem::remove(folder / "file");
        EXPECT_TRUE(Replace(folder, L"file", c_bytes));
        EXPECT_EQ(c_bytes, ReadBytes(folder / "file")) << count << " aside";
        for (int i = 0; i < count; ++i)
            EXPECT_EQ((Bytes{1, 2, 3}), ReadBytes(aside(i))) << i;
        EXPECT_EQ(static_cast<std::size_t>(count) + 1, folder.Count());
    }
}

TEST(FileReplacement, FollowsALink)
{
    const TestFolder folder;
    WriteBytes(folder / "file", {1, 2, 3});
    std::error_code noLinks;
    std::filesystem::create_symlink("file", folder / "link", noLinks);
    if (!noLinks)
    {
        EXPECT_TRUE(Replace(folder, L"link", c_bytes));
        EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
        std::filesystem::create_symlink("missing", folder / "ahead", noLinks);
        EXPECT_TRUE(Replace(folder, L"ahead", c_bytes));
        EXPECT_TRUE(std::filesystem::is_symlink(folder / "ahead"));
        EXPECT_EQ(c_bytes, ReadBytes(folder / "missing"));
    }
    const Bytes expected = noLinks ? Bytes{1, 2, 3} : c_bytes;
    EXPECT_EQ(expected, ReadBytes(folder / "file"));
}

TEST(FileReplacement, RefusesAFolderAndAFileThatIsOpenElsewhere)
{
    const TestFolder folder;
    std::filesystem::create_directory(folder / "folder");
    EXPECT_FALSE(Replace(folder, L"folder", c_bytes));
    EXPECT_FALSE(Replace(folder, L"missing/file", c_bytes));
    WriteBytes(folder / "file", {1, 2, 3});
    {
        const CFile reader(folder[L"file"], CFile::modeRead | CFile::shareDenyWrite);
        EXPECT_FALSE(Replace(folder, L"file", c_bytes));
    }
    EXPECT_EQ((Bytes{1, 2, 3}), ReadBytes(folder / "file"));
    EXPECT_EQ(2u, folder.Count());
}
