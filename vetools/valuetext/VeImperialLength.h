#pragma once

#include <cstddef>
#include <span>

#include "vetools/platform/Export.h"

class CVeUnitBase;

/// Lengths in metres as feet, inches and binary fractions of an inch, and as text. All members are static.
///
/// There are 3.2808398950131235 feet and 39.37007874015748 inches in a metre; a fraction of precision p is one of
/// 1/2^p inch, p from 0 to 8. Numbers are cut towards zero where nothing else is said; beyond the range of an int they
/// give the nearest int, and 0 for a value that is not a number.
class VETOOLS_API CVeImperialLength
{
public:
    /// One length: 1.0 m in feet and inches is {true, 3, 3, 0, 0.37007874…}.
    struct tagIMPERIAL_LENGTH_UNIT
    {
        bool positive;           ///< true for a length of zero and above
        int feet;                ///< whole feet, never negative
        int inches;              ///< whole inches, never negative
        int fractionNumerator;   ///< of a fraction of an inch; its denominator, 2^p, is kept apart
        double remainderInches;  ///< decimal inches that the other fields do not hold, never negative
    };

    /// What a length is broken down into. The values are the ranges of the inch and the foot in the length quantity, and
    /// the range of a unit may be passed as it is: any other value means no breakdown.
    enum enumIMPERIAL_LENGTH_TYPE : unsigned int
    {
        IMPERIAL_INCHES = 5,
        IMPERIAL_FEET_INCHES = 6,
    };

    virtual ~CVeImperialLength();

    // From metres.

    /// The whole feet of m metres, and in `rest` the metres that are left, with the sign of m: 1.0 gives 3 and 0.0856.
    static int Meter2Feet(double m, double& rest);
    static void Meter2Feet(double m, double& rest, int& feet);

    /// The whole inches of m metres, and in `rest` the metres that are left: 1.0 gives 39 and 0.0094.
    static int Meter2Inches(double m, double& rest);
    static void Meter2Inches(double m, double& rest, int& inches);

    /// The fractions of 1/2^precision inch in m metres, rounded to the nearest, a half away from zero: 0.0127 (half an
    /// inch) at precision 4 gives 8. `rest` receives the metres above the count cut towards zero, so a count that was
    /// rounded up does not fit its rest. Any precision is allowed, negative ones mean multiples of an inch.
    static int Meter2Fractions(double m, int precision, double& rest);
    static void Meter2Fractions(double m, int precision, double& rest, int& fractions);

    /// What is lost when m metres become inches and metres again: zero up to rounding. Returned and stored in `rest`.
    static double Meter2Fractions(double m, double& rest);

    /// m metres as a record. IMPERIAL_FEET_INCHES fills feet, inches and the remainder, IMPERIAL_INCHES inches and the
    /// remainder; for any other type the remainder alone holds the whole length in inches.
    /// Kept: the numerator is always 0, and precision is not read.
    ///
    ///     m      type                  positive  feet  inches  remainderInches
    ///     1.0    IMPERIAL_FEET_INCHES  true      3     3       0.37007874…
    ///    -1.0    IMPERIAL_INCHES       false     0     39      0.37007874…
    ///     1.0    any other             true      0     0       39.37007874…
    static tagIMPERIAL_LENGTH_UNIT Meter2Imperial(double m, int precision, enumIMPERIAL_LENGTH_TYPE type);
    static void Meter2Imperial(double m, int precision, enumIMPERIAL_LENGTH_TYPE type, tagIMPERIAL_LENGTH_UNIT& unit);

    /// The same feet and inches, without sign and remainder; `fraction` is always 0.
    static void Meter2Imperial(double m, int precision, enumIMPERIAL_LENGTH_TYPE type, int& feet, int& inches,
                               int& fraction);

    // To metres.

    static double Feet2Meter(int feet);
    static void Feet2Meter(int feet, double& m);

    static double Inches2Meter(int inches);
    static void Inches2Meter(int inches, double& m);

    /// numerator/2^precision inches in metres: 3 and 2, three quarters of an inch, give 0.01905.
    static double Fractions2Meter(int numerator, int precision);
    static void Fractions2Meter(int numerator, int precision, double& m);

    /// The record in metres; the denominator of its fraction is 2^precision.
    /// Kept: remainderInches is not read, so Meter2Imperial and back loses the decimal inches.
    static double Imperial2Meter(const tagIMPERIAL_LENGTH_UNIT& unit, int precision);
    static void Imperial2Meter(const tagIMPERIAL_LENGTH_UNIT& unit, int precision, double& m);

