#include "vetools/framework/WideFormat.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string_view>

#include "vetools/framework/CException.h"
#include "vetools/framework/NumberWriter.h"
#include "vetools/platform/Platform.h"

namespace
{

/// Widths and precisions end here, so that a text stays in proportion to its format.
constexpr int c_sizeLimit = 65535;
constexpr int c_unlimited = std::numeric_limits<int>::max();
constexpr int c_defaultPrecision = 6;
/// More decimals of a double are all zero, in whichever notation.
constexpr int c_exactDecimals = 1074;
constexpr int c_pointerDigits = 16;
constexpr std::size_t c_numberCapacity =
    std::max(FixedTextCapacity(c_exactDecimals), ExponentTextCapacity(c_exactDecimals));

enum class ArgumentSize
{
    Standard,
    Short,
    Long,
    Wide64,
};

/// One conversion of a format, read.
struct Conversion
{
    bool left = false;
    bool zeros = false;
    bool plus = false;
    bool blank = false;
    bool alternate = false;
    bool complete = true;  ///< false when an argument that it asks for by * was not to be had
    int width = 0;
    int precision = -1;  ///< negative: not given
    ArgumentSize size = ArgumentSize::Standard;
    wchar_t letter = L'\0';
};

// ------------------------------------------------------------------------------------------------ arguments

/// Hands out the arguments one after the other. What is not there, or of another kind, is an empty result.
class ArgumentSource
{
public:
    virtual std::optional<std::int64_t> TakeInteger(ArgumentSize size) = 0;
    virtual std::optional<double> TakeDouble() = 0;
    virtual std::optional<const wchar_t*> TakeWideText() = 0;
    virtual std::optional<const char*> TakeNarrowText() = 0;
    virtual std::optional<const void*> TakePointer() = 0;

protected:
    ~ArgumentSource() = default;
};

class KnownArguments final : public ArgumentSource
{
public:
    explicit KnownArguments(std::span<const FormatArgument> arguments)
        : m_arguments(arguments)
    {
    }

    std::optional<std::int64_t> TakeInteger(ArgumentSize) override { return Take<std::int64_t>(); }
    std::optional<double> TakeDouble() override { return Take<double>(); }
    std::optional<const wchar_t*> TakeWideText() override { return Take<const wchar_t*>(); }
    std::optional<const char*> TakeNarrowText() override { return Take<const char*>(); }
    std::optional<const void*> TakePointer() override { return Take<const void*>(); }

private:
    template <typename Kind>
    std::optional<Kind> Take()
    {
        if (m_arguments.empty())
            return std::nullopt;
        const Kind* const argument = std::get_if<Kind>(&m_arguments.front());
        m_arguments = m_arguments.subspan(1);
        return argument != nullptr ? std::optional<Kind>(*argument) : std::nullopt;
    }

    std::span<const FormatArgument> m_arguments;
};

class VariableArguments final : public ArgumentSource
{
public:
    explicit VariableArguments(va_list arguments) { va_copy(m_arguments, arguments); }
    VariableArguments(const VariableArguments&) = delete;
    VariableArguments& operator=(const VariableArguments&) = delete;
    ~VariableArguments() { va_end(m_arguments); }

    std::optional<std::int64_t> TakeInteger(ArgumentSize size) override
    {
        if (size == ArgumentSize::Wide64)
            return va_arg(m_arguments, long long);
        if (size == ArgumentSize::Long)
            return va_arg(m_arguments, long);
        return va_arg(m_arguments, int);
    }
    std::optional<double> TakeDouble() override { return va_arg(m_arguments, double); }
    std::optional<const wchar_t*> TakeWideText() override { return va_arg(m_arguments, const wchar_t*); }
    std::optional<const char*> TakeNarrowText() override { return va_arg(m_arguments, const char*); }
    std::optional<const void*> TakePointer() override { return va_arg(m_arguments, const void*); }

private:
    va_list m_arguments;
};

// ------------------------------------------------------------------------------------------------ reading a conversion

/// Reads a conversion behind its per cent sign.
class ConversionReader
{
public:
    ConversionReader(const wchar_t* position, ArgumentSource& arguments)
        : m_position(position)
        , m_arguments(arguments)
    {
    }

