#pragma once

#include <cstddef>
#include <iterator>
#include <optional>
#include <span>
#include <string_view>

#include "vetools/resources/StringIds.h"
#include "vetools/units/ImperialFactors.h"
#include "vetools/units/UnitTypes.h"

/// The catalogue of units (internal): one row per unit, one row per quantity. Everything that the library knows about a
/// unit of measure stands here once; refreshing a unit, lists of symbols, look-ups by text and the exported choice
/// tables only read these rows. Titles are ids of the string table.

/// Which of the look-ups by text finds a unit.
/// Kept: the gaps are part of what hosts rely on.
enum class Found
{
    BySymbolAndTitle,
    BySymbol,
    ByTitle,
    Never,
};

/// One unit. A value in SI times `coef` is the value in the unit, then `offset` is added.
struct UnitRow
{
    std::wstring_view symbol;
    unsigned int title;
    double coef;
    Found found = Found::BySymbolAndTitle;
    double offset = 0.0;

    /// What choice lists show: `choice` for the unit alone, `listed` in the list of its quantity, where an empty text
    /// is left out. Both are the symbol, except where the rows say otherwise.
    std::wstring_view choice = symbol;
    std::wstring_view listed = choice;

    /// The title when alternative titles are asked for, which then is the symbol too; 0 for none.
    unsigned int alternativeTitle = 0;

    /// For lengths: the title in the quantity of squares, the plural title (0 for none), and how they are written.
    unsigned int squareTitle = 0;
    unsigned int pluralTitle = 0;
    Unit::UNIT_TYPE type = Unit::UNIT_TYPE_METRIC;
    Unit::enumUNITFORMAT format = Unit::UNITFORMAT_DECIMAL;
};

