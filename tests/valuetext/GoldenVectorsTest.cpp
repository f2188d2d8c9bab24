// Runs the vector files of tests/golden, which an independent model of the library wrote: every line is one call and what
// it must answer, on both builds alike. make_vectors.py says what a line looks like and makes more of them for a long
// run: with VETOOLS_GOLDEN_VECTORS set to a folder, the files are read from there.

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <fstream>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "vetools/units/UnitSeparator.h"
#include "vetools/units/VeUnitBase.h"
#include "vetools/util/NumberList.h"
#include "vetools/util/StringTokenizer.h"
#include "vetools/util/VeString.h"
#include "vetools/valuetext/VeImperialLength.h"

namespace
{

using Texts = std::vector<std::wstring>;
using LengthType = CVeImperialLength::enumIMPERIAL_LENGTH_TYPE;

// ---------------------------------------------------------------------------------------------------------------------
// Columns

constexpr wchar_t c_nullColumn[] = L"\\0";

/// Characters of the basic plane only: one is one wchar_t on both builds.
std::wstring FromUtf8(std::string_view bytes)
{
    std::wstring text;
    for (std::size_t i = 0; i < bytes.size();)
    {
        const unsigned char lead = static_cast<unsigned char>(bytes[i++]);
        const int following = lead < 0x80 ? 0 : lead < 0xE0 ? 1 : 2;
        unsigned int character = following == 0 ? lead : lead & (0x3Fu >> following);
        for (int k = 0; k < following && i < bytes.size(); ++k)
            character = character << 6 | (static_cast<unsigned char>(bytes[i++]) & 0x3Fu);
        text += static_cast<wchar_t>(character);
    }
    return text;
}

/// Plain characters for a message.
std::string Shown(const std::wstring& text)
{
    std::string shown;
    for (const wchar_t character : text)
    {
        char escape[16] = {static_cast<char>(character)};
        if (character < L' ' || character >= 0x7F)
            std::snprintf(escape, sizeof escape, "\\u%04X", static_cast<unsigned int>(character));
        shown += escape;
    }
    return shown;
}

std::string Shown(const Texts& columns)
{
    std::string shown;
    for (const std::wstring& column : columns)
        shown += "[" + Shown(column) + "] ";
    return shown;
}

Texts Split(const std::wstring& text, wchar_t delimiter)
{
    Texts parts(1);
    for (const wchar_t character : text)
    {
        if (character == delimiter)
            parts.emplace_back();
        else
            parts.back() += character;
    }
    return parts;
}

wchar_t CharacterFromHex(const std::wstring& digits)
{
    return static_cast<wchar_t>(std::wcstoul(digits.c_str(), nullptr, 16));
}

/// The text of a column; the one that stands for a null pointer stays as it is.
std::wstring Unescaped(const std::wstring& column)
{
    if (column == c_nullColumn)
        return column;
    std::wstring text;
    for (std::size_t i = 0; i < column.size(); ++i)
    {
        wchar_t character = column[i];
        if (character == L'\\')
        {
            character = column[++i];
            if (character == L'u')
            {
                character = CharacterFromHex(column.substr(i + 1, 4));
                i += 4;
            }
            else if (character != L'\\')
                character = character == L't' ? L'\t' : L'\n';
        }
        text += character;
    }
    return text;
}

int Int(const std::wstring& column)
{
    return static_cast<int>(std::wcstoll(column.c_str(), nullptr, 10));
}

unsigned int Unsigned(const std::wstring& column)
{
    return static_cast<unsigned int>(std::wcstoull(column.c_str(), nullptr, 10));
}

double Double(const std::wstring& column)
{
    return std::bit_cast<double>(static_cast<std::uint64_t>(std::wcstoull(column.c_str(), nullptr, 16)));
}

/// The character that a column consists of.
wchar_t Character(const std::wstring& column)
{
    return column.empty() ? L'\0' : column[0];
}

/// The text, or a null pointer.
const wchar_t* Pointer(const std::wstring& column)
{
    return column == c_nullColumn ? nullptr : column.c_str();
}

std::wstring Column(double value)
{
    if (std::isnan(value))
        return L"nan";
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016llX",
                  static_cast<unsigned long long>(std::bit_cast<std::uint64_t>(value)));
    return FromUtf8(digits);
}

