#include "vetools/framework/CString.h"

#include <algorithm>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/TextPrinting.h"

// The string against a plain reference on the standard string, over random texts of a small alphabet, null characters
// among them.

namespace
{

constexpr unsigned c_seed = 20898;
constexpr int c_steps = 200000;
/// Long enough to pass from the object into memory and back.
constexpr std::size_t c_longestText = 80;

class RandomTexts
{
public:
    int Number(int lowest, int highest) { return std::uniform_int_distribution<int>(lowest, highest)(m_engine); }

    wchar_t Character()
    {
        constexpr std::wstring_view alphabet(L"aabbc \t\0é", 9);
        return alphabet[static_cast<std::size_t>(Number(0, 8))];
    }

    /// A text without null characters, as functions take it by pointer.
    std::wstring Argument(int longest)
    {
        std::wstring text;
        for (int length = Number(0, longest); length > 0; --length)
        {
            const wchar_t character = Character();
            text += character != L'\0' ? character : L'd';
        }
        return text;
    }

private:
    std::mt19937 m_engine{c_seed};
};

std::size_t Clamped(int value, std::size_t highest)
{
    return value < 0 ? 0 : std::min(static_cast<std::size_t>(value), highest);
}

int IndexOf(std::size_t found)
{
    return found == std::wstring::npos ? -1 : static_cast<int>(found);
}

int ReplaceAll(std::wstring& text, const std::wstring& searched, const std::wstring& replacement)
{
    int count = 0;
    std::size_t from = 0;
    while (!searched.empty() && (from = text.find(searched, from)) != std::wstring::npos)
    {
        text.replace(from, searched.size(), replacement);
        from += replacement.size();
        ++count;
    }
    return count;
}

/// Does one operation on both texts and compares what it returns.
void Step(RandomTexts& random, CString& text, std::wstring& reference)
{
    const int length = static_cast<int>(reference.size());
    const int index = random.Number(-3, length + 3);
    const int count = random.Number(-3, length + 3);
    const wchar_t character = random.Character();
    const std::wstring argument = random.Argument(4);
    const std::size_t at = Clamped(index, reference.size());
    const std::size_t counted = Clamped(count, reference.size() - at);
    switch (random.Number(0, 17))
    {
    case 0:
        reference.insert(at, argument);
        EXPECT_EQ(static_cast<int>(reference.size()), text.Insert(index, argument.c_str()));
        break;
    case 1:
        reference.insert(at, 1, character);
        EXPECT_EQ(static_cast<int>(reference.size()), text.Insert(index, character));
        break;
    case 2:
        reference.erase(at, counted);
        EXPECT_EQ(static_cast<int>(reference.size()), text.Delete(index, count));
        break;
    case 3:
        EXPECT_EQ(ReplaceAll(reference, argument, L"xy"), text.Replace(argument.c_str(), L"xy"));
        break;
    case 4:
        EXPECT_EQ(ReplaceAll(reference, L"a", argument), text.Replace(L"a", argument.c_str()));
        break;
    case 5:
        EXPECT_EQ(std::erase(reference, character), static_cast<std::size_t>(text.Remove(character)));
        break;
    case 6:
        reference += argument;
        text += argument.c_str();
        break;
    case 7:
        reference += reference;
        text += text;
        break;
    case 8:
        reference.insert(at, std::wstring(reference.c_str()));
        text.Insert(index, text);
        break;
    case 9:
        EXPECT_EQ(reference.substr(at, counted), text.Mid(index, count).View());
        break;
    case 10:
        EXPECT_EQ(reference.substr(0, Clamped(count, reference.size())), text.Left(count).View());
        EXPECT_EQ(reference.substr(reference.size() - Clamped(count, reference.size())), text.Right(count).View());
        break;
    case 11:
        EXPECT_EQ(index < 0 ? -1 : IndexOf(reference.find(argument, static_cast<std::size_t>(index))),
                  text.Find(argument.c_str(), index));
        EXPECT_EQ(index < 0 ? -1 : IndexOf(reference.find(character, static_cast<std::size_t>(index))),
                  text.Find(character, index));
        break;
    case 12:
        EXPECT_EQ(IndexOf(reference.rfind(character)), text.ReverseFind(character));
        EXPECT_EQ(IndexOf(reference.find_first_of(argument)), text.FindOneOf(argument.c_str()));
        break;
    case 13:
        EXPECT_EQ(std::clamp(reference.compare(argument), -1, 1), text.Compare(argument.c_str()));
        break;
    case 14:
        reference.erase(0, reference.find_first_not_of(argument));
        reference.erase(reference.find_last_not_of(argument) + 1);
        text.Trim(argument.c_str());
        break;
    case 15:
        reference = reference.substr(at);
        text.SetString(text.GetString() + at, static_cast<int>(static_cast<std::size_t>(length) - at));
        break;
    case 16:
    {
        const CString copy(text);
        text = copy + character;
        reference += character;
        break;
    }
    default:
        text.FreeExtra();
        break;
    }
}

}  // namespace

TEST(CStringRandom, AgreesWithAPlainReference)
{
    RandomTexts random;
    CString text;
    std::wstring reference;
    for (int step = 0; step < c_steps; ++step)
    {
        const std::wstring before = reference;
        Step(random, text, reference);
        ASSERT_EQ(reference, text.View())
            << "seed " << c_seed << ", step " << step << ", before it " << ::testing::PrintToString(before);
        ASSERT_EQ(L'\0', text.GetString()[text.GetLength()]);
        ASSERT_FALSE(HasFailure()) << "seed " << c_seed << ", step " << step << ", before it "
                                   << ::testing::PrintToString(before);
        if (reference.size() <= c_longestText)
            continue;
        reference.clear();
        text.Empty();
    }
}
