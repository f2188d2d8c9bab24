#include "cli/StyleCheck.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <map>
#include <optional>

#include "cli/Quantities.h"
#include "cli/StyleFile.h"
#include "cli/UnitLookup.h"
#include "cli/Utf8.h"

namespace
{

using Bytes = std::span<const std::byte>;

// A text in its field.
struct FieldText
{
    std::u16string units;  // up to the zero
    std::size_t byte = 0;  // of the field, in the file
    std::size_t size = 0;  // of the field
    bool isTerminated = false;

    std::size_t ByteOf(std::size_t index) const { return byte + 2 * std::min(index, size / 2 - 1); }

    // The byte of a character that does not belong into a number: the second one when the first could.
    std::size_t BadByteOf(std::size_t index) const
    {
        const char16_t unit = index < units.size() ? units[index] : u'\0';
        const bool isHighByte = unit > 0xFF && std::u16string_view(u"\0+-.0123456789Ee", 16).find(unit & 0xFF) != npos;
        return ByteOf(index) + (isHighByte ? 1 : 0);
    }

    static constexpr std::size_t npos = std::u16string_view::npos;
};

char16_t UnitAt(Bytes field, std::size_t index)
{
    return static_cast<char16_t>(std::to_integer<unsigned int>(field[2 * index]) |
                                 std::to_integer<unsigned int>(field[2 * index + 1]) << 8);
}

FieldText ReadField(Bytes bytes, std::size_t byte, std::size_t size)
{
    FieldText text{{}, byte, size, false};
    const Bytes field = bytes.subspan(byte, size);
    for (std::size_t index = 0; index < size / 2; ++index)
    {
        const char16_t unit = UnitAt(field, index);
        text.isTerminated = unit == 0;
        if (text.isTerminated)
            break;
        text.units.push_back(unit);
    }
    return text;
}

std::string Quote(std::u16string_view units)
{
    std::wstring wide;
    for (std::size_t index = 0; index < units.size(); ++index)
    {
        const bool isPair = sizeof(wchar_t) == 4 && index + 1 < units.size() && (units[index] & 0xFC00) == 0xD800 &&
                            (units[index + 1] & 0xFC00) == 0xDC00;
        if (!isPair)
        {
            wide.push_back(static_cast<wchar_t>(units[index]));
            continue;
        }
        wide.push_back(static_cast<wchar_t>(0x10000 + ((units[index] & 0x3FF) << 10) + (units[index + 1] & 0x3FF)));
        ++index;
    }
    return "“" + ShowText(ToUtf8(wide)) + "”";
}

// The ASCII form, with a zero for every other character, which no number holds.
std::string Narrow(std::u16string_view units)
{
    std::string narrow;
    for (const char16_t unit : units)
        narrow.push_back(unit < 0x80 ? static_cast<char>(unit) : '\0');
    return narrow;
}

// A number that is all of a text, or the index of the first character that keeps it from being one.
template <typename Number>
struct NumberReading
{
    std::optional<Number> value;
    std::size_t badIndex = 0;
};

template <typename Number>
NumberReading<Number> ReadWholeText(std::u16string_view units)
{
    const std::string text = Narrow(units);
    Number number{};
    const char* const end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, number);
    if (result.ec == std::errc() && result.ptr == end)
        return {number, 0};
    // A number too large is bad as a whole.
    const bool isTooLarge = result.ec == std::errc::result_out_of_range;
    return {std::nullopt, isTooLarge ? 0 : static_cast<std::size_t>(result.ptr - text.data())};
}

NumberReading<double> ReadCoefficient(std::u16string units, char16_t separator)
{
    std::replace(units.begin(), units.end(), separator, u'.');
    NumberReading<double> reading = ReadWholeText<double>(units);
    if (reading.value && !std::isfinite(*reading.value))
        return {};
    return reading;
}

// The version as the library reads it: the number in front, 0 when there is none.
int ReadVersion(std::u16string_view units)
{
    const std::string text = Narrow(units);
    const std::size_t begin = std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size());
    int version = 0;
    std::from_chars(text.data() + begin, text.data() + text.size(), version);
    return version;
}

std::u16string ToUtf16(unsigned int number)
{
    const std::string text = std::to_string(number);
    return {text.begin(), text.end()};
}