namespace CatalogueRows
{

constexpr Unit::UNIT_TYPE c_imperial = Unit::UNIT_TYPE_IMPERIAL;
constexpr Unit::enumUNITFORMAT c_decimal = Unit::UNITFORMAT_IMPERIAL_DECIMAL;
constexpr Unit::enumUNITFORMAT c_feetInches = Unit::UNITFORMAT_FEET_INCHES;
constexpr Unit::enumUNITFORMAT c_fraction = Unit::UNITFORMAT_FRACTION;

// The shapes of rows: the columns that a table needs, in the order that reads best.

constexpr UnitRow Length(std::wstring_view symbol, unsigned int title, unsigned int squareTitle,
                         unsigned int pluralTitle, double coef, Unit::UNIT_TYPE type = Unit::UNIT_TYPE_METRIC,
                         Unit::enumUNITFORMAT format = Unit::UNITFORMAT_DECIMAL, Found found = Found::BySymbolAndTitle)
{
    return {.symbol = symbol,
            .title = title,
            .coef = coef,
            .found = found,
            .squareTitle = squareTitle,
            .pluralTitle = pluralTitle,
            .type = type,
            .format = format};
}

constexpr UnitRow Mass(std::wstring_view symbol, std::wstring_view choice, unsigned int title, double coef)
{
    return {.symbol = symbol, .title = title, .coef = coef, .found = Found::Never, .choice = choice};
}

constexpr UnitRow Stress(std::wstring_view symbol, std::wstring_view listed, unsigned int title,
                         unsigned int alternativeTitle, double coef, Found found = Found::BySymbolAndTitle)
{
    return {.symbol = symbol,
            .title = title,
            .coef = coef,
            .found = found,
            .listed = listed,
            .alternativeTitle = alternativeTitle};
}

constexpr UnitRow Temperature(std::wstring_view symbol, unsigned int title, double coef, double offset,
                              Found found = Found::BySymbolAndTitle)
{
    return {.symbol = symbol, .title = title, .coef = coef, .found = found, .offset = offset};
}

// The units of every quantity by range.
// Kept: coefficients stand as they are, also where they are rounded or not the textbook value.

// clang-format off
inline constexpr UnitRow c_length[] = {
//         symbol     title                        squared                        plural                         units per metre   type        format        found
    Length(L"µm",     IDS_UNIT_MICROMETRE,         IDS_SQUARE_MICROMETRE,         0,                             1000000.0),
    Length(L"mm",     IDS_UNIT_MILLIMETRE,         IDS_SQUARE_MILLIMETRE,         IDS_PLURAL_MILLIMETRE,         1000.0),
    Length(L"cm",     IDS_UNIT_CENTIMETRE,         IDS_SQUARE_CENTIMETRE,         IDS_PLURAL_CENTIMETRE,         100.0),
    Length(L"dm",     IDS_UNIT_DECIMETRE,          IDS_SQUARE_DECIMETRE,          IDS_PLURAL_DECIMETRE,          10.0),
    Length(L"m",      IDS_UNIT_METRE,              IDS_SQUARE_METRE,              IDS_PLURAL_METRE,              1.0),
    Length(L"\"",     IDS_UNIT_INCH,               IDS_SQUARE_INCH,               IDS_PLURAL_INCH,               c_inchesPerMetre, c_imperial, c_decimal),
    Length(L"'",      IDS_UNIT_FOOT,               IDS_SQUARE_FOOT,               IDS_PLURAL_FOOT,               c_feetPerMetre,   c_imperial, c_decimal),
    Length(L"Yd",     IDS_UNIT_YARD,               IDS_SQUARE_YARD,               0,                             1.093613298,      c_imperial, c_decimal),
    Length(L"'-\"",   IDS_UNIT_FOOT_INCH,          IDS_SQUARE_FOOT_INCH,          IDS_PLURAL_FOOT_INCH,          c_feetPerMetre,   c_imperial, c_feetInches, Found::ByTitle),
    Length(L"' / \"", IDS_UNIT_FOOT_INCH_FRACTION, IDS_SQUARE_FOOT_INCH_FRACTION, IDS_PLURAL_FOOT_INCH_FRACTION, c_feetPerMetre,   c_imperial, c_fraction,   Found::ByTitle),
    Length(L"/\"",    IDS_UNIT_INCH_FRACTION,      IDS_SQUARE_INCH_FRACTION,      IDS_PLURAL_INCH_FRACTION,      c_inchesPerMetre, c_imperial, c_fraction,   Found::ByTitle),
};

inline constexpr UnitRow c_force[] = {
//   symbol  title                     units per newton
    {L"N",   IDS_UNIT_NEWTON,          1.0},
    {L"daN", IDS_UNIT_DECANEWTON,      0.1},
    {L"kN",  IDS_UNIT_KILONEWTON,      0.001},
    {L"MN",  IDS_UNIT_MEGANEWTON,      1e-06},
    {L"kg",  IDS_UNIT_KILOGRAM_FORCE,  0.10197162129779283},
    {L"T",   IDS_UNIT_TONNE_FORCE,     0.00010197162129779284},
    {L"lb",  IDS_UNIT_POUND_FORCE,     0.2248090836320252},
    {L"kip", IDS_UNIT_KILOPOUND_FORCE, 0.00022480908363202524},
};

inline constexpr UnitRow c_moment[] = {
//   symbol     title                          units per newton-metre  found
    {L"N*m",    IDS_UNIT_NEWTON_METRE,         1.0},
    {L"daN*m",  IDS_UNIT_DECANEWTON_METRE,     0.1},
    {L"kN*m",   IDS_UNIT_KILONEWTON_METRE,     0.001},
    {L"MN*m",   IDS_UNIT_MEGANEWTON_METRE,     1e-06},
    {L"kg*m",   IDS_UNIT_KILOGRAM_FORCE_METRE, 0.10197162129779283},
    {L"T*m",    IDS_UNIT_TONNE_FORCE_METRE,    0.00010197162129779284},
    {L"lb*in",  IDS_UNIT_POUND_INCH,           8.850751275919913},
    {L"lb*ft",  IDS_UNIT_POUND_FOOT,           0.737562610330745,      Found::Never},
    {L"kip*in", IDS_UNIT_KILOPOUND_INCH,       0.008850751275919912,   Found::Never},
    {L"kip*ft", IDS_UNIT_KILOPOUND_FOOT,       0.000737562610330745,   Found::Never},
};

inline constexpr UnitRow c_mass[] = {
//       symbol  choice  title               units per kilogram
    Mass(L"kg",  L"kg",  IDS_UNIT_KILOGRAM,  1.0),
    Mass(L"T",   L"T",   IDS_UNIT_TONNE,     0.001),
    Mass(L"lb",  L"lb",  IDS_UNIT_POUND,     2.204624),
    Mass(L"kip", L"klb", IDS_UNIT_KILOPOUND, 0.024),  // Kept: not 0.002204624, and lists call it klb
};

inline constexpr UnitRow c_angle[] = {
//   symbol   title            units per radian
    {L"°",    IDS_UNIT_DEGREE, 57.29577951308232},
    {L"Rad",  IDS_UNIT_RADIAN, 1.0},
    {L"Grad", IDS_UNIT_GRADE,  63.66197723675813},
};

inline constexpr UnitRow c_stress[] = {  // Kept: the list writes Mpa and leaves three units out
//         symbol      listed      title                                  alternative                 units per pascal        found
    Stress(L"Pa",      L"Pa",      IDS_UNIT_PASCAL,                       IDS_ALTERNATIVE_PASCAL,     1.0),
    Stress(L"kPa",     L"kPa",     IDS_UNIT_KILOPASCAL,                   IDS_ALTERNATIVE_KILOPASCAL, 0.001),
    Stress(L"MPa",     L"Mpa",     IDS_UNIT_MEGAPASCAL,                   IDS_ALTERNATIVE_MEGAPASCAL, 1e-06),
    Stress(L"daN/mm²", L"daN/mm²", IDS_UNIT_DECANEWTON_SQUARE_MILLIMETRE, IDS_ALTERNATIVE_DECANEWTON, 1e-07),
    Stress(L"kg/mm²",  L"kg/mm²",  IDS_UNIT_KILOGRAM_SQUARE_MILLIMETRE,   0,                          1.0197162129779283e-07),
    Stress(L"kg/cm²",  L"kg/cm²",  IDS_UNIT_KILOGRAM_SQUARE_CENTIMETRE,   0,                          1.0197162129779284e-05),
    Stress(L"t/m²",    L"t/m²",    IDS_UNIT_TONNE_SQUARE_METRE,           0,                          0.00010197162129779284),
    Stress(L"bar",     L"",        IDS_UNIT_BAR,                          0,                          1e-05),
    Stress(L"psi",     L"psi",     IDS_UNIT_PSI,                          0,                          0.000145),
    Stress(L"kg/m²",   L"",        IDS_UNIT_KILOGRAM_SQUARE_METRE,        0,                          0.0010197162129779284,  Found::Never),
    Stress(L"lb/in²",  L"lb/in²",  IDS_UNIT_POUND_SQUARE_INCH,            0,                          0.000145,               Found::Never),
    Stress(L"lb/ft²",  L"",        IDS_UNIT_POUND_SQUARE_FOOT,            0,                          0.020885,               Found::Never),
    Stress(L"ksi",     L"ksi",     IDS_UNIT_KSI,                          0,                          1.45e-07,               Found::Never),
};

inline constexpr UnitRow c_time[] = {
//   symbol  title            units per second
    {L"s",   IDS_UNIT_SECOND, 1.0},
    {L"min", IDS_UNIT_MINUTE, 0.016666666666666666},
    {L"h",   IDS_UNIT_HOUR,   0.0002777777777777778},
};

inline constexpr UnitRow c_temperature[] = {
//              symbol  title                scale  offset  found
    Temperature(L"°C",  IDS_UNIT_CELSIUS,    1.0,   0.0),
    Temperature(L"°F",  IDS_UNIT_FAHRENHEIT, 1.8,   32.0,   Found::Never),
    Temperature(L"K",   IDS_UNIT_KELVIN,     1.0,   273.15, Found::Never),
};

inline constexpr UnitRow c_dimensionless[] = {
//   symbol  title                   coefficient  found
    {L"",    IDS_UNIT_DIMENSIONLESS, 1.0,         Found::Never},
};

inline constexpr UnitRow c_energy[] = {
//   symbol    title                units per joule  found
    {L"J",     IDS_UNIT_JOULE,      1.0},
    {L"kJ",    IDS_UNIT_KILOJOULE,  0.001},
    {L"ft-lb", IDS_UNIT_FOOT_POUND, 0.737562,        Found::Never},
};

inline constexpr UnitRow c_velocity[] = {
//   symbol     title                       units per metre per second
    {L"mm/s",   IDS_UNIT_MILLIMETRE_SECOND, 1000.0},
    {L"cm/s",   IDS_UNIT_CENTIMETRE_SECOND, 100.0},
    {L"m/s",    IDS_UNIT_METRE_SECOND,      1.0},
    {L"m/min",  IDS_UNIT_METRE_MINUTE,      60.0},
    {L"km/h",   IDS_UNIT_KILOMETRE_HOUR,    3.6},
    {L"in/s",   IDS_UNIT_INCH_SECOND,       39.37007874015748},
    {L"in/min", IDS_UNIT_INCH_MINUTE,       2362.2047244094488},
    {L"in/h",   IDS_UNIT_INCH_HOUR,         141732.28346456692},
    {L"ft/s",   IDS_UNIT_FOOT_SECOND,       3.280839895013123},  // Kept: one unit in the last place below the foot of lengths
    {L"ft/min", IDS_UNIT_FOOT_MINUTE,       196.85039370078738},
    {L"ft/h",   IDS_UNIT_FOOT_HOUR,         11811.023622047243},
};

inline constexpr UnitRow c_acceleration[] = {
//   symbol    title                               units per metre per second squared
    {L"mm/s²", IDS_UNIT_MILLIMETRE_SECOND_SQUARED, 1000.0},
    {L"cm/s²", IDS_UNIT_CENTIMETRE_SECOND_SQUARED, 100.0},
    {L"m/s²",  IDS_UNIT_METRE_SECOND_SQUARED,      1.0},
    {L"in/s²", IDS_UNIT_INCH_SECOND_SQUARED,       39.37007874015748},
    {L"ft/s²", IDS_UNIT_FOOT_SECOND_SQUARED,       3.280839895013123},
};

inline constexpr UnitRow c_ratio[] = {
//   symbol  title                 coefficient  found
    {L"",    IDS_UNIT_COEFFICIENT, 1.0,         Found::Never},
    {L"%",   IDS_UNIT_PERCENTAGE,  1.0},  // Kept: a percentage is not scaled by 100
};

inline constexpr UnitRow c_frequency[] = {
//   symbol  title           units per hertz  found
    {L"Hz",  IDS_UNIT_HERTZ, 1.0,             Found::BySymbol},
};
// clang-format on

}  // namespace CatalogueRows

