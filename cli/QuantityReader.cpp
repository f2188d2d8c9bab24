#include "cli/QuantityReader.h"

#include <algorithm>
#include <cmath>

#include "cli/Quantities.h"
#include "cli/Utf8.h"

namespace
{

constexpr unsigned int c_rangeInch = 5;
constexpr unsigned int c_rangeInchFraction = 10;
constexpr std::string_view c_minusSign = "−";  // U+2212, as documents print it

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool IsBlank(char character)
{
    return character == ' ' || character == '\t';
}

std::string_view TrimBlanks(std::string_view text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// A place in a number being read; each Consume takes something and says so, and copies it as the library wants it.
class NumberCursor
{
public:
    NumberCursor(std::string_view text, std::wstring& copy)
        : m_text(text)
        , m_copy(copy)
    {
    }

    std::string_view Rest() const { return m_text; }

    void ConsumeSign()
    {
        if (m_text.starts_with(c_minusSign))
            Take(c_minusSign.size(), L'-');
        else if (m_text.starts_with('-') || m_text.starts_with('+'))
            Take(1, static_cast<wchar_t>(m_text.front()));
    }

    std::size_t ConsumeDigits()
    {
        std::size_t count = 0;
        for (; !m_text.empty() && IsDigit(m_text.front()); ++count)
            Take(1, static_cast<wchar_t>(m_text.front()));
        return count;
    }

    bool Consume(char written, wchar_t copied)
    {
        if (!m_text.starts_with(written))
            return false;
        Take(1, copied);
        return true;
    }

    // "e-3", and nothing of "eV"
    void ConsumePowerOfTen()
    {
        std::string_view ahead = m_text;
        if (!ahead.starts_with('e') && !ahead.starts_with('E'))
            return;
        ahead.remove_prefix(1);
        if (ahead.starts_with('-') || ahead.starts_with('+'))
            ahead.remove_prefix(1);
        if (ahead.empty() || !IsDigit(ahead.front()))
            return;
        Take(1, L'e');
        ConsumeSign();
        ConsumeDigits();
    }

private:
    void Take(std::size_t count, wchar_t copied)
    {
        m_text.remove_prefix(count);
        m_copy.push_back(copied);
    }

    std::string_view m_text;
    std::wstring& m_copy;
};

// The library reads the digits; a unit without dimension leaves the number as it is.
double ReadDigits(std::wstring& digits)
{
    static const CVeUnitBase s_plain(Unit::UNIT_ID_DIMENSIONLESS, 0, 0, L'.', 1.0, 0);
    return s_plain.String2Double(digits.c_str(), nullptr, 0);
}

std::optional<NumberText> ReadNumberInto(std::string_view text, char separator, std::wstring& copy)
{
    copy.clear();
    NumberCursor cursor(TrimBlanks(text), copy);
    cursor.ConsumeSign();
    std::size_t digits = cursor.ConsumeDigits();
    if (cursor.Consume(separator, L'.'))
        digits += cursor.ConsumeDigits();
    if (digits == 0)
        return std::nullopt;
    cursor.ConsumePowerOfTen();
    return NumberText{ReadDigits(copy), TrimBlanks(cursor.Rest())};
}

struct MarkSpelling
{
    std::string_view written;
    wchar_t mark;
};

constexpr MarkSpelling c_markSpellings[] = {
    {"''", L'"'},
    {"″", L'"'},
    {"′", L'\''},
    {c_minusSign, L'-'},
};

// Feet-inches text in the library's own spelling; nothing when it holds what can belong to no such text, of which the
// library would read just the start.
bool SpellFeetAndInches(std::string_view text, char separator, std::wstring& spelled)
{
    constexpr std::string_view c_marks = "'\"/- \t";
    spelled.clear();
    bool separatorInNumber = false;
    for (text = TrimBlanks(text); !text.empty();)
    {
        const auto row = std::find_if(std::begin(c_markSpellings), std::end(c_markSpellings),
                                      [&](const MarkSpelling& each) { return text.starts_with(each.written); });
        if (row != std::end(c_markSpellings))
        {
            separatorInNumber = false;
            spelled.push_back(row->mark);
            text.remove_prefix(row->written.size());
            continue;
        }
        const char character = text.front();
        text.remove_prefix(1);
        if (character == separator)
        {
            if (separatorInNumber)
                return false;
            separatorInNumber = true;
            spelled.push_back(L'.');
            continue;
        }
        if (!IsDigit(character) && c_marks.find(character) == std::string_view::npos)
            return false;
        separatorInNumber = separatorInNumber && IsDigit(character);
        spelled.push_back(static_cast<wchar_t>(character));
    }
    return std::any_of(spelled.begin(), spelled.end(), [](wchar_t each) { return each >= L'0' && each <= L'9'; });
}

bool IsImperialLength(const UnitChoice& unit)
{
    return QuantityById(unit.id)->family == Unit::UNIT_ID_LENGTH && unit.exponent == 1 && unit.range >= c_rangeInch &&
           unit.range <= c_rangeInchFraction;
}

bool WritesFeetAndInches(const CVeUnitBase& unit)
{
    const Unit::enumUNITFORMAT format = unit.GetUnitFormat();
    return unit.GetExponent() == 1 && (format == Unit::UNITFORMAT_FEET_INCHES || format == Unit::UNITFORMAT_FRACTION);
}

// The unit that reads feet, inches and fractions. Asked with its metrics factor of 1.0, the library answers in metres.
CVeUnitBase FeetAndInchesUnit()
{
    constexpr unsigned int c_rangeFootInchFraction = 9;
    return {Unit::UNIT_ID_LENGTH, c_rangeFootInchFraction, 0, L'.', 1.0, 0};
}

}  // namespace

std::optional<NumberText> ReadNumber(std::string_view text, char separator)
{
    std::wstring copy;
    return ReadNumberInto(text, separator, copy);
}

bool LooksLikeValue(std::string_view text)
{
    text = TrimBlanks(text);
    const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
    const bool isRange = digits > 0 && text.substr(digits).starts_with(':');
    if (text.empty() || isRange)
        return false;
    return IsDigit(text.front()) || text.front() == '-' || text.front() == '+' || text.front() == '.' ||
           text.front() == ',' || text.starts_with(c_minusSign);
}

QuantityReader::QuantityReader(const UnitLookup& lookup, const UnitChoice& unit, const Settings& settings)
    : m_lookup(lookup)
    , m_settings(settings)
    , m_measure(unit)
    , m_unit(MakeUnitOf(unit))
    , m_feetAndInches(FeetAndInchesUnit())
    , m_readsFeetAndInches(IsImperialLength(unit))
    , m_readsMarksOnly(WritesFeetAndInches(*m_unit))
{
}

QuantityReader QuantityReader::ForAnyUnit(const UnitLookup& lookup, const UnitChoice& measure, const Settings& settings)
{
    QuantityReader reader(lookup, measure, settings);
    reader.m_unit.reset();
    reader.m_readsMarksOnly = false;
    reader.m_readsFeetAndInches = MeasuresTheSame(measure, {Unit::UNIT_ID_LENGTH, c_rangeInch, 1});
    return reader;
}

std::optional<double> QuantityReader::Read(std::string_view text)
{
    const std::optional<double> value = ReadText(text);
    if (!value)
    {
        m_expected = DescribeExpectation();
        return std::nullopt;
    }
    if (!std::isfinite(*value))
    {
        m_expected = "expected a number that a double can hold, up to 1.8e308";
        return std::nullopt;
    }
    return value;
}

std::optional<double> QuantityReader::ReadText(std::string_view text)
{
    if (!m_readsMarksOnly)
    {
        const std::optional<NumberText> number = ReadNumberInto(text, m_settings.separator, m_wide);
        if (number && number->rest.empty() && m_unit)
            return ToSi(*m_unit, number->value);
        if (number && !number->rest.empty())
            if (const CVeUnitBase* const unit = UnitOf(number->rest))
                return ToSi(*unit, number->value);
    }
    if (m_readsFeetAndInches)
        return ReadFeetAndInches(text);
    return std::nullopt;
}

std::optional<double> QuantityReader::ReadFeetAndInches(std::string_view text)
{
    if (!SpellFeetAndInches(text, m_settings.separator, m_wide))
        return std::nullopt;
    // A plain number is feet-inches text only for a unit that writes such text.
    const bool hasMark = m_wide.find_first_of(L"'\"/") != std::wstring::npos;
    if (!hasMark && !m_readsMarksOnly)
        return std::nullopt;
    int isRead = 0;
    const double metres = m_feetAndInches.String2Double(m_wide.c_str(), &isRead, 1);
    if (!isRead)
        return std::nullopt;
    return metres * m_settings.metricsFactor;
}

// The unit that a value names: the reader's own, or any that measures the same when it has none.
const CVeUnitBase* QuantityReader::UnitOf(std::string_view suffix)
{
    const auto isWanted = [&](const UnitChoice& unit)
    {
        return MeasuresTheSame(unit, m_measure) && (!m_unit || unit.range == m_measure.range);
    };
    if (m_lastSuffix.text != suffix)
    {
        m_lastSuffix = {std::string(suffix), std::nullopt};
        const std::vector<UnitChoice> units = m_lookup.Find(suffix);
        const auto unit = std::find_if(units.begin(), units.end(), isWanted);
        if (unit != units.end())
            m_lastSuffix.unit = MakeUnitOf(*unit);
    }
    return m_lastSuffix.unit ? &*m_lastSuffix.unit : nullptr;
}

double QuantityReader::ToSi(const CVeUnitBase& unit, double value) const
{
    unit.Double2SI(value, 0);
    if (m_settings.metricsFactor == 1.0)
        return value;
    return value * std::pow(m_settings.metricsFactor, unit.GetExponent());
}

std::string QuantityReader::DescribeExpectation() const
{
    const std::string example = m_settings.separator == '.' ? "12.5" : std::string("12") + m_settings.separator + "5";
    if (m_readsMarksOnly)
        return "expected feet and inches such as 3'-4 1/2\"";
    const std::string feetAndInches = m_readsFeetAndInches ? ", or feet and inches such as 3'-4 1/2\"" : "";
    const std::string symbol = ToUtf8(MakeUnitOf(m_measure).GetName().GetString());
    if (!m_unit)
        return "expected a number with a unit of " + DescribeMeasure(m_measure.id, m_measure.exponent) + " such as " +
               example + " " + symbol + feetAndInches;
    const std::string unit = symbol.empty() ? "" : " or " + example + " " + symbol;
    return "expected a number such as " + example + unit + feetAndInches;
}