// A record whose fields are all there.
class Record
{
public:
    Record(Bytes bytes, std::size_t begin, int version)
    {
        for (const StyleFieldRow& row : c_styleFields)
        {
            if (version < row.firstVersion)
                continue;
            m_texts[static_cast<std::size_t>(row.field)] = ReadField(bytes, begin, row.size);
            begin += row.size;
        }
    }

    const FieldText& operator[](StyleField field) const { return m_texts[static_cast<std::size_t>(field)]; }

    std::optional<int> Number(StyleField field) const { return ReadWholeText<int>((*this)[field].units).value; }

    char16_t Separator() const
    {
        const std::u16string& units = (*this)[StyleField::Separator].units;
        return units.empty() ? u'.' : units.front();
    }

    std::optional<double> Coefficient() const
    {
        return ReadCoefficient((*this)[StyleField::Coefficient].units, Separator()).value;
    }

private:
    std::array<FieldText, std::size(c_styleFields)> m_texts;
};

// What the catalogue decides in a record.
constexpr StyleField c_catalogueFields[] = {StyleField::Range, StyleField::Format, StyleField::Title,
                                            StyleField::Symbol, StyleField::Coefficient};

bool Agrees(const Record& found, const Record& expected, StyleField field)
{
    if (field == StyleField::Title || field == StyleField::Symbol)
        return found[field].units == expected[field].units;
    if (field == StyleField::Coefficient)
        return found.Coefficient() == expected.Coefficient();
    return found.Number(field) == expected.Number(field);
}

std::size_t CountDifferences(const Record& found, const Record& expected)
{
    return static_cast<std::size_t>(std::count_if(std::begin(c_catalogueFields), std::end(c_catalogueFields),
                                                  [&](StyleField field) { return !Agrees(found, expected, field); }));
}

Record MakeExpected(unsigned int id, unsigned int range)
{
    return Record(MakeStyleRecord(CVeUnitBase(id, range, 0, L'.', 1.0, 0)), 0, c_styleVersion);
}

bool IsInCatalogue(unsigned int id, unsigned int range)
{
    const std::vector<unsigned int> ranges = RangesOf(id);
    return std::find(ranges.begin(), ranges.end(), range) != ranges.end();
}

// What the library writes of the unit that a record means, or seems to mean.
struct Meaning
{
    UnitChoice unit;
    Record expected;
    std::size_t differences;
};

// The unit that differs least from the record; the one that the record names when none is nearer.
Meaning FindMeaning(const Record& found, unsigned int expectedId)
{
    const auto measure = [&](unsigned int id, unsigned int range)
    {
        const Record expected = MakeExpected(id, range);
        return Meaning{{id, range, 1}, expected, CountDifferences(found, expected)};
    };
    const unsigned int range = static_cast<unsigned int>(found.Number(StyleField::Range).value_or(-1));
    Meaning nearest = measure(expectedId, range);
    if (nearest.differences == 0)
        return nearest;
    std::vector<unsigned int> ids = {expectedId};
    const std::optional<int> foundId = found.Number(StyleField::UnitId);
    if (foundId && QuantityById(static_cast<unsigned int>(*foundId)))
        ids.push_back(static_cast<unsigned int>(*foundId));
    for (const unsigned int id : ids)
        for (const unsigned int each : RangesOf(id))
        {
            Meaning candidate = measure(id, each);
            if (candidate.differences < nearest.differences)
                nearest = std::move(candidate);
        }
    return nearest;
}

// The first byte in which two texts differ, their zeros included.
std::size_t FirstDifference(const FieldText& found, std::u16string_view expected)
{
    const auto unitOf = [](std::u16string_view text, std::size_t index)
    {
        return index < text.size() ? text[index] : u'\0';
    };
    std::size_t index = 0;
    while (index < found.units.size() && unitOf(found.units, index) == unitOf(expected, index))
        ++index;
    const bool isHighByte = (unitOf(found.units, index) & 0xFF) == (unitOf(expected, index) & 0xFF);
    return found.ByteOf(index) + (isHighByte ? 1 : 0);
}