/// Every table of units once, whichever quantities share it.
inline constexpr std::span<const UnitRow> c_unitTables[] = {
    CatalogueRows::c_length, CatalogueRows::c_force,       CatalogueRows::c_moment,
    CatalogueRows::c_mass,   CatalogueRows::c_angle,       CatalogueRows::c_stress,
    CatalogueRows::c_time,   CatalogueRows::c_temperature, CatalogueRows::c_dimensionless,
    CatalogueRows::c_energy, CatalogueRows::c_velocity,    CatalogueRows::c_acceleration,
    CatalogueRows::c_ratio,  CatalogueRows::c_frequency,
};

/// What a quantity does with the metrics factor: nothing (it is 1.0 there), keeps it for its conversions, or is also
/// divided by it when a value is written as decimal text.
/// Kept: four length ids are not.
enum class MetricsUse
{
    None,
    Kept,
    KeptAndWritten,
};

/// One quantity. `offered` is how many units a choice list offers.
/// Kept: for lengths that is fewer than there are.
struct QuantityRow
{
    unsigned int id;
    std::span<const UnitRow> units;
    int offered;
    MetricsUse metricsUse = MetricsUse::None;
    bool hasSquareTitles = false;
    bool hasOneUnitForAnyRange = false;
};

// clang-format off
inline constexpr QuantityRow c_quantities[] = {
//   id                            units                           offered  metrics factor                 squared  any range
    {Unit::UNIT_ID_LENGTH,         CatalogueRows::c_length,         7,      MetricsUse::KeptAndWritten},
    {Unit::UNIT_ID_FORCE,          CatalogueRows::c_force,          8},
    {Unit::UNIT_ID_MOMENT,         CatalogueRows::c_moment,        10},
    {Unit::UNIT_ID_MASS,           CatalogueRows::c_mass,           4},
    {Unit::UNIT_ID_ANGLE,          CatalogueRows::c_angle,          3},
    {Unit::UNIT_ID_ANGLE_6,        CatalogueRows::c_angle,          3},
    {Unit::UNIT_ID_STRESS,         CatalogueRows::c_stress,        13},
    {Unit::UNIT_ID_TIME,           CatalogueRows::c_time,           3},
    {Unit::UNIT_ID_LENGTH_9,       CatalogueRows::c_length,         7,      MetricsUse::Kept},
    {Unit::UNIT_ID_TEMPERATURE,    CatalogueRows::c_temperature,    3},
    {Unit::UNIT_ID_DIMENSIONLESS,  CatalogueRows::c_dimensionless,  1,      MetricsUse::None,           false,   true},
    {Unit::UNIT_ID_LENGTH_12,      CatalogueRows::c_length,         7,      MetricsUse::KeptAndWritten},
    {Unit::UNIT_ID_LENGTH_13,      CatalogueRows::c_length,         7,      MetricsUse::Kept},
    {Unit::UNIT_ID_LENGTH_14,      CatalogueRows::c_length,         7,      MetricsUse::Kept},
    {Unit::UNIT_ID_ENERGY,         CatalogueRows::c_energy,         3},
    {Unit::UNIT_ID_VELOCITY,       CatalogueRows::c_velocity,      11},
    {Unit::UNIT_ID_ACCELERATION,   CatalogueRows::c_acceleration,   5},
    {Unit::UNIT_ID_RATIO,          CatalogueRows::c_ratio,          2},
    {Unit::UNIT_ID_LENGTH_19,      CatalogueRows::c_length,         7,      MetricsUse::Kept},
    {Unit::UNIT_ID_FREQUENCY,      CatalogueRows::c_frequency,      1},
    {Unit::UNIT_ID_LENGTH_21,      CatalogueRows::c_length,         8,      MetricsUse::KeptAndWritten},
    {Unit::UNIT_ID_LENGTH_22,      CatalogueRows::c_length,         7,      MetricsUse::KeptAndWritten},
    {Unit::UNIT_ID_LENGTH_23,      CatalogueRows::c_length,         7,      MetricsUse::KeptAndWritten},
    {Unit::UNIT_ID_LENGTH_24,      CatalogueRows::c_length,         7,      MetricsUse::KeptAndWritten},
    {Unit::UNIT_ID_LENGTH_25,      CatalogueRows::c_length,         7,      MetricsUse::KeptAndWritten},
    {Unit::UNIT_ID_LENGTH_26,      CatalogueRows::c_length,         7,      MetricsUse::KeptAndWritten, true},
};
// clang-format on