    /// Nothing when the format ends before the conversion does.
    std::optional<Conversion> Read()
    {
        while (ConsumeFlag())
            continue;
        ReadWidth();
        ReadPrecision();
        while (ConsumeSize())
            continue;
        m_conversion.letter = *m_position;
        if (m_conversion.letter == L'\0')
            return std::nullopt;
        ++m_position;
        return m_conversion;
    }

    const wchar_t* Position() const { return m_position; }

private:
    bool Consume(wchar_t character)
    {
        const bool found = *m_position == character;
        m_position += found ? 1 : 0;
        return found;
    }

    /// Two characters, or neither.
    bool Consume(wchar_t first, wchar_t second)
    {
        const bool found = m_position[0] == first && m_position[1] == second;
        m_position += found ? 2 : 0;
        return found;
    }

    bool ConsumeFlag()
    {
        switch (*m_position)
        {
        case L'-':
            m_conversion.left = true;
            break;
        case L'0':
            m_conversion.zeros = true;
            break;
        case L'+':
            m_conversion.plus = true;
            break;
        case L' ':
            m_conversion.blank = true;
            break;
        case L'#':
            m_conversion.alternate = true;
            break;
        default:
            return false;
        }
        ++m_position;
        return true;
    }

    bool ConsumeSize()
    {
        const std::optional<ArgumentSize> size = SizeOf(*m_position);
        if (!size)
            return false;
        m_conversion.size = *size;
        const wchar_t letter = *m_position++;
        if (letter == L'l' && Consume(L'l'))
            m_conversion.size = ArgumentSize::Wide64;
        if (letter == L'I' && !Consume(L'6', L'4') && Consume(L'3', L'2'))
            m_conversion.size = ArgumentSize::Standard;
        return true;
    }

    /// What a letter says of the size, unless more follows it.
    static std::optional<ArgumentSize> SizeOf(wchar_t letter)
    {
        switch (letter)
        {
        case L'h':
            return ArgumentSize::Short;
        case L'l':
        case L'w':
            return ArgumentSize::Long;
        case L'L':
            return ArgumentSize::Standard;
        case L'I':
        case L'z':
        case L'j':
        case L't':
            return ArgumentSize::Wide64;
        default:
            return std::nullopt;
        }
    }

    void ReadWidth()
    {
        const int width = ReadNumber();
        m_conversion.left = m_conversion.left || width < 0;
        m_conversion.width = std::abs(width);
    }

    void ReadPrecision()
    {
        if (Consume(L'.'))
            m_conversion.precision = ReadNumber();
    }

    /// Digits, or * for the next argument; within plus and minus c_sizeLimit, and 0 when neither stands there.
    int ReadNumber()
    {
        if (Consume(L'*'))
        {
            const std::optional<std::int64_t> number = m_arguments.TakeInteger(ArgumentSize::Standard);
            m_conversion.complete = m_conversion.complete && number.has_value();
            return static_cast<int>(std::clamp<std::int64_t>(number.value_or(0), -c_sizeLimit, c_sizeLimit));
        }
        int number = 0;
        for (; *m_position >= L'0' && *m_position <= L'9'; ++m_position)
            number = std::min(number * 10 + static_cast<int>(*m_position - L'0'), c_sizeLimit);
        return number;
    }

    const wchar_t* m_position;
    ArgumentSource& m_arguments;
    Conversion m_conversion;
};

// ------------------------------------------------------------------------------------------------ writing

/// A converted number in the order in which its parts are written. Zeros that a precision asks for are counted, not held.
struct NumberParts
{
    wchar_t prefix[3] = {};  ///< a sign, 0x, or both
    std::size_t prefixLength = 0;
    std::size_t zerosBefore = 0;
    std::wstring_view digits;
    bool point = false;
    std::size_t zerosBehind = 0;
    std::wstring_view exponent;

