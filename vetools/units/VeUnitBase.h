#pragma once

#include <cstdarg>
#include <cstddef>
#include <span>
#include <vector>

#include "vetools/framework/CString.h"
#include "vetools/platform/Export.h"
#include "vetools/units/UnitTypes.h"
#include "vetools/units/ValueTextOptions.h"

class CArchive;
class CFile;

/// One unit of measure and how values in it are shown.
///
/// A unit is named by its unit id, the physical quantity (1 to 26, Unit::UNIT_ID), and its range, the unit within that
/// quantity (0 to 12): id 1 with range 1 is the millimetre, id 2 with range 2 the kilonewton. Symbol, title,
/// coefficient, type and format come from the catalogue whenever id or range is set, and may be changed afterwards.
///
/// A unit is a plain value. No lock guards it; texts are cut to the 19 characters that a symbol holds and the 49 of a
/// title.
///
///     CVeUnitBase force(Unit::UNIT_ID_FORCE, 2, 3, L'.', 1.0, 0);  // kN, three decimals
///     double value = 12500.0;                                      // newtons
///     force.SI2Double(value, 0);                                   // 12.5
class VETOOLS_API CVeUnitBase
{
public:
    /// A row {unit id, number of units that a choice list offers} per unit id, ids ascending from 1.
    /// Kept: lengths offer 7 units (id 21: 8), although the catalogue knows eleven.
    static const int c_arrayTypeNumber[26][2];

    /// Samples for a choice of precision, by number of decimals: "0", "0.0" … "0.00000000".
    static const wchar_t* const c_arrayPrecision[9];

    /// Samples for a choice of precision of imperial lengths, by precision: {smallest fraction, inch decimals}, as in
    /// {"1/8", "0'-0.000\""} for precision 3.
    static const wchar_t* const c_arrayImperialPrecision[9][2];

    /// The metre with precision 3, exponent 1, metrics factor 1.0, trailing zeros kept.
    CVeUnitBase();

    /// A unit of the catalogue with exponent 1.
    ///
    /// idUnit, range         the unit; one that the catalogue does not know has an empty symbol and coefficient 1.0
    /// precision             decimals shown; for fractions of an inch, the power of two of the smallest one
    /// sep                   Kept: has no effect, the catalogue sets the separator to the current one
    /// metricsFactor         Kept: stored as given, also for quantities that SetMetricsFactor leaves at 1.0
    /// removeTrailingZeroes  what GetRemoveTrailingZeroes returns
    CVeUnitBase(unsigned int idUnit, unsigned int range, unsigned int precision, wchar_t sep, double metricsFactor,
                int removeTrailingZeroes);

    /// Copies everything as it is, composed names and coefficients included; the catalogue is not asked. A separator
    /// '.' becomes the current decimal separator (CVeUnitSeparator::m_cSep).
    CVeUnitBase(const CVeUnitBase& other);
    CVeUnitBase& operator=(const CVeUnitBase& other);

    /// The only virtual function: a derived unit may be deleted through a pointer to this class.
    virtual ~CVeUnitBase();

    /// A copy made with new, which the caller deletes.
    CVeUnitBase* GetClone() const;

    /// 1 when unit id, range, precision, format, separator, metrics factor and the trailing-zeros flag are equal, else
    /// 0.
    /// Kept: coefficient, exponent, type, name and title are not compared, so m and m² are equal.
    int operator==(const CVeUnitBase& other) const;
    /// The exact negation of operator==.
    int operator!=(const CVeUnitBase& other) const;

    unsigned int GetIDUnit() const;
    unsigned int GetRange() const;

    /// Sets quantity, unit or both, then takes symbol, title, coefficient, type and format from the catalogue and the
    /// current decimal separator. A pair that the catalogue does not know leaves all of these but the separator as they
    /// are.
    /// Kept: the exponent stays, so a unit with exponent 2 holds a plain coefficient and symbol afterwards.
    void SetIdUnit(unsigned int idUnit);
    void SetRange(unsigned int range);
    void SetIdUnitAndRange(unsigned int idUnit, unsigned int range);

    /// Number of decimals shown; for fractions of an inch, the power of two of the smallest one. Not checked.
    unsigned int GetPrecision() const;
    void SetPrecision(unsigned int precision);

