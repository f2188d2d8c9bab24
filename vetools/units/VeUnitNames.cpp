#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "vetools/resources/PromptText.h"
#include "vetools/resources/StringIds.h"
#include "vetools/resources/StringTable.h"
#include "vetools/units/UnitCatalogue.h"
#include "vetools/units/UnitText.h"
#include "vetools/units/VeUnitBase.h"

namespace
{

/// The words that are shown in place of inch and foot marks.
enum Word : std::size_t
{
    SquareInch,
    SquareFoot,
    CubicInch,
    CubicFoot,
    Inch,
    Foot,
    c_words,
};

using Words = std::array<CString, c_words>;

/// In the order of Word.
constexpr unsigned int c_promptedWords[] = {
    IDS_WORD_SQUARE_INCH,
    IDS_WORD_SQUARE_FOOT,
    IDS_WORD_CUBIC_INCH,
    IDS_WORD_CUBIC_FOOT,
};

enum class Shown
{
    Name,
    Title,
};

struct MarkRow
{
    const wchar_t* marks;
    Word word;
    bool inTitlesOnly = false;
};

/// What is replaced, in this order.
constexpr MarkRow c_markRows[] = {
    {L"\"²", SquareInch}, {L"\"2", SquareInch}, {L"\"3", CubicInch}, {L"\"", Inch, true},
    {L"'²", SquareFoot},  {L"'2", SquareFoot},  {L"'3", CubicFoot},  {L"'", Foot, true},
};

/// The words for the four combined marks come from the prompts, those for the lone ones from the string table.
Words FindWords()
{
    Words words;
    for (std::size_t word = 0; word < std::size(c_promptedWords); ++word)
        words[word] = PromptText(c_promptedWords[word]);
    words[Inch] = CString(StringTableText(IDS_UNIT_INCH));
    words[Foot] = CString(StringTableText(IDS_UNIT_FOOT));
    return words;
}

/// Replaces marks until none is left, as often as the unit's buffer has characters at most: only a word that itself
/// holds the marks gets that far, and would be replaced for ever.
void ReplaceMarks(CString& text, const wchar_t* marks, const CString& word, std::size_t atMost)
{
    const int length = static_cast<int>(std::wstring_view(marks).size());
    for (std::size_t count = 0; count < atMost; ++count)
    {
        const int at = text.Find(marks);
        if (at < 0)
            return;
        text.Delete(at, length);
        text.Insert(at, word);
    }
}

bool IsMark(wchar_t character)
{
    return character == L'"' || character == L'\'';
}

bool IsPower(wchar_t character)
{
    return character == L'²' || character == L'2' || character == L'3';
}

/// Whether a text holds what may be shown otherwise; mostly it does not. No early end: the compiler looks at several
/// characters at a time.
bool MayBeShownOtherwise(std::wstring_view text)
{
    unsigned int found = 0;
    for (const wchar_t character : text)
        found |= static_cast<unsigned int>(IsMark(character)) | static_cast<unsigned int>(character == L'²');
    return found != 0;
}

/// A stored text that is shown otherwise.
bool IsShownOtherwise(std::wstring_view text, Shown shown)
{
    if (!MayBeShownOtherwise(text))
        return false;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const wchar_t next = i + 1 < text.size() ? text[i + 1] : L'\0';
        if (IsMark(text[i]) && (shown == Shown::Title || IsPower(next)))
            return true;
        if (shown == Shown::Title && text[i] == L'²' && next == L'²')
            return true;
    }
    return false;
}

/// The text with its marks replaced, as often as a unit's buffer of that capacity has characters at most.
CString WithWords(std::wstring_view stored, Shown shown, std::size_t capacity)
{
    CString text(stored);
    const Words words = FindWords();
    for (const MarkRow& row : c_markRows)
    {
        if (shown == Shown::Title || !row.inTitlesOnly)
            ReplaceMarks(text, row.marks, words[row.word], capacity);
    }
    return text;
}

// The symbols of lengths are texts, too. The composed ones are put together from the marks.
constexpr unsigned int c_lengthSymbolTexts[] = {
    IDS_SYMBOL_MICROMETRE, IDS_SYMBOL_MILLIMETRE, IDS_SYMBOL_CENTIMETRE, IDS_SYMBOL_DECIMETRE,
    IDS_SYMBOL_METRE,      IDS_SYMBOL_INCH,       IDS_SYMBOL_FOOT,       IDS_SYMBOL_YARD,
};
constexpr std::size_t c_inchSymbol = 5;
constexpr std::size_t c_footSymbol = 6;
constexpr std::size_t c_lengthSymbols = std::size(CatalogueRows::c_length);