std::wstring Column(int value)
{
    return std::to_wstring(value);
}

std::wstring Column(unsigned int value)
{
    return std::to_wstring(value);
}

std::wstring Column(bool value)
{
    return value ? L"1" : L"0";
}

std::wstring Column(const CString& text)
{
    return text.GetString();
}

// ---------------------------------------------------------------------------------------------------------------------
// Units made by steps, as in "A.new=1,4,3,%002E,3FF0000000000000,0 A.exponent=2"

std::wstring UnescapedWord(const std::wstring& word)
{
    std::wstring text;
    for (std::size_t i = 0; i < word.size(); ++i)
    {
        const bool escaped = word[i] == L'%';
        text += escaped ? CharacterFromHex(word.substr(i + 1, 4)) : word[i];
        if (escaped)
            i += 4;
    }
    return text;
}

class Units
{
public:
    explicit Units(const std::wstring& script)
    {
        CVeUnitSeparator::m_cSep = L'.';
        m_units = {};
        for (const std::wstring& step : Split(script, L' '))
        {
            if (!step.empty())
                Do(step);
        }
    }

    Units(const Units&) = delete;
    Units& operator=(const Units&) = delete;

    ~Units() { CVeUnitSeparator::m_cSep = L'.'; }

    CVeUnitBase& operator[](wchar_t name) { return m_units[static_cast<std::size_t>(name - L'A')]; }

private:
    using Step = void (*)(Units& units, CVeUnitBase& unit, const Texts& arguments);

    CVeUnitBase& Named(const std::wstring& name) { return (*this)[Character(name)]; }

    /// The arguments of MakeUnit behind the first exponent, filled up with the null pointer that ends them.
    struct Pairs
    {
        std::array<CVeUnitBase*, 4> units{};
        std::array<int, 4> powers{};
    };

    Pairs PairsOf(const Texts& arguments)
    {
        Pairs pairs;
        for (std::size_t i = 0; 3 + 2 * i < arguments.size(); ++i)
        {
            pairs.units[i] = &Named(arguments[2 + 2 * i]);
            pairs.powers[i] = Int(arguments[3 + 2 * i]);
        }
        return pairs;
    }

    static void Make(Units& units, CVeUnitBase& unit, const Texts& a)
    {
        const Pairs p = units.PairsOf(a);
        unit = CVeUnitBase::MakeUnit(&units.Named(a[0]), Int(a[1]), p.units[0], p.powers[0], p.units[1], p.powers[1],
                                     p.units[2], p.powers[2], p.units[3]);
    }

    static void MakeInto(Units& units, CVeUnitBase& unit, const Texts& a)
    {
        const Pairs p = units.PairsOf(a);
        CVeUnitBase::MakeUnit(&unit, &units.Named(a[0]), Int(a[1]), p.units[0], p.powers[0], p.units[1], p.powers[1],
                              p.units[2], p.powers[2], p.units[3]);
    }

    static void Clone(Units& units, CVeUnitBase& unit, const Texts& a)
    {
        const std::unique_ptr<CVeUnitBase> clone(units.Named(a[0]).GetClone());
        unit = *clone;
    }

    static void New(Units&, CVeUnitBase& unit, const Texts& a)
    {
        unit = CVeUnitBase(Unsigned(a[0]), Unsigned(a[1]), Unsigned(a[2]), Character(a[3]), Double(a[4]), Int(a[5]));
    }

