#include "vetools/valuetext/ImperialParts.h"

#include <bit>

#include "vetools/framework/NumberText.h"
#include "vetools/util/TextCursor.h"

namespace
{

/// The denominators 1, 2, 4 ... 256.
constexpr unsigned int c_denominatorBits = 0x1FF;

/// How far the text has been read.
enum class State
{
    FirstNumber,
    AfterFeet,
    AfterInches,
    AfterNumerator,
    Closed,
};

/// Reads a text token by token. A token is a run of digits, possibly none, which counts as 0, and the character that ends
/// it; a member function per such character says what the number is.
class PartsReader
{
public:
    PartsReader(std::wstring_view text, FirstNumber first, ImperialParts& parts)
        : m_cursor(text)
        , m_first(first)
        , m_parts(parts)
    {
    }

    bool Read()
    {
        m_cursor.ConsumeBlanks();
        if (m_cursor.Consume(L'-'))
        {
            m_parts.positive = false;
            m_cursor.ConsumeBlanks();
        }
        while (m_ok && !m_cursor.AtEnd())
            ReadToken();
        // Kept: with a fraction, whatever else was wrong is forgotten.
        return m_fractionSeen ? AcceptDenominator() : m_ok;
    }

private:
    void ReadToken()
    {
        const std::wstring_view digits = m_cursor.ConsumeDigits();
        m_numberSeen = !digits.empty();
        m_number = m_numberSeen ? ReadInteger(digits) : 0;
        if (m_cursor.AtEnd())
            return EndAtEndOfText();
        switch (m_cursor.ConsumeCharacter())
        {
        case L' ':
            return EndAtBlank();
        case L'"':
            return EndAtInchMark();
        case L'\'':
            m_cursor.Consume(L'-');
            return EndAtFootMarkOrDash();
        case L'-':
            return EndAtFootMarkOrDash();
        case L'/':
            return EndAtSlash();
        default:
            m_ok = false;
        }
    }

    void EndAtEndOfText()
    {
        switch (m_state)
        {
        case State::FirstNumber:
            return TakeFirstNumber();
        case State::AfterFeet:
            m_parts.inches = m_number;
            return;
        case State::AfterNumerator:
            m_denominator = m_number;
            return;
        default:
            m_ok = false;
        }
    }

    void TakeFirstNumber()
    {
        if (m_first == FirstNumber::Feet)
            m_parts.feet = m_number;
        else if (m_first == FirstNumber::Inches)
            m_parts.inches = m_number;
        else
            m_ok = false;
    }

    void EndAtBlank()
    {
        m_cursor.ConsumeBlanks();
        switch (m_state)
        {
        case State::FirstNumber:
            if (m_first == FirstNumber::Feet)
                return EndFeetAtBlank();
            [[fallthrough]];
        case State::AfterFeet:
            m_parts.inches = m_number;
            m_state = State::AfterInches;
            return;
        case State::AfterInches:
            m_parts.numerator = m_number;
            m_state = State::AfterNumerator;
            return;
        case State::AfterNumerator:
            m_denominator = m_number;
            m_state = State::Closed;
            return;
        case State::Closed:
            m_ok = false;
        }
    }

    /// 3 4"   3 - 4", but not 3 -4"
    void EndFeetAtBlank()
    {
        m_parts.feet = m_number;
        m_state = State::AfterFeet;
        if (m_cursor.Consume(L'-'))
            m_ok = m_cursor.ConsumeBlanks();
    }

    void EndAtInchMark()
    {
        (m_fractionSeen ? m_denominator : m_parts.inches) = m_number;
        m_ok = m_state != State::Closed;
        m_inchesMarked = true;
        m_state = State::Closed;
    }

    void EndAtFootMarkOrDash()
    {
        if (m_state != State::FirstNumber || m_first != FirstNumber::Feet)
        {
            m_ok = false;
            return;
        }
        m_parts.feet = m_number;
        m_feetMarked = true;
        m_state = State::AfterFeet;
    }

    void EndAtSlash()
    {
        if (m_state >= State::AfterNumerator && m_numberSeen)
        {
            m_ok = false;
            return;
        }
        m_fractionSeen = true;
        if (m_state == State::AfterFeet && !m_feetMarked)
        {
            // 5 3/4: what a blank made feet were inches.
            m_parts.inches = m_parts.feet;
            m_parts.feet = 0;
        }
        if (m_numberSeen)
            m_parts.numerator = m_number;
        else
            TakeNumeratorFromInches();
        m_state = State::AfterNumerator;
    }

    /// The '/' stands alone, as in 5 /8: the number before the blank was the numerator.
    void TakeNumeratorFromInches()
    {
        if (m_state == State::AfterFeet && !m_feetMarked)
        {
            m_parts.numerator = m_parts.inches;
            m_parts.inches = 0;
        }
        else if (m_state == State::AfterInches)
        {
            m_parts.numerator = m_inchesMarked ? 0 : m_parts.inches;
            m_parts.inches = m_feetMarked ? 0 : m_parts.feet;
            m_parts.feet = 0;
        }
    }

    bool AcceptDenominator()
    {
        // Kept: higher bits are not looked at, so 514 counts as 2.
        const unsigned int denominator = static_cast<unsigned int>(m_denominator) & c_denominatorBits;
        if (!std::has_single_bit(denominator))
            return false;
        m_parts.denominatorPower = std::countr_zero(denominator);
        return true;
    }

    TextCursor m_cursor;
    const FirstNumber m_first;
    ImperialParts& m_parts;
    State m_state = State::FirstNumber;
    bool m_ok = true;
    int m_number = 0;
    bool m_numberSeen = false;
    int m_denominator = 0;
    bool m_feetMarked = false;
    bool m_inchesMarked = false;
    bool m_fractionSeen = false;
};

}  // namespace

bool ReadImperialParts(std::wstring_view text, FirstNumber first, ImperialParts& parts)
{
    parts = {};
    return PartsReader(text, first, parts).Read();
}