    /// The same from single numbers, without a sign of its own: 3 feet, 4 inches, 1/2^1 give 1.0287.
    static double Imperial2Meter(int feet, int inches, int numerator, int precision);
    static void Imperial2Meter(int feet, int inches, int numerator, int precision, double& m);

    // From text.

    /// Reads whole feet, whole inches and a fraction down to 1/256 inch. Nothing else than digits, blanks and the marks
    /// ' - " / is allowed; a null text counts as empty, and an empty one is zero.
    ///
    /// type   what a number without a mark is: feet, inches, or, for any other type, an error.
    /// Returns whether the text was understood. The outputs are set in either case; after a failure they hold what had
    /// been read. denominatorPower is 0 without a fraction.
    ///
    ///     text          type                  result  positive  feet  inches  numerator  denominatorPower
    ///     3'-4 1/2"     IMPERIAL_FEET_INCHES  true    true      3     4       1          1
    ///     5 3/4         IMPERIAL_FEET_INCHES  true    true      0     5       3          2
    ///     -2'           IMPERIAL_FEET_INCHES  true    false     2     0       0          0
    ///     7             IMPERIAL_INCHES       true    true      0     7       0          0
    ///     1/12          IMPERIAL_INCHES       false   true      0     0       1          0
    ///     3.5           IMPERIAL_FEET_INCHES  false   true      0     0       0          0
    ///
    /// Kept: a blank behind a foot mark ends a number 0, so 3' 4" is understood, and 3' 4 1/2" is not.
    /// Kept: with a fraction the denominator alone decides, a power of two from 1 to 256: 1/2 x is understood.
    /// Kept: of a denominator the bits 1 to 256 alone are looked at: 1/514 is understood as 1/2.
    static bool ImperialStr2Imperial(const wchar_t* text, enumIMPERIAL_LENGTH_TYPE type, bool& positive, int& feet,
                                     int& inches, int& numerator, int& denominatorPower);

    /// The same into a record, whose remainder is left as it is.
    static bool ImperialStr2Imperial(const wchar_t* text, enumIMPERIAL_LENGTH_TYPE type, tagIMPERIAL_LENGTH_UNIT& unit,
                                     int& denominatorPower);

    /// The text, read as by ImperialStr2Imperial, in metres, feet or inches. Returns whether it was understood; the
    /// number is written in either case, after a failure from what had been read.
    static bool ImperialStr2Meter(const wchar_t* text, enumIMPERIAL_LENGTH_TYPE type, double& m);
    static bool ImperialStr2Feet(const wchar_t* text, enumIMPERIAL_LENGTH_TYPE type, double& feet);
    static bool ImperialStr2Inches(const wchar_t* text, enumIMPERIAL_LENGTH_TYPE type, double& inches);

    /// Reads a length as CVeUnitBase::String2Double does, with the unit's separator and format: decimals are allowed. The
    /// value is in inches for a unit of range 5, else in feet, 0.0 when the text is not understood.
    /// Returns false, and leaves the value, only when the unit is not an imperial one.
    ///
    /// Kept: the text ends before its first '*', '+' or '/', so 3/4" is read as 3, and 3'-4 1/2" is not understood.
    /// Kept: the result is true whether the text was understood or not.
    static bool ImperialStr2Value(const wchar_t* text, const CVeUnitBase& unit, double& value);

    // To text.

    /// Writes m metres as feet and decimal inches, or as decimal inches, into the characters that *text points to.
    ///
    ///     m      precision  type                  text
    ///     1.0    2          IMPERIAL_FEET_INCHES  3'-3.37"
    ///    -1.0    1          IMPERIAL_INCHES       -39.4"
    ///     0.3    0          IMPERIAL_FEET_INCHES  0'-12"        inches rounded up to 12 stay
    ///
    /// precision  decimals of the inches; a negative one counts as 6, one above 1074, beyond which no double has decimals
    ///            other than zeros, as 1074
    /// Any other type writes nothing, not even a terminator. The buffer is not told its size: a text needs 18 characters
    /// and the decimals. Where that is not at hand, use one of the two forms below.
    static void Meter2ImperialStr(double m, int precision, enumIMPERIAL_LENGTH_TYPE type, wchar_t** text);

    /// The same text, cut to the size of the buffer if need be and always terminated in a buffer that is not empty.
    /// Returns the length of the whole text without its terminator, 0 for any other type, which leaves the buffer alone.
    static std::size_t Meter2ImperialStr(double m, int precision, enumIMPERIAL_LENGTH_TYPE type,
                                         std::span<wchar_t> text);

    /// The same text in a new array that the caller releases with delete[]. It has 25 characters, more when the text
    /// needs more; for any other type it holds an empty text.
    static wchar_t* Meter2ImperialStr(double m, int precision, enumIMPERIAL_LENGTH_TYPE type);
};