    void Do(const std::wstring& step)
    {
        // clang-format off
        static const std::map<std::wstring, Step> steps = {
            {L"assign",    [](Units& units, CVeUnitBase& unit, const Texts& a) { unit = units.Named(a[0]); }},
            {L"clone",     Clone},
            {L"coef",      [](Units&, CVeUnitBase& unit, const Texts& a) { unit.SetCoef(Double(a[0])); }},
            {L"copy",      [](Units& units, CVeUnitBase& unit, const Texts& a) { unit = CVeUnitBase(units.Named(a[0])); }},
            {L"current",   [](Units&, CVeUnitBase&, const Texts& a) { CVeUnitSeparator::m_cSep = Character(a[0]); }},
            {L"default",   [](Units&, CVeUnitBase& unit, const Texts&) { unit = CVeUnitBase(); }},
            {L"divide",    [](Units& units, CVeUnitBase& unit, const Texts& a) { unit /= units.Named(a[0]); }},
            {L"exponent",  [](Units&, CVeUnitBase& unit, const Texts& a) { unit.SetExponent(Int(a[0])); }},
            {L"factor",    [](Units&, CVeUnitBase& unit, const Texts& a) { unit.SetMetricsFactor(Double(a[0])); }},
            {L"format",    [](Units&, CVeUnitBase& unit, const Texts& a) { unit.SetUnitFormat(static_cast<Unit::enumUNITFORMAT>(Unsigned(a[0]))); }},
            {L"id",        [](Units&, CVeUnitBase& unit, const Texts& a) { unit.SetIdUnit(Unsigned(a[0])); }},
            {L"idrange",   [](Units&, CVeUnitBase& unit, const Texts& a) { unit.SetIdUnitAndRange(Unsigned(a[0]), Unsigned(a[1])); }},
            {L"make",      Make},
            {L"makeinto",  MakeInto},
            {L"multiply",  [](Units& units, CVeUnitBase& unit, const Texts& a) { unit *= units.Named(a[0]); }},
            {L"name",      [](Units&, CVeUnitBase& unit, const Texts& a) { unit.SetName(a[0].c_str()); }},
            {L"new",       New},
            {L"over",      [](Units& units, CVeUnitBase& unit, const Texts& a) { unit = units.Named(a[0]) / units.Named(a[1]); }},
            {L"precision", [](Units&, CVeUnitBase& unit, const Texts& a) { unit.SetPrecision(Unsigned(a[0])); }},
            {L"range",     [](Units&, CVeUnitBase& unit, const Texts& a) { unit.SetRange(Unsigned(a[0])); }},
            {L"separator", [](Units&, CVeUnitBase& unit, const Texts& a) { unit.SetSep(Character(a[0])); }},
            {L"times",     [](Units& units, CVeUnitBase& unit, const Texts& a) { unit = units.Named(a[0]) * units.Named(a[1]); }},
            {L"title",     [](Units&, CVeUnitBase& unit, const Texts&) { unit.GetTitle(); }},
            {L"type",      [](Units&, CVeUnitBase& unit, const Texts& a) { unit.SetUnitType(static_cast<Unit::UNIT_TYPE>(Unsigned(a[0]))); }},
            {L"values",    [](Units&, CVeUnitBase& unit, const Texts& a) { unit.SetUnitValues(a[0].c_str(), a[1].c_str(), Double(a[2])); }},
            {L"zeroes",    [](Units&, CVeUnitBase& unit, const Texts& a) { unit.SetRemoveTrailingZeroes(Int(a[0])); }},
        };
        // clang-format on
        const std::size_t equals = step.find(L'=');
        Texts arguments = Split(step.substr(equals + 1), L',');
        for (std::wstring& argument : arguments)
            argument = UnescapedWord(argument);
        steps.at(step.substr(2, equals - 2))(*this, (*this)[step[0]], arguments);
    }

    std::array<CVeUnitBase, 4> m_units;
};

// ---------------------------------------------------------------------------------------------------------------------
// Calls: the inputs of a line in, the columns that the library answers out

/// A caller's buffer of exactly the size that may be written, with guard cells behind it.
class GuardedBuffer
{
public:
    GuardedBuffer(const std::wstring& initial, std::size_t extent)
        : m_extent(extent)
        , m_cells(extent + c_guardCells, c_guard)
    {
        std::copy(initial.begin(), initial.end(), m_cells.begin());
        m_cells[initial.size()] = L'\0';
    }

    wchar_t* Data() { return m_cells.data(); }