/// The row of a quantity, null for an id outside 1 to 26.
constexpr const QuantityRow* FindQuantity(unsigned int idUnit)
{
    // 0 wraps round to the largest number: it is outside, too.
    return idUnit - 1 < std::size(c_quantities) ? &c_quantities[idUnit - 1] : nullptr;
}

/// The unit of a quantity, null for a range that is not in its table.
constexpr const UnitRow* FindUnit(const QuantityRow& quantity, unsigned int range)
{
    if (quantity.hasOneUnitForAnyRange)
        return &quantity.units[0];
    return range < quantity.units.size() ? &quantity.units[range] : nullptr;
}

/// The same by id, null also for an id outside 1 to 26.
constexpr const UnitRow* FindUnit(unsigned int idUnit, unsigned int range)
{
    const QuantityRow* quantity = FindQuantity(idUnit);
    return quantity ? FindUnit(*quantity, range) : nullptr;
}

/// Whether values of the quantity follow the metrics factor: the length ids.
constexpr bool IsLengthId(unsigned int idUnit)
{
    const QuantityRow* quantity = FindQuantity(idUnit);
    return quantity && quantity->metricsUse != MetricsUse::None;
}

/// Whether the quantity's decimal text is divided by the metrics factor: fewer ids than those that keep one.
constexpr bool WritesWithMetricsFactor(unsigned int idUnit)
{
    const QuantityRow* quantity = FindQuantity(idUnit);
    return quantity && quantity->metricsUse == MetricsUse::KeptAndWritten;
}

