#include "vetools/platform/WindowsPath.h"

#include <gtest/gtest.h>

// What the text of a path says is the same on every system.

// clang-format off
TEST(WindowsPath, IsExtendedByAPrefixThatSaysWhetherItIsOnTheNetwork)
{
    const struct
    {
        std::wstring_view expected;
        std::wstring_view path;
        bool isUnc;
    } rows[] = {
        {L"\\\\?\\",                        L"",                               false},
        {L"\\\\?\\a",                       L"a",                              false},
        {L"\\\\?\\C:\\out\\a.txt",          L"C:\\out\\a.txt",                 false},
        {L"\\\\?\\C:/out/a.txt",            L"C:/out/a.txt",                   false},
        {L"\\\\?\\out\\a.txt",              L"out\\a.txt",                     false},
        {L"\\\\?\\\\out",                   L"\\out",                          false},
        {L"\\\\?\\UNC\\",                   L"\\\\",                           true},
        {L"\\\\?\\UNC\\server",             L"\\\\server",                     true},
        {L"\\\\?\\UNC\\server\\share\\a b", L"\\\\server\\share\\a b",         true},
        {L"\\\\?\\UNC\\server\\share",      L"\\\\\\\\server\\share",          true},   // all backslashes in front go
        {L"\\\\?\\//server/share",          L"//server/share",                 false},
        {L"\\\\?\\\\/server",               L"\\/server",                      false},
        {L"\\\\?\\",                        L"\\\\?\\",                        false},
        {L"\\\\?\\C:\\out",                 L"\\\\?\\C:\\out",                 false},
        {L"\\\\?\\UNC\\server\\share",      L"\\\\?\\UNC\\server\\share",      true},
        {L"\\\\?\\unc\\server",             L"\\\\?\\unc\\server",             true},
        {L"\\\\?\\UNC",                     L"\\\\?\\UNC",                     false},
        {L"\\\\?\\UNCLE",                   L"\\\\?\\UNCLE",                   false},
        {L"\\\\?\\UNC\\?",                  L"\\\\?",                          true},   // no prefix yet
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(row.expected, ExtendedPath(row.path)) << testing::PrintToString(row.path);
        EXPECT_EQ(row.isUnc, IsUncPath(row.path)) << testing::PrintToString(row.path);
        EXPECT_EQ(row.expected, ExtendedPath(ExtendedPath(row.path))) << testing::PrintToString(row.path);
    }
}

TEST(WindowsPath, IsTheRootWhenNoNameIsLeft)
{
    for (const wchar_t* root : {L"\\", L"/", L"\\\\", L"\\/\\", L"\\.", L"\\..", L"/./..", L"\\a\\..", L"\\a\\b\\..\\..\\..\\", L"\\...", L"\\ ",
                                L"C:\\", L"c:/", L"Z:\\.", L"C:\\a\\..", L"\\\\?\\", L"\\\\?\\\\", L"\\\\?\\/", L"\\\\?\\C:", L"\\\\?\\C:\\",
                                L"\\\\?\\C:\\a\\..", L"\\\\?\\UNC\\", L"\\\\?\\unc\\.", L"\\\\?\\UNC\\\\", L"\\\\.\\", L"\\\\.", L"\\\\.\\C:\\"})
    {
        EXPECT_TRUE(IsRootPath(root)) << testing::PrintToString(root);
    }
    for (const wchar_t* other : {L"", L"a", L".", L"..", L" ", L"..\\..", L"a\\..", L"C:", L"C:a", L"C:.", L"\\a", L"/a", L"C:\\a",
                                 L"C:\\.a", L"C:\\a\\.", L"C:\\a\\b\\..", L"\\..\\a", L"\\\\server", L"\\\\server\\share",
                                 L"\\\\?\\a", L"\\\\?\\C:\\a", L"\\\\?\\UNC", L"\\\\?\\UNC\\server", L"\\\\.\\pipe"})
    {
        EXPECT_FALSE(IsRootPath(other)) << testing::PrintToString(other);
    }
}

TEST(WindowsPath, HasALastComponentAndAFolderBeforeIt)
{
    const struct
    {
        std::wstring_view folder;
        std::wstring_view name;
    } rows[] = {
        {L"",                   L""},
        {L"",                   L"a.txt"},
        {L"\\",                 L""},
        {L"\\",                 L"a"},
        {L"C:\\",               L""},
        {L"C:\\out\\",          L"a.txt"},
        {L"C:\\out\\\\",        L"a"},
        {L"C:/out/",            L"a"},
        {L"C:\\out/",           L"a"},
        {L"C:/out\\",           L"a"},
        {L"\\\\server\\share\\", L"a"},
    };
    for (const auto& row : rows)
    {
        const std::wstring path = std::wstring(row.folder).append(row.name);
        EXPECT_EQ(row.folder, FolderPart(path)) << testing::PrintToString(path);
        EXPECT_EQ(row.name, LastComponent(path)) << testing::PrintToString(path);
    }
}

TEST(WindowsPath, HasAFileNameOfABaseAndAnExtension)
{
    const struct
    {
        std::wstring_view base;
        std::wstring_view extension;
        std::wstring_view path;
    } rows[] = {
        {L"",         L"",       L""},
        {L"calc",     L".txt",   L"calc.txt"},
        {L"calc",     L"",       L"calc"},
        {L"calc",     L".",      L"calc."},
        {L"",         L".txt",   L".txt"},
        {L"calc.v2",  L".txt",   L"calc.v2.txt"},
        {L".",        L".",      L".."},
        {L"calc",     L".txt",   L"C:calc.txt"},
        {L"calc",     L".txt",   L"C:\\a.b\\calc.txt"},
        {L"calc",     L"",       L"C:\\a.b\\calc"},
        {L"calc",     L".txt",   L"a.b/calc.txt"},
        {L"",         L"",       L"a.b\\"},
        {L"a:b",      L".c",     L"\\a:b.c"},
        {L"x y é",    L".t*t",   L"x y é.t*t"},
    };
    for (const auto& row : rows)
    {
        const FileNameParts parts = SplitFileName(row.path);
        EXPECT_EQ(row.base, parts.base) << testing::PrintToString(row.path);
        EXPECT_EQ(row.extension, parts.extension) << testing::PrintToString(row.path);
    }
}
// clang-format on