    int GetExponent() const;

    /// Raises the unit to a power in place of the one it has: mm with 2 gives mm² and 1000000.0, then with 3 mm3 and
    /// 1e9, then with 1 mm and about 1000.0.
    ///
    /// The coefficient is raised to exponent / GetExponent(), a quotient of doubles, so its last digits may differ from
    /// the catalogue's, and a unit whose power is 0 gets an infinite or undefined one. From name and title the old
    /// power is taken off ("²", or everything from the first place where its number appears) and, from 2 on, the new
    /// one is appended; what would become empty stays. Then both are rewritten as GetName and GetTitle show them.
    /// Kept: a text is cut where the number first appears, also when that is not its end.
    /// Kept: what GetName shows in words stays in words: the inch with 2 is sq in, then with 3 sq in3, then with 1 sq in.
    void SetExponent(int exponent);

    /// The decimal separator of values in this unit; setting '.' stores the current one (CVeUnitSeparator::m_cSep).
    wchar_t GetSep() const;
    void SetSep(wchar_t sep);

    /// The unit's own units per SI unit, the power included: 1000.0 for mm, 1000000.0 for mm². Not checked.
    double GetCoef() const;
    void SetCoef(double coef);

    Unit::UNIT_TYPE GetType() const;
    /// Sets the type, and the format with it: metric gives decimals, imperial what the range says (8 feet and inches, 9
    /// and 10 fractions, all others decimals of an imperial unit). Any other type leaves the format.
    void SetUnitType(Unit::UNIT_TYPE type);

    /// How values are written.
    Unit::enumUNITFORMAT GetUnitFormat() const;
    /// Stores the format unchecked and returns true.
    bool SetUnitFormat(Unit::enumUNITFORMAT format);

    /// A further factor that conversions apply on request: display units of the length system per metre.
    double GetMetricsFactor() const;
    /// Stores the factor for length ids (1, 9, 12, 13, 14, 19, 21 to 26), 1.0 for all others.
    void SetMetricsFactor(double factor);

    /// The caller's own wish about trailing zeros, to be passed to Double2String, which does not read it itself.
    int GetRemoveTrailingZeroes() const;
    void SetRemoveTrailingZeroes(int remove);

    /// Replaces the stored symbol; null changes nothing. The text may be this unit's own.
    void SetName(const wchar_t* name);
    /// Replaces title, symbol and coefficient, in this order. A null text leaves what it would replace.
    void SetUnitValues(const wchar_t* title, const wchar_t* name, double coef);

    /// Does nothing.
    void Dump() const;

    /// Converts an SI value to the unit, in place: coefficient × value, divided by the metrics factor when
    /// useMetricsFactor is not 0, then plus the offset of °F or K. 100.0 in °F gives 212.0.
    void SI2Double(double& value, int useMetricsFactor) const;
    /// The way back, in the opposite order: 212.0 in °F gives 100.0. A coefficient of 0.0 gives an infinity.
    void Double2SI(double& value, int useMetricsFactor) const;

    /// Converts many values, each to the same bits as the function for one.
    void SI2Double(std::span<double> values, int useMetricsFactor) const;
    void Double2SI(std::span<double> values, int useMetricsFactor) const;

    /// Product and quotient of two units: the coefficients multiplied or divided, the names as GetName shows them one
    /// after the other (kN and m give kNm) or with a slash between (kN/m). Everything else is the left unit's, title
    /// and unit id included. The operands may be one and the same unit.
    CVeUnitBase operator*(const CVeUnitBase& other) const;
    CVeUnitBase operator/(const CVeUnitBase& other) const;
    CVeUnitBase& operator*=(const CVeUnitBase& other);
    CVeUnitBase& operator/=(const CVeUnitBase& other);

