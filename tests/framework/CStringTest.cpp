#include "vetools/framework/CString.h"

#include <climits>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "tests/support/TextPrinting.h"
#include "vetools/framework/CException.h"

using namespace std::string_view_literals;

namespace
{

constexpr wchar_t c_shortest[] = L"";
constexpr wchar_t c_longestShort[] = L"12345678901234567890123";
constexpr wchar_t c_shortestLong[] = L"123456789012345678901234";

const wchar_t* const c_texts[] = {c_shortest,     L"a",
                                  L"ab",          c_longestShort,
                                  c_shortestLong, L"a text that is well beyond what an object holds in itself"};

bool StandsInTheObject(const CString& text)
{
    const char* const object = reinterpret_cast<const char*>(&text);
    const char* const characters = reinterpret_cast<const char*>(text.GetString());
    return characters >= object && characters < object + sizeof text;
}

template <class Call>
::testing::AssertionResult ThrowsInvalidArgument(Call call)
{
    try
    {
        call();
    }
    catch (CInvalidArgException* exception)
    {
        exception->Delete();
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << "nothing was thrown";
}

}  // namespace

TEST(CStringConstruction, StartsEmptyWithATerminator)
{
    const CString text;
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(0, text.GetLength());
    EXPECT_EQ(L'\0', *text.GetString());
}

TEST(CStringConstruction, ReadsNullAsTheEmptyText)
{
    const wchar_t* const wide = nullptr;
    const char* const narrow = nullptr;
    EXPECT_EQ(L"", CString(wide));
    EXPECT_EQ(L"", CString(narrow));
    EXPECT_EQ(L"", CString(wide, 5));
}

TEST(CStringConstruction, KeepsNullCharactersOfATextWithItsLength)
{
    const CString text(L"a\0b", 3);
    EXPECT_EQ(3, text.GetLength());
    EXPECT_EQ(L"a\0b"sv, text.View());
    EXPECT_EQ(L"a\0b"sv, CString(text).View());
    EXPECT_NE(L"a", text);
    EXPECT_EQ(2, text.Find(L'b'));
}

TEST(CStringConstruction, TakesANegativeLengthOrCountAsNone)
{
    EXPECT_EQ(L"", CString(L"abc", -1));
    EXPECT_EQ(L"", CString(L'a', -1));
    EXPECT_EQ(L"", CString(L'a', 0));
    EXPECT_EQ(L"a", CString(L'a'));
    EXPECT_EQ(L"aaa", CString(L'a', 3));
}

TEST(CStringConstruction, ReadsNarrowTextInTheSystemsEncoding)
{
    EXPECT_EQ(L"", CString(""));
    EXPECT_EQ(L"ASCII is in every narrow encoding, however long the text",
              CString("ASCII is in every narrow encoding, however long the text"));
}

TEST(CStringMemory, HoldsShortTextsInTheObject)
{
    EXPECT_TRUE(StandsInTheObject(CString()));
    EXPECT_TRUE(StandsInTheObject(CString(c_longestShort)));
    EXPECT_FALSE(StandsInTheObject(CString(c_shortestLong)));
}

TEST(CStringMemory, MovesWithoutAllocationAndLeavesTheEmptyText)
{
    static_assert(std::is_nothrow_move_constructible_v<CString> && std::is_nothrow_move_assignable_v<CString>);
    for (const wchar_t* const text : c_texts)
    {
        CString from(text);
        const wchar_t* const characters = from.GetString();
        CString to(std::move(from));
        EXPECT_EQ(text, to);
        EXPECT_EQ(L"", from);
        EXPECT_EQ(!StandsInTheObject(to), to.GetString() == characters);

        CString assigned(c_shortestLong);
        assigned = std::move(to);
        EXPECT_EQ(text, assigned);
        EXPECT_EQ(L"", to);
    }
}

TEST(CStringMemory, SurvivesAssignmentToItself)
{
    for (const wchar_t* const text : c_texts)
    {
        CString string(text);
        CString& same = string;
        string = same;
        EXPECT_EQ(text, string);
        string = std::move(same);
        EXPECT_EQ(text, string);
    }
}

TEST(CStringMemory, GrowsGeometrically)
{
    CString text;
    int allocations = 0;
    for (int length = 0; length < 100000; ++length)
    {
        const int capacity = text.GetAllocLength();
        text.AppendChar(L'x');
        allocations += text.GetAllocLength() != capacity;
    }
    EXPECT_EQ(CString(L'x', 100000), text);
    EXPECT_LT(allocations, 30);
}

TEST(CStringMemory, GivesBackWhatTheTextDoesNotNeed)
{
    CString text(c_shortestLong);
    text.Preallocate(1000);
    EXPECT_LE(1000, text.GetAllocLength());
    EXPECT_EQ(c_shortestLong, text);
    text.FreeExtra();
    EXPECT_EQ(text.GetLength(), text.GetAllocLength());
    EXPECT_EQ(c_shortestLong, text);
    text.Truncate(3);
    text.FreeExtra();
    EXPECT_TRUE(StandsInTheObject(text));
    EXPECT_EQ(L"123", text);
    text.Preallocate(-1);
    EXPECT_EQ(L"123", text);
}

TEST(CStringMemory, EmptyGivesTheMemoryBack)
{
    CString text(c_shortestLong);
    text.Empty();
    EXPECT_EQ(L"", text);
    EXPECT_TRUE(StandsInTheObject(text));
}

TEST(CStringMemory, ThrowsAMemoryExceptionWhereALengthWouldExceedTheLargest)
{
    CString text(L"abc");
    EXPECT_THROW(text.Preallocate(INT_MAX), CMemoryException*);
    EXPECT_EQ(L"abc", text);
}

TEST(CStringAliasing, TakesPartsOfItsOwnText)
{
    for (const wchar_t* const text : c_texts)
    {
        const std::wstring whole(text);
        const std::wstring rest = whole.empty() ? L"" : whole.substr(1);
        const int skipped = whole.empty() ? 0 : 1;

        CString string(text);
        string = string.GetString() + skipped;
        EXPECT_EQ(rest, string.View());

        string = text;
        string.SetString(string.GetString() + skipped, 2);
        EXPECT_EQ(rest.substr(0, 2), std::wstring(string.View()).c_str());

        string = text;
        string += string;
        EXPECT_EQ(whole + whole, string.View());

        string = text;
        string.Append(string.GetString() + skipped);
        EXPECT_EQ(whole + rest, string.View());

        string = text;
        string += string.GetString();
        EXPECT_EQ(whole + whole, string.View());

        string = text;
        string.Insert(skipped, string);
        EXPECT_EQ(whole.substr(0, static_cast<std::size_t>(skipped)) + whole + rest, string.View());

        string = text;
        string.Replace(string, L"x");
        EXPECT_EQ(whole.empty() ? L"" : L"x", string);

        string = L"a,b";
        string.Replace(L",", string);
        EXPECT_EQ(L"aa,bb", string);
    }
}

TEST(CStringCharacters, ReadsUpToTheTerminator)
{
    const CString text(L"ab");
    EXPECT_EQ(L'a', text.GetAt(0));
    EXPECT_EQ(L'b', text[1]);
    EXPECT_EQ(L'\0', text.GetAt(2));
    EXPECT_TRUE(ThrowsInvalidArgument([&] { text.GetAt(3); }));
    EXPECT_TRUE(ThrowsInvalidArgument([&] { text.GetAt(-1); }));
    EXPECT_TRUE(ThrowsInvalidArgument([&] { static_cast<void>(text[INT_MIN]); }));
}

TEST(CStringCharacters, WritesWithinTheTextOnly)
{
    CString text(L"ab");
    text.SetAt(1, L'c');
    EXPECT_EQ(L"ac", text);
    EXPECT_TRUE(ThrowsInvalidArgument([&] { text.SetAt(2, L'x'); }));
    EXPECT_TRUE(ThrowsInvalidArgument([&] { text.SetAt(-1, L'x'); }));
    EXPECT_EQ(L"ac", text);
}

TEST(CStringCharacters, AppendsInEveryForm)
{
    CString text;
    text += L"a";
    text += L'b';
    text += CString(L"c");
    text.Append(L"de");
    text.Append(L"fgh", 2);
    text.Append(CString(L"h"));
    text.AppendChar(L'i');
    text.Append(nullptr);
    text.Append(nullptr, 3);
    text.Append(L"xyz", -1);
    EXPECT_EQ(L"abcdefghi", text);
    text = L'x';
    EXPECT_EQ(L"x", text);
    text = "narrow";
    EXPECT_EQ(L"narrow", text);
}

TEST(CStringOperators, ConcatenateTextsAndCharacters)
{
    const CString text(L"text");
    EXPECT_EQ(L"texttext", text + text);
    EXPECT_EQ(L"text wide", text + L" wide");
    EXPECT_EQ(L"wide text", L"wide " + text);
    EXPECT_EQ(L"text!", text + L'!');
    EXPECT_EQ(L"!text", L'!' + text);
    EXPECT_EQ(L"a text, and then some more of it!",
              L"a " + text + L", and then " + CString(L"some more") + L" of it" + L'!');
    const wchar_t* const null = nullptr;
    EXPECT_EQ(L"text", null + text + null);
    EXPECT_EQ(L"text", text);
}

TEST(CStringOperators, CompareByElementsInBothOrders)
{
    struct Row
    {
        int expected;
        const wchar_t* left;
        const wchar_t* right;
    };
    const Row rows[] = {
        {0, L"", L""},
        {-1, L"", L"a"},
        {1, L"a", L""},
        {0, L"abc", L"abc"},
        {-1, L"abc", L"abd"},
        {1, L"b", L"abc"},
        {-1, L"ab", L"abc"},
        {-1, L"A", L"a"},
        {-1, L"Z", L"a"},
        {-1, L"z", L"é"},
        {0, L"", nullptr},
        {1, L"a", nullptr},
        {-1, L"\x7FFF", L"\x8000"},
        {-1, L"a", L"\xFFFF"},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(::testing::PrintToString(row.left) + " against " + ::testing::PrintToString(row.right));
        const CString left(row.left);
        const CString right(row.right);
        EXPECT_EQ(row.expected, left.Compare(row.right));
        EXPECT_EQ(row.expected == 0, left == right);
        EXPECT_EQ(row.expected == 0, left == row.right);
        EXPECT_EQ(row.expected == 0, row.right == left);
        EXPECT_EQ(row.expected != 0, left != right);
        EXPECT_EQ(row.expected != 0, left != row.right);
        EXPECT_EQ(row.expected != 0, row.right != left);
        EXPECT_EQ(row.expected < 0, left < right);
        EXPECT_EQ(row.expected < 0, left < row.right);
        EXPECT_EQ(row.expected<0, row.right> left);
        EXPECT_EQ(row.expected > 0, left > right);
        EXPECT_EQ(row.expected > 0, left > row.right);
        EXPECT_EQ(row.expected <= 0, left <= right);
        EXPECT_EQ(row.expected <= 0, left <= row.right);
        EXPECT_EQ(row.expected >= 0, left >= right);
        EXPECT_EQ(row.expected >= 0, left >= row.right);
    }
}

TEST(CStringComparison, ReadsCaseAlike)
{
    struct Row
    {
        int expected;
        const wchar_t* left;
        const wchar_t* right;
    };
    const Row rows[] = {
        {0, L"", nullptr}, {0, L"abc", L"ABC"}, {0, L"ÉTÉ", L"été"},   {0, L"Ÿ", L"ÿ"},
        {-1, L"a", L"B"},  {1, L"C", L"b"},     {-1, L"ab", L"ABC"},   {1, L"ABC", L"ab"},
        {-1, L"e", L"É"},  {-1, L"_", L"A"},  // as lower case
        {-1, L"ss", L"ß"}, {-1, L"i", L"ı"},    {0, L"kN*m", L"KN*M"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.expected, CString(row.left).CompareNoCase(row.right))
            << ::testing::PrintToString(row.left) << " against " << ::testing::PrintToString(row.right);
}

TEST(CStringComparison, CollatesByLettersThenAccentsThenCase)
{
    struct Row
    {
        int withCase;
        int withoutCase;
        const wchar_t* left;
        const wchar_t* right;
    };
    const Row rows[] = {
        {0, 0, L"", nullptr},         {0, 0, L"abc", L"abc"}, {-1, 0, L"abc", L"ABC"},   {-1, -1, L"a", L"B"},
        {-1, -1, L"A", L"b"},         {1, 1, L"été", L"ete"}, {-1, -1, L"été", L"etf"},  {-1, -1, L"cote", L"côté"},
        {-1, -1, L"Mètre", L"Pouce"}, {-1, -1, L"2", L"a"},   {-1, -1, L"abc", L"abcd"}, {1, 1, L"é", L"E"},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(::testing::PrintToString(row.left) + " against " + ::testing::PrintToString(row.right));
        EXPECT_EQ(row.withCase, CString(row.left).Collate(row.right));
        EXPECT_EQ(row.withoutCase, CString(row.left).CollateNoCase(row.right));
    }
}

TEST(CStringParts, ClampWhatTheyAreAskedFor)
{
    struct Row
    {
        const wchar_t* mid;
        const wchar_t* left;
        const wchar_t* right;
        int first;
        int count;
    };
    // clang-format off
    const Row rows[] = {
    //   Mid      Left     Right    first    count
        {L"",     L"",     L"",     0,       0},
        {L"m",    L"m",    L"e",    0,       1},
        {L"et",   L"me",   L"re",   1,       2},
        {L"re",   L"metre", L"metre", 3,     10},
        {L"",     L"me",   L"re",   5,       2},
        {L"",     L"me",   L"re",   6,       2},
        {L"me",   L"me",   L"re",   -1,      2},
        {L"",     L"",     L"",     1,       -1},
        {L"metre", L"metre", L"metre", INT_MIN, INT_MAX},
        {L"",     L"metre", L"metre", INT_MAX, INT_MAX},
        {L"",     L"",     L"",     INT_MAX, INT_MIN},
    };
    // clang-format on
    const CString text(L"metre");
    for (const Row& row : rows)
    {
        SCOPED_TRACE("first " + std::to_string(row.first) + ", count " + std::to_string(row.count));
        EXPECT_EQ(row.mid, text.Mid(row.first, row.count));
        EXPECT_EQ(row.left, text.Left(row.count));
        EXPECT_EQ(row.right, text.Right(row.count));
    }
    EXPECT_EQ(L"tre", text.Mid(2));
    EXPECT_EQ(L"metre", text.Mid(-5));
    EXPECT_EQ(L"", text.Mid(9));
}

TEST(CStringParts, SpanAsFarAsTheGivenCharactersReach)
{
    struct Row
    {
        const wchar_t* including;
        const wchar_t* excluding;
        const wchar_t* text;
        const wchar_t* characters;
    };
    const Row rows[] = {
        {L"", L"", L"", L"abc"},        {L"", L"abc", L"abc", L""},
        {L"", L"abc", L"abc", nullptr}, {L"12", L"", L"12 mm", L"0123456789"},
        {L"", L"12", L"12 mm", L" m"},  {L"aab", L"", L"aab", L"ab"},
        {L"", L"xyz", L"xyz", L"ab"},
    };
    for (const Row& row : rows)
    {
        EXPECT_EQ(row.including, CString(row.text).SpanIncluding(row.characters)) << ::testing::PrintToString(row.text);
        EXPECT_EQ(row.excluding, CString(row.text).SpanExcluding(row.characters)) << ::testing::PrintToString(row.text);
    }
}

TEST(CStringParts, TokenizeSkipsDelimitersAndEndsWithMinusOne)
{
    struct Row
    {
        const wchar_t* expected;  // each token with a bar behind it
        const wchar_t* text;
        const wchar_t* delimiters;
    };
    const Row rows[] = {
        {L"", L"", L";"},
        {L"", L";;;", L";"},
        {L"a|", L"a", L";"},
        {L"a|b|c|", L"a;b;c", L";"},
        {L"a|b|", L";;a;;;b;", L";"},
        {L"First|Second|Third|", L"%First Second#Third", L"% #"},
        {L"a;b|", L"a;b", L""},
        {L"a;b|", L"a;b", nullptr},
    };
    for (const Row& row : rows)
    {
        const CString text(row.text);
        CString tokens;
        int position = 0;
        for (CString token = text.Tokenize(row.delimiters, position); position != -1;
             token = text.Tokenize(row.delimiters, position))
            tokens += token + L'|';
        EXPECT_EQ(row.expected, tokens) << ::testing::PrintToString(row.text);
        EXPECT_EQ(L"", text.Tokenize(row.delimiters, position));
        EXPECT_EQ(-1, position);
    }
}

TEST(CStringParts, TokenizeMovesBehindTheDelimiter)
{
    const CString text(L"a;b");
    int position = 0;
    EXPECT_EQ(L"a", text.Tokenize(L";", position));
    EXPECT_EQ(2, position);
    EXPECT_EQ(L"b", text.Tokenize(L";", position));
    EXPECT_EQ(4, position);
    position = 1000;
    EXPECT_EQ(L"", text.Tokenize(L";", position));
    EXPECT_EQ(-1, position);
}

TEST(CStringCase, MapsLetterByLetter)
{
    struct Row
    {
        const wchar_t* upper;
        const wchar_t* lower;
        const wchar_t* text;
    };
    const Row rows[] = {
        {L"", L"", L""},
        {L"KN*M", L"kn*m", L"kN*m"},
        {L"DÉCIMÈTRE", L"décimètre", L"Décimètre"},
        {L"ÀÂÄÇÉÈÊËÎÏÔÖÙÛÜŒÆ", L"àâäçéèêëîïôöùûüœæ", L"àâäçéèêëîïôöùûüœæ"},
        {L"ΑΒΓ ЖЗИ", L"αβγ жзи", L"Αβγ Жзи"},
        {L"STRAßE", L"straße", L"Straße"},  // one element stays one
        {L"µM", L"µm", L"µm"},              // the micro sign is not the letter mu
        {L"Ÿ", L"ÿ", L"ÿ"},
        {L"Iı", L"iı", L"iı"},
        {L"İ", L"İ", L"İ"},
        {L"ſ", L"ſ", L"ſ"},
        {L"ǄǅǄ", L"ǆǅǆ", L"ǆǅǄ"},              // the title-case form has two counterparts
        {L"K\x212A", L"k\x212A", L"k\x212A"},  // the Kelvin sign
        {L"0²!° \t", L"0²!° \t", L"0²!° \t"},
    };
    for (const Row& row : rows)
    {
        EXPECT_EQ(row.upper, CString(row.text).MakeUpper()) << ::testing::PrintToString(row.text);
        EXPECT_EQ(row.lower, CString(row.text).MakeLower()) << ::testing::PrintToString(row.text);
    }
}

TEST(CStringCase, ReversesTheElements)
{
    EXPECT_EQ(L"", CString(L"").MakeReverse());
    EXPECT_EQ(L"a", CString(L"a").MakeReverse());
    EXPECT_EQ(L"ertèM", CString(L"Mètre").MakeReverse());
}

TEST(CStringEditing, ReplacesCharactersAndCountsThem)
{
    CString text(L"1,5, 2,5");
    EXPECT_EQ(3, text.Replace(L',', L'.'));
    EXPECT_EQ(L"1.5. 2.5", text);
    EXPECT_EQ(0, text.Replace(L'x', L'y'));
    EXPECT_EQ(0, text.Replace(L'.', L'.'));
    EXPECT_EQ(L"1.5. 2.5", text);
}

TEST(CStringEditing, ReplacesTextsAndCountsThem)
{
    struct Row
    {
        const wchar_t* expected;
        int count;
        const wchar_t* text;
        const wchar_t* searched;
        const wchar_t* replacement;
    };
    const Row rows[] = {
        {L"", 0, L"", L"a", L"b"},
        {L"abc", 0, L"abc", L"", L"x"},
        {L"abc", 0, L"abc", nullptr, L"x"},
        {L"abc", 0, L"abc", L"d", L"x"},
        {L"xbc", 1, L"abc", L"a", L"x"},
        {L"bc", 1, L"abc", L"a", nullptr},
        {L"", 3, L"aaa", L"a", L""},
        {L"ba", 1, L"aaa", L"aa", L"b"},   // left to right, without overlap
        {L"aaaa", 2, L"aa", L"a", L"aa"},  // what arises is left alone
        {L"abab", 2, L"abab", L"ab", L"ab"},
        {L"1 sq in", 1, L"1 \"²", L"\"²", L"sq in"},
        {L"a text beyond the object, a text beyond the object", 2, L"!, !", L"!", L"a text beyond the object"},
        {L"!, !", 2, L"a text beyond the object, a text beyond the object", L"a text beyond the object", L"!"},
    };
    for (const Row& row : rows)
    {
        CString text(row.text);
        EXPECT_EQ(row.count, text.Replace(row.searched, row.replacement)) << ::testing::PrintToString(row.text);
        EXPECT_EQ(row.expected, text);
    }
}

TEST(CStringEditing, RemovesACharacterEverywhere)
{
    CString text(L"1 000 000");
    EXPECT_EQ(2, text.Remove(L' '));
    EXPECT_EQ(L"1000000", text);
    EXPECT_EQ(0, text.Remove(L' '));
    EXPECT_EQ(6, text.Remove(L'0'));
    EXPECT_EQ(L"1", text);
}

TEST(CStringEditing, InsertsAtAClampedIndexAndReturnsTheLength)
{
    CString text(L"bd");
    EXPECT_EQ(3, text.Insert(1, L'c'));
    EXPECT_EQ(4, text.Insert(-5, L'a'));
    EXPECT_EQ(6, text.Insert(100, L"ef"));
    EXPECT_EQ(6, text.Insert(2, L""));
    EXPECT_EQ(6, text.Insert(2, nullptr));
    EXPECT_EQ(L"abcdef", text);
}

TEST(CStringEditing, DeletesWhatIsThereAndReturnsTheLength)
{
    struct Row
    {
        const wchar_t* expected;
        int index;
        int count;
    };
    const Row rows[] = {
        {L"bcdef", 0, 1},    {L"abef", 2, 2},    {L"abc", 3, 100},        {L"abcdef", 6, 1},
        {L"abcdef", 100, 1}, {L"abcdef", 2, 0},  {L"abcdef", 2, -1},      {L"cdef", -3, 2},
        {L"", 0, INT_MAX},   {L"a", 1, INT_MAX}, {L"", INT_MIN, INT_MAX},
    };
    for (const Row& row : rows)
    {
        CString text(L"abcdef");
        const int length = text.Delete(row.index, row.count);
        EXPECT_EQ(row.expected, text) << row.index << ", " << row.count;
        EXPECT_EQ(length, text.GetLength());
    }
    CString text(L"abc");
    text.Delete(1);
    EXPECT_EQ(L"ac", text);
}

TEST(CStringTrimming, RemovesWhiteSpaceACharacterOrASet)
{
    struct Row
    {
        const wchar_t* both;
        const wchar_t* left;
        const wchar_t* right;
        const wchar_t* text;
    };
    const Row rows[] = {
        {L"", L"", L"", L""},
        {L"", L"", L"", L" \t\r\n\v\f"},
        {L"a b", L"a b ", L" a b", L" a b "},
        {L"a", L"a\t\n", L"\r\n a", L"\r\n a\t\n"},
        {L"a", L"a\x00A0\x3000",
         L"\x00A0\x2003\x0085"
         L"a",
         L"\x00A0\x2003\x0085"
         L"a\x00A0\x3000"},
        {L"\x200B"
         L"a\x180E",
         L"\x200B"
         L"a\x180E ",
         L" \x200B"
         L"a\x180E",
         L" \x200B"
         L"a\x180E "},  // no white space
    };
    for (const Row& row : rows)
    {
        EXPECT_EQ(row.both, CString(row.text).Trim()) << ::testing::PrintToString(row.text);
        EXPECT_EQ(row.left, CString(row.text).TrimLeft()) << ::testing::PrintToString(row.text);
        EXPECT_EQ(row.right, CString(row.text).TrimRight()) << ::testing::PrintToString(row.text);
    }
    EXPECT_EQ(L"1-2", CString(L"--1-2--").Trim(L'-'));
    EXPECT_EQ(L"1-2--", CString(L"--1-2--").TrimLeft(L'-'));
    EXPECT_EQ(L"--1-2", CString(L"--1-2--").TrimRight(L'-'));
    EXPECT_EQ(L"1-2", CString(L"-+1-2+-").Trim(L"+-"));
    EXPECT_EQ(L"1-2+-", CString(L"-+1-2+-").TrimLeft(L"+-"));
    EXPECT_EQ(L"-+1-2", CString(L"-+1-2+-").TrimRight(L"+-"));
    EXPECT_EQ(L" a ", CString(L" a ").Trim(L""));
    EXPECT_EQ(L" a ", CString(L" a ").TrimLeft(nullptr));
    EXPECT_EQ(L" a ", CString(L" a ").TrimRight(nullptr));
    EXPECT_EQ(L"", CString(L"----").Trim(L'-'));
}

TEST(CStringSearching, FindsFromAStart)
{
    struct Row
    {
        int character;  // searched by its first character
        int text;
        const wchar_t* searched;
        int start;
    };
    const CString text(L"abcabc");
    // clang-format off
    const Row rows[] = {
    //   character  text  searched  start
        {0,         0,    L"a",     0},
        {3,         3,    L"a",     1},
        {3,         3,    L"a",     3},
        {-1,        -1,   L"a",     4},
        {1,         1,    L"bc",    0},
        {4,         4,    L"bc",    2},
        {2,         -1,   L"cb",    0},
        {-1,        -1,   L"x",     0},
        {-1,        -1,   L"a",     6},
        {-1,        -1,   L"a",     7},
        {-1,        -1,   L"a",     -1},
        {-1,        -1,   L"a",     INT_MAX},
        {0,         -1,   L"abcabcd", 0},
    };
    // clang-format on
    for (const Row& row : rows)
    {
        EXPECT_EQ(row.character, text.Find(row.searched[0], row.start))
            << ::testing::PrintToString(row.searched) << " from " << row.start;
        EXPECT_EQ(row.text, text.Find(row.searched, row.start))
            << ::testing::PrintToString(row.searched) << " from " << row.start;
    }
}

TEST(CStringSearching, FindsTheEmptyTextAtTheStart)
{
    const CString text(L"abc");
    EXPECT_EQ(0, text.Find(L""));
    EXPECT_EQ(2, text.Find(L"", 2));
    EXPECT_EQ(3, text.Find(L"", 3));
    EXPECT_EQ(-1, text.Find(L"", 4));
    EXPECT_EQ(0, CString().Find(L""));
}

TEST(CStringSearching, FindsTheLastCharacterAndAnyOfSeveral)
{
    const CString text(L"a/b/c");
    EXPECT_EQ(3, text.ReverseFind(L'/'));
    EXPECT_EQ(-1, text.ReverseFind(L'x'));
    EXPECT_EQ(-1, CString().ReverseFind(L'x'));
    EXPECT_EQ(1, text.FindOneOf(L"xc/"));
    EXPECT_EQ(-1, text.FindOneOf(L"xyz"));
    EXPECT_EQ(-1, text.FindOneOf(L""));
    EXPECT_EQ(-1, text.FindOneOf(nullptr));
}

TEST(CStringFormatting, ReplacesOrAppends)
{
    CString text(L"before");
    text.Format(L"%s %d %.2f", L"wide", 42, 0.125);
    EXPECT_EQ(L"wide 42 0.12", text);
    text.AppendFormat(L"%c%S", L'!', "narrow");
    EXPECT_EQ(L"wide 42 0.12!narrow", text);
    text.Format(L"");
    EXPECT_EQ(L"", text);
}

TEST(CStringFormatting, TakesArgumentsAndFormatOutOfItself)
{
    CString text(L"<%s>");
    text.Format(text.GetString(), text.GetString());
    EXPECT_EQ(L"<<%s>>", text);
    text = L"ab";
    text.AppendFormat(L"-%s-%s", text.GetString(), text.GetString() + 1);
    EXPECT_EQ(L"ab-ab-b", text);
}

TEST(CStringFormatting, LoadsFormatsFromTheStringTable)
{
    CString text;
    text.Format(21003U);
    EXPECT_EQ(L"mètres", text);
    text.AppendFormat(21006U);
    EXPECT_EQ(L"mètresµm", text);
    EXPECT_TRUE(ThrowsInvalidArgument([&] { text.Format(1U); }));
    EXPECT_TRUE(ThrowsInvalidArgument([&] { text.AppendFormat(1U); }));
    EXPECT_EQ(L"mètresµm", text);
}

TEST(CStringBuffer, IsWrittenAndReleased)
{
    CString text(L"abc");
    wchar_t* buffer = text.GetBuffer(100);
    EXPECT_STREQ(L"abc", buffer);
    for (int i = 0; i < 100; ++i)
        buffer[i] = L'x';
    buffer[50] = L'\0';
    text.ReleaseBuffer();
    EXPECT_EQ(CString(L'x', 50), text);

    text.GetBuffer()[0] = L'y';
    text.ReleaseBuffer(2);
    EXPECT_EQ(L"yx", text);

    buffer = text.GetBufferSetLength(3);
    buffer[2] = L'z';
    text.ReleaseBufferSetLength(3);
    EXPECT_EQ(L"yxz", text);

    buffer = text.GetBuffer(200);
    for (int i = 0; i <= text.GetAllocLength(); ++i)
        buffer[i] = L'x';
    text.ReleaseBuffer();
    EXPECT_EQ(text.GetAllocLength(), text.GetLength());
}

TEST(CStringBuffer, RefusesLengthsOutsideItsMemory)
{
    CString text(L"abc");
    EXPECT_TRUE(ThrowsInvalidArgument([&] { text.GetBuffer(-1); }));
    EXPECT_TRUE(ThrowsInvalidArgument([&] { text.GetBufferSetLength(-1); }));
    EXPECT_TRUE(ThrowsInvalidArgument([&] { text.ReleaseBuffer(-2); }));
    EXPECT_TRUE(ThrowsInvalidArgument([&] { text.ReleaseBuffer(text.GetAllocLength() + 1); }));
    EXPECT_TRUE(ThrowsInvalidArgument([&] { text.Truncate(-1); }));
    EXPECT_EQ(L"abc", text);
    text.Truncate(10);
    EXPECT_EQ(L"abc", text);
    text.Truncate(1);
    EXPECT_EQ(L"a", text);
}