using LengthSymbols = std::array<CString, c_lengthSymbols>;

LengthSymbols FindLengthSymbols()
{
    LengthSymbols symbols;
    std::size_t count = 0;
    for (const unsigned int text : c_lengthSymbolTexts)
        symbols[count++] = CString(StringTableText(text));
    const CString& inch = symbols[c_inchSymbol];
    const CString& foot = symbols[c_footSymbol];
    symbols[count++] = foot + L"-" + inch;
    symbols[count++] = foot + L" / " + inch;
    symbols[count] = L"/" + inch;
    return symbols;
}

/// Room for the longest list, the separators counted generously.
constexpr std::size_t c_longestList = 160;

constexpr std::size_t LengthOfList(std::span<const UnitRow> units)
{
    std::size_t length = 0;
    for (const UnitRow& unit : units)
        length += unit.listed.size() + 1;
    return length;
}

static_assert(std::ranges::all_of(c_unitTables,
                                  [](std::span<const UnitRow> units) { return LengthOfList(units) <= c_longestList; }));

/// The symbols of a quantity's choice list, a line each.
CString ListOfSymbols(std::span<const UnitRow> units)
{
    BoundedText<c_longestList + 1> list;
    for (const UnitRow& unit : units)
    {
        if (unit.listed.empty())
            continue;
        if (!list.View().empty())
            list << L"\n";
        list << unit.listed;
    }
    return CString(list.View());
}

bool GiveIfFound(std::optional<unsigned int> found, unsigned int& range)
{
    if (found)
        range = *found;
    return found.has_value();
}

}  // namespace

CString CVeUnitBase::GetName() const
{
    const std::wstring_view name(Name);
    return IsShownOtherwise(name, Shown::Name) ? WithWords(name, Shown::Name, std::size(Name)) : CString(name);
}

void CVeUnitBase::StoreShownName()
{
    if (IsShownOtherwise(Name, Shown::Name))
        CopyTruncated(WithWords(Name, Shown::Name, std::size(Name)).View(), Name);
}

wchar_t* CVeUnitBase::GetTitle()
{
    if (!IsShownOtherwise(Title, Shown::Title))
        return Title;
    CString title = WithWords(Title, Shown::Title, std::size(Title));
    const int doubled = title.Find(L"²²");
    if (doubled >= 0)
        title.Delete(doubled);
    CopyTruncated(title.View(), Title);
    return Title;
}

CString CVeUnitBase::GetTitlePlural() const
{
    const QuantityRow* quantity = FindQuantity(IdUnit);
    const UnitRow* unit = quantity ? FindUnit(*quantity, Range) : nullptr;
    if (!unit || unit->pluralTitle == 0)
        return {};
    return CString(StringTableText(unit->pluralTitle));
}

CString CVeUnitBase::GetStringUnits(unsigned int idUnit, int range)
{
    const QuantityRow* quantity = FindQuantity(idUnit);
    if (!quantity)
        return {};
    if (range == -1)
        return ListOfSymbols(quantity->units);
    const UnitRow* unit = FindUnit(*quantity, static_cast<unsigned int>(range));
    return CString(unit ? unit->choice : L"---");
}

bool CVeUnitBase::GetRangeFromUnitName(const wchar_t* symbol, unsigned int* range)
{
    return symbol && range && GiveIfFound(FindRangeBySymbol(symbol), *range);
}

bool CVeUnitBase::GetRangeFromUnitTitle(const wchar_t* title, unsigned int* range)
{
    return title && range && GiveIfFound(FindRangeByTitle(title), *range);
}

std::vector<CString> CVeUnitBase::GetAllUnitsSymbols(unsigned int idUnit)
{
    if (!IsLengthId(idUnit))
        return {};
    const LengthSymbols symbols = FindLengthSymbols();
    return {symbols.begin(), symbols.end()};
}

void CVeUnitBase::EliminateUnitsSymbol(unsigned int idUnit, CString& text)
{
    if (!IsLengthId(idUnit))
        return;
    for (CString& symbol : FindLengthSymbols())  // Kept: the single marks first, so a hyphen between them stays
    {
        text.Replace(symbol, L"");
        text.Replace(symbol.MakeUpper(), L"");
    }
}