    /// Composes a unit such as kN*m² from a first unit with its power and pairs (pointer to a CVeUnitBase, int power),
    /// ended by a null pointer:
    ///
    ///     CVeUnitBase::MakeUnit(&kiloNewton, 1, &metre, 2, nullptr)    // kN*m²
    ///     CVeUnitBase::MakeUnit(&kiloNewton, 1, &metre, -3, nullptr)   // kN/m-3
    ///
    /// unit, exponent  the first unit is changed itself and a copy of it is returned; a power below 2 leaves it as it is
    /// pairs           a negative power divides, 0 adds nothing; a pointer to a derived class must be converted to
    ///                 CVeUnitBase* by the caller, since the compiler does not do that behind an ellipsis
    ///
    /// Coefficients are multiplied, symbols are appended to name and title: *m, *m², *m3, /m, /m², /m-3. Units may
    /// appear more than once; each counts as it is when its turn comes. A null first unit gives the default unit.
    /// Kept: a first power of 3 or more cubes the coefficient, but the texts show the exponent that the unit had (m1);
    /// powers of -3 and below show their sign behind the slash. The exponent of the result is the first unit's.
    static CVeUnitBase MakeUnit(CVeUnitBase* unit, int exponent, ...);
    /// The same into `result`, leaving the first unit as it is. Does nothing when either pointer is null.
    static void MakeUnit(CVeUnitBase* result, CVeUnitBase* unit, int exponent, ...);

    /// The symbol as it is shown: an inch or foot mark followed by "²", "2" or "3" reads "sq in", "cu ft" and so on, in
    /// the words of the prompts service. The stored symbol stays. The service is asked only when there is such a
    /// pair; words that contain a pair themselves are replaced again, 20 times at most.
    CString GetName() const;

    /// The title as it is shown: as GetName, and a lone inch or foot mark reads "Pouce" or "Pied". The first "²²"
    /// becomes "²". The result is written back into the unit; the pointer to it is valid while the unit lives.
    wchar_t* GetTitle();

    /// The plural of a length's title ("mètres"), empty for all other quantities.
    /// Kept: micrometre and yard have none, the foot's is "pied", the decimetre's "decimètres".
    CString GetTitlePlural() const;

    /// The symbol of one unit for a choice list, or with range -1 those of the whole quantity, a line each.
    ///
    /// Returns "---" for a range that the quantity does not have, an empty text for an unknown id; the dimensionless
    /// unit is empty whatever the range.
    /// Kept: mass 3 is "klb" here and "kip" in a unit; the list of stresses has ten entries, among them "Mpa"; that of
    /// ratios is "%" alone.
    static CString GetStringUnits(unsigned int idUnit, int range);

    /// The range of the unit with this symbol, compared whole and with case. True when found; otherwise, and for null
    /// pointers, false, and the range is left as it is.
    /// Kept: the quantity is no input, "kg" gives the force's 4; some symbols are not found, such as those of the mass
    /// ("klb"), "°F", "K", "ksi", "lb/in²" and the feet-inches.
    static bool GetRangeFromUnitName(const wchar_t* symbol, unsigned int* range);

    /// The same for a title of the string table, whatever the prompts service shows in its place.
    /// Kept: the gaps are those of the symbols, but the feet-inches are found and "Hertz" is not; the titles of squares
    /// never are.
    static bool GetRangeFromUnitTitle(const wchar_t* title, unsigned int* range);

    /// The eleven symbols of lengths for a length id, nothing for all others.
    static std::vector<CString> GetAllUnitsSymbols(unsigned int idUnit);

    /// Removes every length symbol from a text, then its upper-case form, symbol by symbol: "12 MM" leaves "12 ". Other
    /// quantities than lengths leave the text.
    /// Kept: the single marks go before the composed ones, so the hyphen of 5'-11" stays.
    static void EliminateUnitsSymbol(unsigned int idUnit, CString& text);

    // Persistence: what identifies the unit is stored; the rest comes from the catalogue on reading.

    /// Writes the unit as a text block of 740 bytes in one go: id, range, precision, format, separator, title, name and
    /// coefficient as fields of UTF-16LE text. Exponent, type, metrics factor and the trailing-zeros flag are not saved.
    /// Throws the file's CFileException.
    void Save(CFile& file) const;
    /// Reads the block of 380 bytes of the oldest files: id, range, precision, title, name and coefficient.
    ///
    /// Both loaders take what the file delivers: a field that it ends before is empty, which is 0 as a number, and texts are
    /// cut to their fields. Then the unit is refreshed from the catalogue, which replaces name, title, coefficient, type
    /// and format of a known unit and sets the separator to the current one.
    void Load(CFile& file);
    /// Reads the block that Save writes; from version 1012 on, one of 840 bytes with a further field behind the precision,
    /// which is ignored. A coefficient whose decimal mark is the separator saved beside it is understood as well.
    void Load(CFile& file, unsigned int version);

