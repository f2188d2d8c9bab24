#include "vetools/util/StringTokenizer.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "vetools/framework/CException.h"

namespace
{

using Elements = std::vector<std::wstring>;

Elements ElementsOf(const CStringTokenizer& tokenizer)
{
    Elements elements;
    for (int i = 0; i < tokenizer.CountElements(); ++i)
        elements.emplace_back(tokenizer.ElementAt(i).View());
    return elements;
}

struct Row
{
    Elements expected;
    const wchar_t* text;
    wchar_t delimiter;
};

TEST(StringTokenizer, NDelimitersMakeNPlusOneElements)
{
    const Row rows[] = {
        {{L""}, L"", L';'},
        {{L"a"}, L"a", L';'},
        {{L"", L""}, L";", L';'},
        {{L"a", L"b", L""}, L"a;b;", L';'},
        {{L"", L"", L"a", L""}, L";;a;", L';'},
        {{L" a ", L"\tb "}, L" a ;\tb ", L';'},
        {{L"a;b"}, L"a;b", L','},
        {{L"a text longer than an object holds", L"b"}, L"a text longer than an object holds|b", L'|'},
    };
    for (const Row& row : rows)
    {
        CString text(row.text);
        const CStringTokenizer tokenizer(text, row.delimiter);
        EXPECT_EQ(row.expected, ElementsOf(tokenizer)) << testing::PrintToString(std::wstring(row.text));
        const CStringTokenizer same(text, row.delimiter, 0);
        EXPECT_EQ(row.expected, ElementsOf(same)) << testing::PrintToString(std::wstring(row.text));
        EXPECT_STREQ(row.text, text.GetString());
        EXPECT_EQ(static_cast<int>(row.expected.size()), tokenizer.CountElements());
        EXPECT_EQ(static_cast<int>(row.expected.size()), static_cast<int>(tokenizer.GetSize()));
    }
}

TEST(StringTokenizer, KeptTheCharacterBeforeALineEndOrBackslashIsDropped)
{
    const Row rows[] = {
        {{L"x", L"y"}, L"x\r\ny", L'\n'},
        {{L"", L"y"}, L"x\ny", L'\n'},
        {{L"", L"", L""}, L"\n\n", L'\n'},
        {{L"", L"y\r"}, L"\r\ny\r", L'\n'},
        {{L"", L"", L"c"}, L"a\\b\\c", L'\\'},
        {{L"", L"", L""}, L"\\\\", L'\\'},
        {{L"C", L"User", L"file"}, L"C:\\Users\\file", L'\\'},
    };
    for (const Row& row : rows)
    {
        CString text(row.text);
        EXPECT_EQ(row.expected, ElementsOf(CStringTokenizer(text, row.delimiter)))
            << testing::PrintToString(std::wstring(row.text));
    }
}

TEST(StringTokenizer, TheFormWithANumberDropsNothing)
{
    CString lines(L"x\r\ny");
    CString path(L"C:\\Users");
    for (const int unread : {0, 1, -1})
    {
        EXPECT_EQ((Elements{L"x\r", L"y"}), ElementsOf(CStringTokenizer(lines, L'\n', unread)));
        EXPECT_EQ((Elements{L"C:", L"Users"}), ElementsOf(CStringTokenizer(path, L'\\', unread)));
    }
}

TEST(StringTokenizer, ATextWithNullCharactersIsReadToItsEnd)
{
    CString text(L"a\0b;c", 5);
    EXPECT_EQ((Elements{std::wstring(L"a\0b", 3), L"c"}), ElementsOf(CStringTokenizer(text, L';')));
    EXPECT_EQ((Elements{L"a", L"b;c"}), ElementsOf(CStringTokenizer(text, L'\0')));
}

TEST(StringTokenizer, ElementAtIsFalseOrEmptyOutOfRange)
{
    CString text(L"a;b");
    const CStringTokenizer tokenizer(text, L';');
    CString out(L"before");
    for (const long i : {-1L, 2L, 1000L, std::numeric_limits<long>::max(), std::numeric_limits<long>::min()})
    {
        EXPECT_FALSE(tokenizer.ElementAt(i, out)) << i;
        EXPECT_STREQ(L"before", out.GetString()) << i;
        EXPECT_STREQ(L"", tokenizer.ElementAt(i).GetString()) << i;
    }
    EXPECT_TRUE(tokenizer.ElementAt(1, out));
    EXPECT_STREQ(L"b", out.GetString());
}

TEST(StringTokenizer, AnElementThatTheArrayNoLongerHasThrows)
{
    CString text(L"a;b;c");
    CStringTokenizer tokenizer(text, L';');
    tokenizer.RemoveAll();
    tokenizer.Add(L"x");
    EXPECT_EQ(3, tokenizer.CountElements());
    EXPECT_STREQ(L"x", tokenizer.ElementAt(0).GetString());
    CString out;
    for (int i = 0; i < 3; ++i)
    {
        try
        {
            if (i == 0)
                tokenizer.ElementAt(1, out);
            else if (i == 1)
                tokenizer.ElementAt(2);
            else
                while (tokenizer.GetNextElement(out))
                    EXPECT_STREQ(L"x", out.GetString());
            ADD_FAILURE() << i;
        }
        catch (CInvalidArgException* exception)
        {
            exception->Delete();
        }
    }
}

TEST(StringTokenizer, KeptTheWalkNeverDeliversTheLastElement)
{
    CString text(L"a;b;");
    CStringTokenizer tokenizer(text, L';');
    CString out;
    EXPECT_TRUE(tokenizer.GetNextElement(out));
    EXPECT_STREQ(L"a", out.GetString());
    EXPECT_TRUE(tokenizer.GetNextElement(out));
    EXPECT_STREQ(L"b", out.GetString());
    for (int i = 0; i < 3; ++i)
        EXPECT_FALSE(tokenizer.GetNextElement(out));
    EXPECT_STREQ(L"b", out.GetString());

    CString single(L"a");
    CStringTokenizer one(single, L';');
    EXPECT_FALSE(one.GetNextElement(out));
}

TEST(StringTokenizer, SplitsMillionsOfCharacters)
{
    CString delimiters(std::wstring(1'000'000, L';').c_str());
    EXPECT_EQ(1'000'001, CStringTokenizer(delimiters, L';').CountElements());
    CString letters(std::wstring(5'000'000, L'a').c_str());
    EXPECT_EQ(1, CStringTokenizer(letters, L';').CountElements());
}

}  // namespace