    void AppendPrefix(wchar_t character) { prefix[prefixLength++] = character; }
    std::wstring_view Prefix() const { return {prefix, prefixLength}; }
    std::size_t Length() const
    {
        return prefixLength + zerosBefore + digits.size() + (point ? 1 : 0) + zerosBehind + exponent.size();
    }
};

/// Lengthens a text by `count` characters and returns where they begin.
wchar_t* Extend(CString& out, std::size_t count)
{
    const int length = out.GetLength();
    const std::size_t longer = static_cast<std::size_t>(length) + count;
    if (longer > INT_MAX)
        AfxThrowMemoryException();
    return out.GetBufferSetLength(static_cast<int>(longer)) + length;
}

wchar_t* Write(wchar_t* out, std::wstring_view text)
{
    return std::copy(text.begin(), text.end(), out);
}

std::size_t Missing(const Conversion& conversion, std::size_t length)
{
    const auto width = static_cast<std::size_t>(conversion.width);
    return width > length ? width - length : 0;
}

/// Pads with blanks in front or behind, with zeros in front: "   abc", "abc   ", "000abc".
void WritePadded(CString& out, const Conversion& conversion, std::wstring_view text)
{
    const std::size_t missing = Missing(conversion, text.size());
    wchar_t* end = Extend(out, text.size() + missing);
    if (!conversion.left)
        end = std::fill_n(end, missing, conversion.zeros ? L'0' : L' ');
    end = Write(end, text);
    if (conversion.left)
        std::fill_n(end, missing, L' ');
}

/// The same for a number, where padding zeros follow the sign.
void WritePadded(CString& out, const Conversion& conversion, NumberParts number)
{
    const std::size_t missing = Missing(conversion, number.Length());
    wchar_t* end = Extend(out, number.Length() + missing);
    if (!conversion.left && conversion.zeros)
        number.zerosBefore += missing;
    else if (!conversion.left)
        end = std::fill_n(end, missing, L' ');
    end = Write(end, number.Prefix());
    end = std::fill_n(end, number.zerosBefore, L'0');
    end = Write(end, number.digits);
    if (number.point)
        *end++ = L'.';
    end = std::fill_n(end, number.zerosBehind, L'0');
    end = Write(end, number.exponent);
    if (conversion.left)
        std::fill_n(end, missing, L' ');
}

// ------------------------------------------------------------------------------------------------ integers

/// The value of the argument's own bits, as a signed or an unsigned number of its size.
std::uint64_t Extend(std::int64_t value, ArgumentSize size, bool isSigned)
{
    switch (size)
    {
    case ArgumentSize::Wide64:
        return static_cast<std::uint64_t>(value);
    case ArgumentSize::Short:
        return isSigned ? static_cast<std::uint64_t>(static_cast<std::int16_t>(value))
                        : static_cast<std::uint16_t>(value);
    case ArgumentSize::Standard:
    case ArgumentSize::Long:
        break;
    }
    return isSigned ? static_cast<std::uint64_t>(static_cast<std::int32_t>(value)) : static_cast<std::uint32_t>(value);
}

/// Writes the digits, none for 0, so that they end at `end`; returns the first.
wchar_t* WriteDigitsBefore(wchar_t* end, std::uint64_t value, unsigned int base, bool upper)
{
    const wchar_t* const digits = upper ? L"0123456789ABCDEF" : L"0123456789abcdef";
    for (; value != 0; value /= base)
        *--end = digits[value % base];
    return end;
}

void WriteSign(NumberParts& number, const Conversion& conversion, bool negative)
{
    if (negative)
        number.AppendPrefix(L'-');
    else if (conversion.plus)
        number.AppendPrefix(L'+');
    else if (conversion.blank)
        number.AppendPrefix(L' ');
}

void WriteWhole(CString& out, Conversion conversion, std::int64_t argument)
{
    constexpr std::size_t c_octalDigits = 22;
    const wchar_t letter = conversion.letter;
    const bool isSigned = letter == L'd' || letter == L'i';
    const bool isHexadecimal = letter == L'x' || letter == L'X' || letter == L'p';
    const unsigned int base = isHexadecimal ? 16 : letter == L'o' ? 8 : 10;
    const bool upper = letter == L'X' || letter == L'p';

    std::uint64_t value = Extend(argument, conversion.size, isSigned);
    NumberParts number;
    if (isSigned)
    {
        const bool negative = static_cast<std::int64_t>(value) < 0;
        WriteSign(number, conversion, negative);
        value = negative ? 0 - value : value;
    }
    if (conversion.alternate && isHexadecimal && value != 0)
    {
        number.AppendPrefix(L'0');
        number.AppendPrefix(upper ? L'X' : L'x');
    }

    wchar_t text[c_octalDigits];
    wchar_t* const end = text + c_octalDigits;
    const wchar_t* const start = WriteDigitsBefore(end, value, base, upper);
    number.digits = {start, static_cast<std::size_t>(end - start)};

    // A precision is the least number of digits, and takes the meaning of the flag 0.
    conversion.zeros = conversion.zeros && conversion.precision < 0;
    const auto least = static_cast<std::size_t>(conversion.precision < 0 ? 1 : conversion.precision);
    number.zerosBefore = least > number.digits.size() ? least - number.digits.size() : 0;
    if (conversion.alternate && base == 8 && number.zerosBefore == 0)
        number.zerosBefore = 1;
    WritePadded(out, conversion, number);
}

// ------------------------------------------------------------------------------------------------ doubles

bool IsUpper(const Conversion& conversion)
{
    return conversion.letter >= L'A' && conversion.letter <= L'Z';
}

/// Sets the digits to what stands between `start` and `end`, and the exponent to what follows its letter.
void SplitAtExponent(NumberParts& number, wchar_t* start, wchar_t* end, bool upper)
{
    wchar_t* const letter = std::find(start, end, L'e');
    if (letter != end && upper)
        *letter = L'E';
    number.digits = {start, static_cast<std::size_t>(letter - start)};
    number.exponent = {letter, static_cast<std::size_t>(end - letter)};
}

/// %f, %e: zeros behind the last exact decimal are only counted.
void ConvertDecimals(NumberParts& number, wchar_t* text, const Conversion& conversion, double value, bool fixed)
{
    const int precision = conversion.precision < 0 ? c_defaultPrecision : conversion.precision;
    const int written = std::min(precision, c_exactDecimals);
    wchar_t* const end = fixed ? WriteFixed(text, value, written) : WriteExponent(text, value, written);
    SplitAtExponent(number, text, end, IsUpper(conversion));
    number.zerosBehind = static_cast<std::size_t>(precision - written);
    number.point = conversion.alternate && precision == 0 && std::isfinite(value);
}

/// The exponent of a text such as 1.25e-07.
int ReadExponent(const wchar_t* start, const wchar_t* end)
{
    const wchar_t* position = std::find(start, end, L'e') + 1;
    const bool negative = *position++ == L'-';
    int exponent = 0;
    for (; position != end; ++position)
        exponent = exponent * 10 + static_cast<int>(*position - L'0');
    return negative ? -exponent : exponent;
}

/// 1.500 -> 1.5, 2.000 -> 2, 100 stays.
std::wstring_view WithoutTrailingZeros(std::wstring_view digits)
{
    if (digits.find(L'.') == std::wstring_view::npos)
        return digits;
    digits = digits.substr(0, digits.find_last_not_of(L'0') + 1);
    return digits.back() == L'.' ? digits.substr(0, digits.size() - 1) : digits;
}

/// %g: significant digits, in the shorter notation, without trailing zeros unless # keeps them.
void ConvertGeneral(NumberParts& number, wchar_t* text, Conversion conversion, double value)
{
    // Not-a-numbers and infinities are cut at the significant digits asked for, where 0 means all of them.
    const int asked = conversion.precision < 0 ? c_defaultPrecision : conversion.precision;
    bool fixed = !std::isfinite(value);
    if (fixed)
    {
        conversion.precision = asked - 1;
        conversion.alternate = false;
    }
    else
    {
        const int significant = std::max(asked, 1);
        const wchar_t* const end = WriteExponent(text, value, std::min(significant - 1, c_exactDecimals));
        const int exponent = ReadExponent(text, end);
        fixed = exponent >= -4 && exponent < significant;
        conversion.precision = fixed ? significant - 1 - exponent : significant - 1;
    }
    ConvertDecimals(number, text, conversion, value, fixed);
    if (conversion.alternate)
        return;
    number.digits = WithoutTrailingZeros(number.digits);
    number.zerosBehind = 0;
}

/// The mantissa of a finite double as one hexadecimal digit, a point and as many as `precision` says, up to 13; an exact half
/// goes to the even digit. Returns the end, and the exponent of two.
wchar_t* WriteMantissa(wchar_t* out, double magnitude, int precision, bool upper, int& exponent)
{
    constexpr int c_mantissaBits = 52;
    constexpr int c_bias = 1023;
    const auto bits = std::bit_cast<std::uint64_t>(magnitude);
    const int field = static_cast<int>(bits >> c_mantissaBits);
    std::uint64_t mantissa = bits & ((std::uint64_t{1} << c_mantissaBits) - 1);
    mantissa |= static_cast<std::uint64_t>(field != 0 ? 1 : 0) << c_mantissaBits;
    exponent = bits == 0 ? 0 : std::max(field, 1) - c_bias;

    const int dropped = c_mantissaBits - 4 * precision;
    if (dropped > 0)
    {
        const std::uint64_t half = std::uint64_t{1} << (dropped - 1);
        const std::uint64_t rest = mantissa & (2 * half - 1);
        mantissa >>= dropped;
        if (rest > half || (rest == half && (mantissa & 1) != 0))
            ++mantissa;
    }

    const int fractionBits = 4 * precision;
    *out++ = static_cast<wchar_t>(L'0' + (mantissa >> fractionBits));
    if (precision == 0)
        return out;
    *out++ = L'.';
    std::fill_n(out, precision, L'0');
    WriteDigitsBefore(out + precision, mantissa & ((std::uint64_t{1} << fractionBits) - 1), 16, upper);
    return out + precision;
}

/// %a: the mantissa in hexadecimal, the exponent of two in decimal.
void ConvertHexadecimal(NumberParts& number, wchar_t* text, const Conversion& conversion, double value)
{
    constexpr int c_hexadecimals = 13;
    const bool upper = IsUpper(conversion);
    const int precision = conversion.precision < 0 ? c_hexadecimals : conversion.precision;
    const int written = std::min(precision, c_hexadecimals);

    int exponent = 0;
    wchar_t* end = std::isfinite(value) ? WriteMantissa(text, std::fabs(value), written, upper, exponent)
                                        : WriteFixed(text, value, written);
    number.AppendPrefix(L'0');
    number.AppendPrefix(upper ? L'X' : L'x');
    number.digits = {text, static_cast<std::size_t>(end - text)};
    number.point = conversion.alternate && precision == 0 && std::isfinite(value);
    number.zerosBehind = static_cast<std::size_t>(precision - written);

    wchar_t* const letter = end;
    *end++ = upper ? L'P' : L'p';
    *end++ = exponent < 0 ? L'-' : L'+';
    end = WriteInteger(end, std::abs(exponent));
    number.exponent = {letter, static_cast<std::size_t>(end - letter)};
}

void WriteDouble(CString& out, Conversion conversion, double value)
{
    wchar_t text[c_numberCapacity];
    NumberParts number;
    WriteSign(number, conversion, std::signbit(value));
    switch (conversion.letter)
    {
    case L'a':
    case L'A':
        ConvertHexadecimal(number, text, conversion, value);
        break;
    case L'g':
    case L'G':
        ConvertGeneral(number, text, conversion, value);
        break;
    default:
        ConvertDecimals(number, text, conversion, value, conversion.letter == L'f' || conversion.letter == L'F');
        break;
    }
    // The sign stands in the prefix, since zeros may follow it.
    if (number.digits.front() == L'-')
        number.digits.remove_prefix(1);
    WritePadded(out, conversion, number);
}

// ------------------------------------------------------------------------------------------------ texts

constexpr std::wstring_view c_nullText = L"(null)";

int TextLimit(const Conversion& conversion)
{
    return conversion.precision < 0 ? c_unlimited : conversion.precision;
}

void WriteWideText(CString& out, Conversion conversion, const wchar_t* text)
{
    const auto limit = static_cast<std::size_t>(TextLimit(conversion));
    if (text == nullptr)
        return WritePadded(out, conversion, c_nullText.substr(0, limit));
    std::size_t length = 0;
    while (length < limit && text[length] != L'\0')
        ++length;
    WritePadded(out, conversion, {text, length});
}

/// A narrow text as wide text. `length` counts bytes.
CString Widen(const char* text, int length)
{
    CString wide;
    const int wideLength = length > 0 ? ::MultiByteToWideChar(CP_ACP, 0, text, length, nullptr, 0) : 0;
    if (wideLength == 0)
        return wide;
    ::MultiByteToWideChar(CP_ACP, 0, text, length, wide.GetBufferSetLength(wideLength), wideLength);
    return wide;
}

void WriteNarrowText(CString& out, Conversion conversion, const char* text)
{
    const int limit = TextLimit(conversion);
    if (text == nullptr)
        return WritePadded(out, conversion, c_nullText.substr(0, static_cast<std::size_t>(limit)));
    int length = 0;
    while (length < limit && text[length] != '\0')
        ++length;
    WritePadded(out, conversion, Widen(text, length).View());
}

/// c and s are wide, C and S narrow, unless the size says which.
bool IsWide(const Conversion& conversion)
{
    if (conversion.size == ArgumentSize::Short)
        return false;
    return conversion.size == ArgumentSize::Long || conversion.letter == L'c' || conversion.letter == L's';
}

void WriteCharacter(CString& out, Conversion conversion, std::int64_t argument)
{
    const auto wide = static_cast<wchar_t>(argument);
    if (IsWide(conversion))
        return WritePadded(out, conversion, {&wide, 1});
    const auto narrow = static_cast<char>(argument);
    WritePadded(out, conversion, Widen(&narrow, 1).View());
}

// ------------------------------------------------------------------------------------------------ conversions

void WritePointer(CString& out, Conversion conversion, const void* pointer)
{
    conversion.precision = c_pointerDigits;
    conversion.size = ArgumentSize::Wide64;
    WriteWhole(out, conversion, static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(pointer)));
}