    /// Writes id, range, precision (32 bits each) and separator (16 bits). Throws CArchiveException* with the cause readOnly when
    /// the archive loads.
    friend VETOOLS_API CArchive& operator<<(CArchive& archive, CVeUnitBase& unit);
    /// Reads what << wrote into a fresh unit and assigns it. Kept: the target's metrics factor becomes 1.0 and its trailing-zeros
    /// flag 1, whatever they were, and its separator the current one. Throws CArchiveException* with the cause writeOnly
    /// when the archive stores, endOfFile when the record is short; the target is left as it was then.
    friend VETOOLS_API CArchive& operator>>(CArchive& archive, CVeUnitBase& unit);

    // Value text: declared with the unit, defined in valuetext/.

    /// Writes an SI value as the text that a user sees in this unit: 0.0125 gives 12.500 mm.
    ///
    /// buffer               receives the text that is returned; null takes nothing, the result is the same. It is written
    ///                      as bufferSize allows, but the number, or the length in feet and inches, is written whole
    ///                      first: it must have room for these, 320 characters and the precision at most. The span form
    ///                      below never writes outside.
    /// value                metres, newtons, ...
    /// withUnit             non-zero appends a blank and the display name
    /// format               a wide printf format that takes an int precision and a double, as L"%.*f", which null stands
    ///                      for; conversions that ask for anything else write nothing
    /// applyMetricsFactor   non-zero divides by the metrics factor, to the power of the unit's exponent
    /// removeTrailingZeros  non-zero strips zeros after the separator; the unit's own flag is not read
    /// bufferSize           in characters; two of them stay unused, so 1234.50 N needs 11. With 0 and 1 the text is the
    ///                      number without the unit.
    /// reserved             not read
    /// smallValuesAsExponent, smallValueThreshold   non-zero writes magnitudes below a threshold with an exponent; 0 to 5
    ///                      stand for 0.1, 0.01, ... 0.000001, any other number for none
    ///
    ///     unit            precision   value    text
    ///     kN              2           12500    12.50 kN
    ///     m               2           1.0049   1.01 m          lengths round up from 1 % of a step below the midpoint
    ///     m               2           0.0005   0.00 m          less than a millimetre is nothing
    ///     m               2           0.0012   0.001 m         more is shown by its first significant decimal
    ///     °F              1           100      212.0 °F
    ///     ' / "           4           1.8129   5'-11 3/8"      see valuetext/VeImperialLength.h
    ///     square inch     1           1        1550.0 sq in
    ///     N               any         1/0      INF N
    ///
    /// Kept: lengths are all units whose symbol holds µm, mm, cm, dm, m, " or ' anywhere, so N*m and min as well; they
    /// round towards +infinity: -0.005 gives 0.00.
    /// Kept: quantity 12 shows less than a millimetre, too: 0.0005.
    /// Kept: numbers are printed with a full stop; a unit with another separator keeps its trailing zeros and precision.
    /// Kept: the quantities 9, 13, 14 and 19 are lengths that the metrics factor leaves alone.
    /// Kept: every imperial area or volume reads sq in or cu in.
    /// Kept: the indefinite (0/0) reads -INF, also for a length with a precision above 308.
    /// Kept: for an imperial unit of exponent 1 that is not written in decimals, the value counts as metres whatever the
    /// coefficient, and the text is copied whole. In a unit format that makes no text there, the text is what the buffer
    /// held, which therefore must be terminated, and its terminator may be written at index bufferSize.
    CString Double2String(wchar_t* buffer, double value, int withUnit, const wchar_t* format, int applyMetricsFactor,
                          int removeTrailingZeros, unsigned int bufferSize, int reserved, int smallValuesAsExponent,
                          int smallValueThreshold) const;