// A decimal separator as a host may choose one: not what numbers are made of.
bool IsSeparator(char16_t unit)
{
    const bool isDigit = unit >= u'0' && unit <= u'9';
    const bool isLetter = (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
    const bool isSurrogate = unit >= 0xD800 && unit <= 0xDFFF;
    return unit > u' ' && unit != 0x7F && unit != u'+' && unit != u'-' && !isDigit && !isLetter && !isSurrogate;
}

bool IsUsualSeparator(char16_t unit)
{
    return unit == u'.' || unit == u',';
}

class StyleChecker
{
public:
    explicit StyleChecker(Bytes bytes)
        : m_bytes(bytes)
    {
    }

    StyleReport Check()
    {
        if (m_bytes.size() < c_styleHeaderSize)
        {
            Add(m_bytes.size(),
                m_bytes.empty() ? "the file is empty" : "the file ends in the header, which has 40 bytes");
            return m_report;
        }
        CheckHeader();
        CheckRecords();
        CheckEnd();
        AddNoteOnPadding();
        std::stable_sort(m_report.findings.begin(), m_report.findings.end(),
                         [](const StyleFinding& left, const StyleFinding& right) { return left.byte < right.byte; });
        return m_report;
    }

private:
    void Add(std::size_t byte, std::string text) { AddTo(byte, {}, std::move(text)); }

    void AddTo(std::size_t byte, std::string field, std::string text)
    {
        m_report.findings.push_back({StyleFinding::Kind::Problem, byte, m_id, std::move(field), std::move(text)});
    }

    void AddTo(std::size_t byte, StyleField field, std::string text)
    {
        AddTo(byte, c_styleFields[static_cast<std::size_t>(field)].name, std::move(text));
    }

    void AddNote(std::size_t byte, std::string field, std::string text)
    {
        m_report.findings.push_back({StyleFinding::Kind::Note, byte, m_id, std::move(field), std::move(text)});
    }

    void CheckHeader()
    {
        const FieldText text = ReadField(m_bytes, 0, c_styleHeaderSize);
        CountPadding(text);
        const NumberReading<int> version = ReadWholeText<int>(text.units);
        m_report.version = ReadVersion(text.units);
        m_readAs = m_report.version;
        if (!text.isTerminated)
            Add(text.ByteOf(c_styleHeaderSize), "the version has no terminating zero");
        else if (!version.value)
            Add(text.BadByteOf(version.badIndex), "expected the version as a whole number, found " + Quote(text.units));
        else if (!IsStyleVersion(*version.value))
            Add(FirstDifference(text, u"1002"), "unknown version " + Quote(text.units) +
                                                    ": expected 1000, 1001 or 1002, or 1012 "
                                                    "and above");
        else if (!FitsRecordSize(*version.value))
            Add(FirstDifference(text, ToUtf16(*VersionOfSize())),
                "version " + Quote(text.units) + " means records of " +
                    std::to_string(StyleRecordSize(*version.value)) + " bytes, but the size of " +
                    std::to_string(m_bytes.size()) + " bytes is that of version " + std::to_string(*VersionOfSize()));
        else
            return ChooseLoader();
        m_readAs = VersionOfSize().value_or(c_styleVersion);
        ChooseLoader();
    }

    // The version that files of this size have.
    std::optional<int> VersionOfSize() const
    {
        for (const int version : {1002, 1001, 1000, 1012})
            for (const StyleLoader loader : {StyleLoader::Named, StyleLoader::Unnamed})
                if (StyleFileSize(version, loader) == m_bytes.size())
                    return version;
        return std::nullopt;
    }

    bool FitsRecordSize(int version) const
    {
        const std::optional<int> other = VersionOfSize();
        return !other || StyleRecordSize(*other) == StyleRecordSize(version);
    }

    // The oldest files follow one loader or the other: the size tells, else the record that only one of them reads.
    void ChooseLoader()
    {
        const std::size_t named = StyleFileSize(m_readAs, StyleLoader::Named);
        const std::size_t unnamed = StyleFileSize(m_readAs, StyleLoader::Unnamed);
        if (named == unnamed || m_bytes.size() == named)
            return;
        constexpr std::size_t c_recordsBefore = 11;
        constexpr std::size_t c_idSize = c_styleFields[0].size;
        const std::size_t byte = c_styleHeaderSize + c_recordsBefore * StyleRecordSize(m_readAs);
        const bool has13 = byte + c_idSize <= m_bytes.size() && ReadField(m_bytes, byte, c_idSize).units == u"13";
        if (m_bytes.size() == unnamed || has13)
            m_report.loader = StyleLoader::Unnamed;
    }

    void CheckRecords()
    {
        const std::size_t size = StyleRecordSize(m_readAs);
        FindSeparator();
        m_next = c_styleHeaderSize;
        for (unsigned int id = 1; id <= c_unitCount; ++id)
        {
            if (!HasStyleRecord(id, m_readAs, m_report.loader))
                continue;
            m_id = id;
            if (m_next + size > m_bytes.size())
                return AddTruncation();
            CheckRecord(Record(m_bytes, m_next, m_readAs));
            ++m_report.records;
            m_next += size;
        }
        m_id = 0;
    }

    void AddTruncation()
    {
        const std::string expected = " of the " + std::to_string(StyleFileSize(m_readAs, m_report.loader)) +
                                     " bytes of version " + std::to_string(m_readAs);
        const std::size_t end = m_bytes.size();
        m_isTruncated = true;
        if (end == m_next)
            return Add(end, "the file ends before this record, after " + std::to_string(end) + expected);
        std::size_t byte = m_next;
        for (const StyleFieldRow& row : c_styleFields)
        {
            if (m_readAs < row.firstVersion)
                continue;
            byte += row.size;
            if (end < byte)
                return AddTo(end, row.name, "the file ends in this record, after " + std::to_string(end) + expected);
        }
    }

    void CheckEnd()
    {
        if (m_isTruncated || m_next == m_bytes.size())
            return;
        const std::size_t count = m_bytes.size() - m_next;
        const bool isCut = m_bytes.size() == StyleFile::c_mostBytes;
        std::string text = (isCut ? "more than " : "") + std::to_string(count) + (count == 1 ? " byte" : " bytes") +
                           " behind the last record: expected the " + std::to_string(m_next) + " bytes of version " +
                           std::to_string(m_readAs);
        const std::optional<int> other = VersionOfSize();
        if (other && *other != m_readAs)
            text += "; this is the size of version " + std::to_string(*other);
        Add(m_next, text);
    }

    void CheckRecord(const Record& record)
    {
        for (const StyleFieldRow& row : c_styleFields)
            if (m_readAs >= row.firstVersion)
                CheckForm(record[row.field], row.name);
        CheckId(record);
        for (const StyleField field : {StyleField::Range, StyleField::Precision, StyleField::Format})
            CheckNumber(record, field);
        CheckSeparator(record);
        CheckCoefficient(record);
        CheckMeaning(record);
    }

    void CheckForm(const FieldText& text, const char* name)
    {
        CountPadding(text);
        if (!text.isTerminated)
            AddTo(text.ByteOf(text.size), name, "no terminating zero");
    }

    // What is behind the zero.
    void CountPadding(const FieldText& text)
    {
        for (std::size_t byte = text.byte + 2 * text.units.size(); byte < text.byte + text.size; ++byte)
        {
            if (m_bytes[byte] == std::byte{0})
                continue;
            if (m_padding == 0)
                m_firstPadding = byte;
            ++m_padding;
        }
    }

    void CheckId(const Record& record)
    {
        const FieldText& text = record[StyleField::UnitId];
        const std::optional<int> id = record.Number(StyleField::UnitId);
        if (!id || *id == static_cast<int>(m_id))
            return CheckNumber(record, StyleField::UnitId);
        const bool isKnown = *id > 0 && QuantityById(static_cast<unsigned int>(*id));
        AddTo(FirstDifference(text, ToUtf16(m_id)), StyleField::UnitId,
              std::string(isKnown ? "" : "unknown ") + Quote(text.units) + ", expected “" + std::to_string(m_id) + "”");
    }

    void CheckNumber(const Record& record, StyleField field)
    {
        const FieldText& text = record[field];
        const NumberReading<int> reading = ReadWholeText<int>(text.units);
        if (!reading.value && text.isTerminated)
            AddTo(text.BadByteOf(reading.badIndex), field, "expected a whole number, found " + Quote(text.units));
    }

    void CheckSeparator(const Record& record)
    {
        const FieldText& text = record[StyleField::Separator];
        if (!text.isTerminated)
            return;
        const char16_t unit = text.units.empty() ? u'\0' : text.units.front();
        const bool isGood = IsUsualSeparator(unit) || (IsSeparator(unit) && unit == m_separator);
        if (!isGood)
            return AddTo(FirstDifference(text, {&m_separator, 1}), StyleField::Separator,
                         "expected a separator such as “.”, found " + Quote(text.units));
        if (text.units.size() > 1)
            return AddTo(FirstDifference(text, {&unit, 1}), StyleField::Separator,
                         "expected one character, found " + Quote(text.units));
        if (unit != m_separator)
            AddNote(text.byte, "separator",
                    Quote(text.units) + ", and " + Quote({&m_separator, 1}) + " in most records");
    }

    // The separator of most records; a host may choose an unusual one, but then it is everywhere.
    void FindSeparator()
    {
        const std::size_t size = StyleRecordSize(m_readAs);
        std::map<char16_t, int> counts;
        for (std::size_t byte = c_styleHeaderSize; byte + size <= m_bytes.size(); byte += size)
            ++counts[Record(m_bytes, byte, m_readAs).Separator()];
        const auto most =
            std::max_element(counts.begin(), counts.end(),
                             [](const auto& left, const auto& right) { return left.second < right.second; });
        if (most != counts.end() && IsSeparator(most->first))
            m_separator = most->first;
    }

    void CheckCoefficient(const Record& record)
    {
        const FieldText& text = record[StyleField::Coefficient];
        const NumberReading<double> reading = ReadCoefficient(text.units, record.Separator());
        if (!reading.value && text.isTerminated)
            AddTo(text.BadByteOf(reading.badIndex), StyleField::Coefficient,
                  "expected a number, found " + Quote(text.units));
    }

    void CheckMeaning(const Record& record)
    {
        const Meaning meaning = FindMeaning(record, m_id);
        if (!IsInCatalogue(meaning.unit.id, meaning.unit.range))
            return CheckUnknownRange(record, meaning);
        for (const StyleField field : c_catalogueFields)
            if (!Agrees(record, meaning.expected, field) && !IsNamed(field))
                AddTo(FirstDifference(record[field], meaning.expected[field].units), field,
                      Quote(record[field].units) + ", expected " + Quote(meaning.expected[field].units) +
                          " of the unit " + DescribeUnit(meaning.unit));
    }

    // A field that has a finding needs no second one.
    bool IsNamed(StyleField field) const
    {
        const char* const name = c_styleFields[static_cast<std::size_t>(field)].name;
        return std::any_of(m_report.findings.begin(), m_report.findings.end(),
                           [&](const StyleFinding& finding) {
                               return finding.kind == StyleFinding::Kind::Problem && finding.id == m_id &&
                                      finding.field == name;
                           });
    }

    // Such a unit has no texts of its own; the library itself has one among its defaults.
    void CheckUnknownRange(const Record& record, const Meaning& meaning)
    {
        const FieldText& text = record[StyleField::Range];
        const std::string what = Quote(text.units) + ", which unit id " + std::to_string(m_id) + " does not have";
        if (IsNamed(StyleField::Range))
            return;
        if (meaning.differences > 0)
            return AddTo(text.byte, StyleField::Range, "unknown " + what);
        AddNote(text.byte, "range", what + ": the unit has no symbol and no title, and the coefficient 1");
    }

    void AddNoteOnPadding()
    {
        if (m_padding > 0)
            AddNote(m_firstPadding, {},
                    "the first of " + std::to_string(m_padding) + (m_padding == 1 ? " byte" : " bytes") +
                        " behind the ends of texts, where nothing has a meaning, that are not zero");
    }

    Bytes m_bytes;
    StyleReport m_report;
    int m_readAs = c_styleVersion;  // the version whose records the bytes are taken for
    unsigned int m_id = 0;          // the record at hand
    std::size_t m_next = 0;         // its first byte
    bool m_isTruncated = false;
    char16_t m_separator = u'.';  // of most records
    std::size_t m_padding = 0;
    std::size_t m_firstPadding = 0;
};

}  // namespace

bool StyleReport::IsWhole() const
{
    return std::none_of(findings.begin(), findings.end(),
                        [](const StyleFinding& finding) { return finding.kind == StyleFinding::Kind::Problem; });
}

StyleReport CheckStyle(Bytes bytes)
{
    return StyleChecker(bytes).Check();
}