    /// The extent that was allowed, or how far the library wrote beyond it.
    std::wstring Extent() const
    {
        std::size_t end = m_cells.size();
        while (end > m_extent && m_cells[end - 1] == c_guard)
            --end;
        return std::to_wstring(end);
    }

private:
    static constexpr wchar_t c_guard = 0xE000;
#ifdef __SANITIZE_ADDRESS__
    static constexpr std::size_t c_guardCells = 0;  // the sanitizer watches
#else
    static constexpr std::size_t c_guardCells = 64;
#endif
    std::size_t m_extent;
    std::vector<wchar_t> m_cells;
};

Texts CallUnit(const Texts& in, const Texts&)
{
    Units units(in[0]);
    CVeUnitBase& unit = units[L'A'];
    Texts out = {
        Column(unit.GetIDUnit()),
        Column(unit.GetRange()),
        Column(unit.GetPrecision()),
        Column(unit.GetExponent()),
        std::wstring(1, unit.GetSep()),
        Column(unit.GetCoef()),
        Column(static_cast<unsigned int>(unit.GetType())),
        Column(unit.GetMetricsFactor()),
        Column(static_cast<unsigned int>(unit.GetUnitFormat())),
        Column(unit.GetRemoveTrailingZeroes()),
        Column(unit.GetName()),
    };
    out.push_back(unit.GetTitle());
    out.push_back(Column(unit.GetTitlePlural()));
    return out;
}

Texts CallEqual(const Texts& in, const Texts&)
{
    Units units(in[0]);
    return {Column(units[L'A'] == units[L'B']), Column(units[L'A'] != units[L'B'])};
}

Texts CallSI2Double(const Texts& in, const Texts&)
{
    double value = Double(in[1]);
    Units(in[0])[L'A'].SI2Double(value, Int(in[2]));
    return {Column(value)};
}

Texts CallDouble2SI(const Texts& in, const Texts&)
{
    double value = Double(in[1]);
    Units(in[0])[L'A'].Double2SI(value, Int(in[2]));
    return {Column(value)};
}

Texts CallGetStringUnits(const Texts& in, const Texts&)
{
    return {Column(CVeUnitBase::GetStringUnits(Unsigned(in[0]), Int(in[1])))};
}

Texts CallGetRangeFromUnitName(const Texts& in, const Texts&)
{
    unsigned int range = 777;
    const bool found = CVeUnitBase::GetRangeFromUnitName(Pointer(in[0]), &range);
    return {Column(found), Column(range)};
}

Texts CallGetRangeFromUnitTitle(const Texts& in, const Texts&)
{
    unsigned int range = 777;
    const bool found = CVeUnitBase::GetRangeFromUnitTitle(Pointer(in[0]), &range);
    return {Column(found), Column(range)};
}

Texts CallGetAllUnitsSymbols(const Texts& in, const Texts&)
{
    std::wstring joined;
    for (const CString& symbol : CVeUnitBase::GetAllUnitsSymbols(Unsigned(in[0])))
        joined += (joined.empty() ? L"" : L"\n") + Column(symbol);
    return {joined};
}

Texts CallEliminateUnitsSymbol(const Texts& in, const Texts&)
{
    CString text(in[1].c_str());
    CVeUnitBase::EliminateUnitsSymbol(Unsigned(in[0]), text);
    return {Column(text)};
}

constexpr int c_reserved = 77;  // accepted and never read

Texts CallDouble2String(const Texts& in, const Texts& expected)
{
    Units units(in[0]);
    GuardedBuffer buffer(in[9], Unsigned(expected[2]));
    const CString text = units[L'A'].Double2String(buffer.Data(), Double(in[1]), Int(in[2]), in[3].c_str(), Int(in[4]),
                                                   Int(in[5]), Unsigned(in[6]), c_reserved, Int(in[7]), Int(in[8]));
    return {Column(text), buffer.Data(), buffer.Extent()};
}