    /// The same with drawing-text mark-up: superscriptSubUnits, when not zero, raises millimetres and what is finer in
    /// metric lengths (1.234 m gives \A1;1.23{\H0.6x;\S4^;} m), and dropZeroSuperscript leaves a superscript of zeros out.
    /// Kept: temperatures lack the offset here: 100 °C is 180.0 °F.
    CString Double2String(wchar_t* buffer, int superscriptSubUnits, double value, int withUnit, const wchar_t* format,
                          int applyMetricsFactor, int removeTrailingZeros, unsigned int bufferSize,
                          int dropZeroSuperscript, int reserved, int smallValuesAsExponent,
                          int smallValueThreshold) const;

    /// The same text, written with L"%.*f" and bounded: at most buffer.size() - 1 characters and a terminator, nothing at
    /// all into an empty buffer. Returns the length of the whole text, so a result below the size means that it is complete.
    /// A unit format that makes no text gives an empty one.
    ///
    ///     wchar_t text[32];
    ///     unit.Double2String(text, 1.25, {.withUnit = true, .removeTrailingZeros = true});
    std::size_t Double2String(std::span<wchar_t> buffer, double value, const ValueTextOptions& options = {}) const;

    /// Reads what a user typed in this unit and gives the SI value; what follows the number is ignored.
    ///
    /// text                null or empty gives 0.0 and leaves *ok
    /// ok                  may be null. Receives 1, and 0 only for an imperial length that is not understood, whose value
    ///                     is 0.0; a text that is no number is 0.0 with *ok 1.
    /// applyMetricsFactor  non-zero multiplies by the metrics factor, to the power of the unit's exponent
    ///
    ///     unit       text           value
    ///     mm         12.5           0.0125
    ///     mm         12,5           0.012        Kept: only a full stop separates decimals
    ///     °F         212            117.78       Kept: the offset is not taken off
    ///     /"         3'-4 1/2"      1.0287       any shape of feet, inches and fraction, ranges 5 to 10
    ///     /"         -1.5'          -0.4572
    ///
    /// An imperial length whose metrics factor is 39.37007874015748 or 3.2808398950131235 belongs to a model in inches or
    /// feet: with the flag the result is in those, without it in metres.
    /// Kept: the metrics factor counts for every quantity, also where Double2String leaves it out.
    /// Kept: with any other factor a unit of 3.2808398950131235 per metre (foot, foot-inch) takes inches for feet unless
    /// applyMetricsFactor is set, and the others multiply by the factor whether it is set or not.
    /// An imperial unit of another range has no text to read: it gives 0.0 with *ok 1.
    double String2Double(const wchar_t* text, int* ok, int applyMetricsFactor) const;

    /// Removes the decimal part of every number: 12.50 m becomes 12 m, and 3,25 kN becomes 3 kN. A decimal part is a
    /// separator, first every full stop, then every comma, and the characters of Ee0123456789+-., that follow.
    /// Kept: it is removed wherever it occurs: 1.5 x 2.55 becomes 1 x 25.
    static void EliminatePrecision(CString& text);

    /// Replaces a separator by the current decimal separator everywhere in a text. Returns false, and leaves the text, when
    /// it does not occur or is the current one.
    static bool ReplaceNumberSeparator(wchar_t separator, CString& text);

private:
    friend class CVeUnitManager;
    friend class CVeUnit;
    friend class DecimalText;  // in valuetext/: reads the fields

    /// Takes everything that the catalogue knows of the unit, and the current decimal separator. With
    /// alternativeTitles, the stresses 0 to 3 are titled, and named, N/m² to DaN/mm²; nothing in the library asks for
    /// that.
    void UpdateDataUnit(bool alternativeTitles);

    /// The stored symbol becomes what GetName shows.
    void StoreShownName();

    void Compose(int exponent, std::va_list factors);
    void RaiseFirstFactor(int exponent);
    void MultiplyFurtherFactor(const CVeUnitBase& factor, int power);

    // In the order that the host's modules were built with.
    unsigned int IdUnit;
    unsigned int Range;
    unsigned int Precision;
    int Exponent;
    wchar_t Sep;
    wchar_t Name[20];
    wchar_t Title[50];
    double Coef;
    Unit::UNIT_TYPE UnitType;
    double MetricsFactor;
    int RemoveTrailingZeroes;
    Unit::enumUNITFORMAT UnitFormat;
};