/// What is added to a scaled temperature, 0.0 for every other quantity and for unknown ranges.
constexpr double OffsetAfterScaling(unsigned int idUnit, unsigned int range)
{
    if (idUnit != Unit::UNIT_ID_TEMPERATURE || range >= std::size(CatalogueRows::c_temperature))
        return 0.0;
    return CatalogueRows::c_temperature[range].offset;
}

/// Whether a range is that of an imperial length, whatever the quantity: 5 to 10.
constexpr bool IsImperialLengthRange(unsigned int range)
{
    return range < std::size(CatalogueRows::c_length) &&
           CatalogueRows::c_length[range].type == Unit::UNIT_TYPE_IMPERIAL;
}

/// How a unit of imperial type is written, by its range alone: as the length of that range, in decimals for all others.
constexpr Unit::enumUNITFORMAT FormatOfImperialRange(unsigned int range)
{
    return IsImperialLengthRange(range) ? CatalogueRows::c_length[range].format : Unit::UNITFORMAT_IMPERIAL_DECIMAL;
}

/// The ranges of the lengths that are written with a fraction of an inch.
inline constexpr unsigned int c_feetAndFractions = 9;
inline constexpr unsigned int c_inchesAndFractions = 10;
static_assert(FormatOfImperialRange(c_feetAndFractions) == Unit::UNITFORMAT_FRACTION &&
              FormatOfImperialRange(c_inchesAndFractions) == Unit::UNITFORMAT_FRACTION);

/// The range of the unit with this symbol or title, whole and case-sensitive, among the units that the look-up finds.
/// The quantity is no input: "kg" is the force.
std::optional<unsigned int> FindRangeBySymbol(std::wstring_view symbol);
std::optional<unsigned int> FindRangeByTitle(std::wstring_view title);