Texts CallDouble2StringSuperscript(const Texts& in, const Texts& expected)
{
    Units units(in[0]);
    GuardedBuffer buffer(in[11], Unsigned(expected[2]));
    const CString text =
        units[L'A'].Double2String(buffer.Data(), Int(in[9]), Double(in[1]), Int(in[2]), in[3].c_str(), Int(in[4]),
                                  Int(in[5]), Unsigned(in[6]), Int(in[10]), c_reserved, Int(in[7]), Int(in[8]));
    return {Column(text), buffer.Data(), buffer.Extent()};
}

Texts CallString2Double(const Texts& in, const Texts&)
{
    Units units(in[0]);
    int ok = 7;
    const double value = units[L'A'].String2Double(Pointer(in[1]), &ok, Int(in[2]));
    const double withoutFlag = units[L'A'].String2Double(Pointer(in[1]), nullptr, Int(in[2]));
    return {Column(value), Column(value) == Column(withoutFlag) ? Column(ok) : L"differs without the flag"};
}

Texts CallEliminatePrecision(const Texts& in, const Texts&)
{
    CString text(in[0].c_str());
    CVeUnitBase::EliminatePrecision(text);
    return {Column(text)};
}

Texts CallReplaceNumberSeparator(const Texts& in, const Texts&)
{
    CVeUnitSeparator::m_cSep = Character(in[0]);
    CString text(in[2].c_str());
    const bool replaced = CVeUnitBase::ReplaceNumberSeparator(Character(in[1]), text);
    CVeUnitSeparator::m_cSep = L'.';
    return {Column(replaced), Column(text)};
}

Texts CallFormatStringWithExponent(const Texts& in, const Texts&)
{
    CString text(in[0].c_str());
    const bool done = CVeString::FormatStringWithExponent(text, Double(in[1]), Character(in[2]), in[3].c_str(),
                                                          in[4].c_str(), in[5].c_str(), Double(in[6]), Int(in[7]) != 0);
    return {done ? Column(text) : L"false"};
}

/// Both overloads of a count with the metres that are left.
template <typename Returning, typename Filling>
Texts CountAndRest(Returning returning, Filling filling)
{
    double rest = 0.0, filledRest = 0.0;
    int filledCount = 0;
    const int count = returning(rest);
    filling(filledRest, filledCount);
    if (count != filledCount || Column(rest) != Column(filledRest))
        return {L"the overloads differ"};
    return {Column(count), Column(rest)};
}

Texts CallMeter2Feet(const Texts& in, const Texts&)
{
    const double m = Double(in[0]);
    return CountAndRest([m](double& rest) { return CVeImperialLength::Meter2Feet(m, rest); },
                        [m](double& rest, int& count) { CVeImperialLength::Meter2Feet(m, rest, count); });
}

Texts CallMeter2Inches(const Texts& in, const Texts&)
{
    const double m = Double(in[0]);
    return CountAndRest([m](double& rest) { return CVeImperialLength::Meter2Inches(m, rest); },
                        [m](double& rest, int& count) { CVeImperialLength::Meter2Inches(m, rest, count); });
}

Texts CallMeter2Fractions(const Texts& in, const Texts&)
{
    const double m = Double(in[0]);
    const int p = Int(in[1]);
    return CountAndRest([m, p](double& rest) { return CVeImperialLength::Meter2Fractions(m, p, rest); },
                        [m, p](double& rest, int& count) { CVeImperialLength::Meter2Fractions(m, p, rest, count); });
}

Texts CallMeter2FractionsRest(const Texts& in, const Texts&)
{
    double rest = 0.0;
    const double returned = CVeImperialLength::Meter2Fractions(Double(in[0]), rest);
    return {Column(returned), Column(rest)};
}

Texts ColumnsOf(const CVeImperialLength::tagIMPERIAL_LENGTH_UNIT& unit)
{
    return {Column(unit.positive), Column(unit.feet), Column(unit.inches), Column(unit.fractionNumerator),
            Column(unit.remainderInches)};
}