/// Passes the argument on to the function that writes it, unless something is missing.
template <typename Argument>
void WriteArgument(CString& out, const Conversion& conversion, std::optional<Argument> argument,
                   void (*write)(CString&, Conversion, Argument))
{
    if (argument.has_value() && conversion.complete)
        write(out, conversion, *argument);
}

void WriteConversion(CString& out, const Conversion& conversion, ArgumentSource& arguments)
{
    switch (conversion.letter)
    {
    case L'd':
    case L'i':
    case L'u':
    case L'o':
    case L'x':
    case L'X':
        return WriteArgument(out, conversion, arguments.TakeInteger(conversion.size), WriteWhole);
    case L'f':
    case L'F':
    case L'e':
    case L'E':
    case L'g':
    case L'G':
    case L'a':
    case L'A':
        return WriteArgument(out, conversion, arguments.TakeDouble(), WriteDouble);
    case L'c':
    case L'C':
        return WriteArgument(out, conversion, arguments.TakeInteger(ArgumentSize::Standard), WriteCharacter);
    case L's':
    case L'S':
        if (IsWide(conversion))
            return WriteArgument(out, conversion, arguments.TakeWideText(), WriteWideText);
        return WriteArgument(out, conversion, arguments.TakeNarrowText(), WriteNarrowText);
    case L'p':
        return WriteArgument(out, conversion, arguments.TakePointer(), WritePointer);
    case L'n':
        arguments.TakePointer();
        return;
    default:
        out.AppendChar(conversion.letter);
        return;
    }
}