Texts CallMeter2Imperial(const Texts& in, const Texts&)
{
    const double m = Double(in[0]);
    const int p = Int(in[1]);
    const LengthType type = static_cast<LengthType>(Unsigned(in[2]));
    const CVeImperialLength::tagIMPERIAL_LENGTH_UNIT unit = CVeImperialLength::Meter2Imperial(m, p, type);
    CVeImperialLength::tagIMPERIAL_LENGTH_UNIT filled = {false, 9, 9, 9, 9.0};
    CVeImperialLength::Meter2Imperial(m, p, type, filled);
    int feet = 9, inches = 9, fraction = 9;
    CVeImperialLength::Meter2Imperial(m, p, type, feet, inches, fraction);
    if (ColumnsOf(unit) != ColumnsOf(filled) || feet != unit.feet || inches != unit.inches || fraction != 0)
        return {L"the overloads differ"};
    return ColumnsOf(unit);
}

Texts CallFeet2Meter(const Texts& in, const Texts&)
{
    double m = 0.0;
    CVeImperialLength::Feet2Meter(Int(in[0]), m);
    return {Column(m) == Column(CVeImperialLength::Feet2Meter(Int(in[0]))) ? Column(m) : L"the overloads differ"};
}

Texts CallInches2Meter(const Texts& in, const Texts&)
{
    double m = 0.0;
    CVeImperialLength::Inches2Meter(Int(in[0]), m);
    return {Column(m) == Column(CVeImperialLength::Inches2Meter(Int(in[0]))) ? Column(m) : L"the overloads differ"};
}

Texts CallFractions2Meter(const Texts& in, const Texts&)
{
    double m = 0.0;
    CVeImperialLength::Fractions2Meter(Int(in[0]), Int(in[1]), m);
    const double returned = CVeImperialLength::Fractions2Meter(Int(in[0]), Int(in[1]));
    return {Column(m) == Column(returned) ? Column(m) : L"the overloads differ"};
}

Texts CallImperial2Meter(const Texts& in, const Texts&)
{
    const int feet = Int(in[1]), inches = Int(in[2]), numerator = Int(in[3]), p = Int(in[4]);
    const CVeImperialLength::tagIMPERIAL_LENGTH_UNIT unit = {Int(in[0]) != 0, feet, inches, numerator, 123.0};
    double ofRecord = 0.0, ofParts = 0.0;
    CVeImperialLength::Imperial2Meter(unit, p, ofRecord);
    CVeImperialLength::Imperial2Meter(feet, inches, numerator, p, ofParts);
    if (Column(ofRecord) != Column(CVeImperialLength::Imperial2Meter(unit, p)) ||
        Column(ofParts) != Column(CVeImperialLength::Imperial2Meter(feet, inches, numerator, p)))
        return {L"the overloads differ"};
    return {Column(ofRecord), Column(ofParts)};
}

Texts CallMeter2ImperialStr(const Texts& in, const Texts& expected)
{
    const double m = Double(in[0]);
    const int p = Int(in[1]);
    const LengthType type = static_cast<LengthType>(Unsigned(in[2]));
    GuardedBuffer buffer(in[3], std::max(in[3].size(), expected[0].size()) + 1);
    wchar_t* text = buffer.Data();
    CVeImperialLength::Meter2ImperialStr(m, p, type, &text);

    const std::unique_ptr<wchar_t[]> allocated(CVeImperialLength::Meter2ImperialStr(m, p, type));
    const bool applies = type == CVeImperialLength::IMPERIAL_INCHES || type == CVeImperialLength::IMPERIAL_FEET_INCHES;
    if (applies && std::wstring(buffer.Data()) != allocated.get())
        return {L"the overloads differ: " + std::wstring(allocated.get())};
    return {buffer.Data()};
}

Texts CallImperialStr2Imperial(const Texts& in, const Texts&)
{
    const LengthType type = static_cast<LengthType>(Unsigned(in[1]));
    bool positive = true;
    int feet = 0, inches = 0, numerator = 0, power = 0, recordPower = 0;
    const bool ok =
        CVeImperialLength::ImperialStr2Imperial(in[0].c_str(), type, positive, feet, inches, numerator, power);
    CVeImperialLength::tagIMPERIAL_LENGTH_UNIT unit = {true, 0, 0, 0, 123.0};
    const bool recordOk = CVeImperialLength::ImperialStr2Imperial(in[0].c_str(), type, unit, recordPower);
    if (recordOk != ok || unit.positive != positive || unit.feet != feet || unit.inches != inches ||
        unit.fractionNumerator != numerator || recordPower != power)
        return {L"the overloads differ"};
    return {Column(ok), Column(positive), Column(feet), Column(inches), Column(numerator), Column(power)};
}

Texts CallImperialStr2Meter(const Texts& in, const Texts&)
{
    const LengthType type = static_cast<LengthType>(Unsigned(in[1]));
    double m = 777.0, feet = 777.0, inches = 777.0;
    const bool ok = CVeImperialLength::ImperialStr2Meter(in[0].c_str(), type, m);
    const bool feetOk = CVeImperialLength::ImperialStr2Feet(in[0].c_str(), type, feet);
    const bool inchesOk = CVeImperialLength::ImperialStr2Inches(in[0].c_str(), type, inches);
    if (feetOk != ok || inchesOk != ok)
        return {L"the three results differ"};
    return {Column(ok), Column(m), Column(feet), Column(inches)};
}

Texts CallImperialStr2Value(const Texts& in, const Texts&)
{
    Units units(in[0]);
    double value = 777.0;
    const bool ok = CVeImperialLength::ImperialStr2Value(in[1].c_str(), units[L'A'], value);
    return {Column(ok), Column(value)};
}

Texts ColumnsOf(CStringTokenizer& tokens)
{
    int walked = 0;
    CString element, same;
    for (; tokens.GetNextElement(element); ++walked)
    {
        if (!tokens.ElementAt(walked, same) || Column(same) != Column(element))
            return {L"the walk differs"};
    }
    Texts out = {Column(tokens.CountElements()), Column(walked)};
    for (int i = 0; i < tokens.CountElements(); ++i)
        out.push_back(Column(tokens.ElementAt(i)));
    return out;
}

Texts CallTokenizer(const Texts& in, const Texts&)
{
    CString text(in[0].c_str());
    if (Int(in[2]) != 0)
    {
        CStringTokenizer tokens(text, Character(in[1]), 0);
        return ColumnsOf(tokens);
    }
    CStringTokenizer tokens(text, Character(in[1]));
    return ColumnsOf(tokens);
}

Texts CallParseStringToLong(const Texts& in, const Texts&)
{
    std::list<long> values = {99};
    ParseStringToLong(in[0].c_str(), values, Int(in[1]));
    std::wstring joined;
    for (const long value : values)
        joined += (joined.empty() ? L"" : L" ") + std::to_wstring(value);
    return {joined};
}

Texts CallExcludeChar(const Texts& in, const Texts&)
{
    CVeString text(in[0].c_str());
    text.ExcludeChar(in[1].c_str());
    return {text.GetString()};
}

Texts CallIncludeChar(const Texts& in, const Texts&)
{
    CVeString text(in[0].c_str());
    text.IncludeChar(in[1].c_str());
    return {text.GetString()};
}

Texts CallCompareUpperCase(const Texts& in, const Texts&)
{
    const int order = CompareUpperCase(in[0].c_str(), in[1].c_str());
    return {Column((order > 0) - (order < 0))};
}

Texts CallBoolToString(const Texts& in, const Texts&)
{
    return {BoolToString(Int(in[0]))};
}

using Call = Texts (*)(const Texts& inputs, const Texts& expected);