/// %d and %s as they stand, of which most formats consist. False for any other letter behind the per cent sign.
bool WritePlain(CString& out, wchar_t letter, ArgumentSource& arguments)
{
    if (letter == L's')
    {
        if (const std::optional<const wchar_t*> text = arguments.TakeWideText())
            out += *text != nullptr ? *text : c_nullText.data();
        return true;
    }
    if (letter == L'd')
    {
        wchar_t digits[c_integerTextCapacity];
        if (const std::optional<std::int64_t> value = arguments.TakeInteger(ArgumentSize::Standard))
            out.Append(digits, static_cast<int>(WriteInteger(digits, static_cast<int>(*value)) - digits));
        return true;
    }
    return false;
}

void WriteFormat(CString& out, const wchar_t* format, ArgumentSource& arguments)
{
    while (true)
    {
        const wchar_t* const start = format;
        while (*format != L'\0' && *format != L'%')
            ++format;
        out.Append(start, static_cast<int>(format - start));
        if (*format == L'\0')
            return;
        if (WritePlain(out, format[1], arguments))
        {
            format += 2;
            continue;
        }

        ConversionReader reader(format + 1, arguments);
        const std::optional<Conversion> conversion = reader.Read();
        if (!conversion)
            return;
        WriteConversion(out, *conversion, arguments);
        format = reader.Position();
    }
}

}  // namespace

void AppendFormatted(CString& out, const wchar_t* format, std::span<const FormatArgument> arguments)
{
    KnownArguments source(arguments);
    WriteFormat(out, format, source);
}

void AppendFormattedV(CString& out, const wchar_t* format, va_list arguments)
{
    VariableArguments source(arguments);
    WriteFormat(out, format, source);
}