Call CallNamed(const std::wstring& function)
{
    static const std::map<std::wstring, Call> calls = {
        {L"BoolToString", CallBoolToString},
        {L"CompareUpperCase", CallCompareUpperCase},
        {L"CStringTokenizer", CallTokenizer},
        {L"Double2SI", CallDouble2SI},
        {L"Double2String", CallDouble2String},
        {L"Double2StringSuperscript", CallDouble2StringSuperscript},
        {L"EliminatePrecision", CallEliminatePrecision},
        {L"EliminateUnitsSymbol", CallEliminateUnitsSymbol},
        {L"Equal", CallEqual},
        {L"ExcludeChar", CallExcludeChar},
        {L"Feet2Meter", CallFeet2Meter},
        {L"FormatStringWithExponent", CallFormatStringWithExponent},
        {L"Fractions2Meter", CallFractions2Meter},
        {L"GetAllUnitsSymbols", CallGetAllUnitsSymbols},
        {L"GetRangeFromUnitName", CallGetRangeFromUnitName},
        {L"GetRangeFromUnitTitle", CallGetRangeFromUnitTitle},
        {L"GetStringUnits", CallGetStringUnits},
        {L"Imperial2Meter", CallImperial2Meter},
        {L"ImperialStr2Imperial", CallImperialStr2Imperial},
        {L"ImperialStr2Meter", CallImperialStr2Meter},
        {L"ImperialStr2Value", CallImperialStr2Value},
        {L"Inches2Meter", CallInches2Meter},
        {L"IncludeChar", CallIncludeChar},
        {L"Meter2Feet", CallMeter2Feet},
        {L"Meter2Fractions", CallMeter2Fractions},
        {L"Meter2FractionsRest", CallMeter2FractionsRest},
        {L"Meter2Imperial", CallMeter2Imperial},
        {L"Meter2ImperialStr", CallMeter2ImperialStr},
        {L"Meter2Inches", CallMeter2Inches},
        {L"ParseStringToLong", CallParseStringToLong},
        {L"ReplaceNumberSeparator", CallReplaceNumberSeparator},
        {L"SI2Double", CallSI2Double},
        {L"String2Double", CallString2Double},
        {L"Unit", CallUnit},
    };
    const auto call = calls.find(function);
    return call == calls.end() ? nullptr : call->second;
}

// ---------------------------------------------------------------------------------------------------------------------
// Files

struct Vector
{
    std::wstring function;
    Texts inputs;
    Texts expected;
};

Vector VectorOf(const std::string& line)
{
    Vector vector;
    const Texts columns = Split(FromUtf8(line), L'\t');
    vector.function = columns[0];
    Texts* part = &vector.inputs;
    for (std::size_t i = 1; i < columns.size(); ++i)
    {
        if (columns[i] == L"=" && part == &vector.inputs)
            part = &vector.expected;
        else
            part->push_back(Unescaped(columns[i]));
    }
    return vector;
}

std::string FolderOfVectors()
{
    const char* const folder = std::getenv("VETOOLS_GOLDEN_VECTORS");
    return folder != nullptr ? folder : "golden";
}

constexpr int c_mostFailuresShown = 100;

class GoldenVectors : public testing::TestWithParam<const char*>
{
};

}  // namespace

TEST_P(GoldenVectors, AreReproducedByteForByte)
{
    const std::string path = FolderOfVectors() + "/" + GetParam();
    std::ifstream file(path, std::ios::binary);
    ASSERT_TRUE(file.is_open()) << path;

    int lineNumber = 0, failures = 0;
    for (std::string line; std::getline(file, line);)
    {
        ++lineNumber;
        const Vector vector = VectorOf(line);
        const Call call = CallNamed(vector.function);
        ASSERT_NE(nullptr, call) << path << ":" << lineNumber << " " << Shown(vector.function);
        const Texts got = call(vector.inputs, vector.expected);
        if (got == vector.expected)
            continue;
        ++failures;
        if (failures <= c_mostFailuresShown)
            ADD_FAILURE() << path << ":" << lineNumber << " " << Shown(vector.function) << "\n  inputs   "
                          << Shown(vector.inputs) << "\n  expected " << Shown(vector.expected) << "\n  got      "
                          << Shown(got);
    }
    EXPECT_GT(lineNumber, 0) << path << " is empty";
    EXPECT_EQ(0, failures) << path;
}

INSTANTIATE_TEST_SUITE_P(Files, GoldenVectors,
                         testing::Values("units.txt", "decimaltext.txt", "imperial.txt", "strings.txt"),
                         [](const testing::TestParamInfo<const char*>& file)
                         {
                             const std::string_view name = file.param;
                             return std::string(name.substr(0, name.find('.')));
                         });
