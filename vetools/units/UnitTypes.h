#pragma once

/// The numbers that units are made of, as they stand in files, tables and the host's code.
namespace Unit
{

/// The kind of a unit. It decides, with the format, how values are written.
enum UNIT_TYPE : unsigned int
{
    /// Every unit that is not an imperial length.
    UNIT_TYPE_METRIC = 0,
    /// Inch, foot, yard and the combined lengths: ranges 5 to 10 of the length ids.
    UNIT_TYPE_IMPERIAL = 1,
};

/// How values of a unit are written. 1 is given to no unit.
enum enumUNITFORMAT : unsigned int
{
    /// 12.500: every metric unit.
    UNITFORMAT_DECIMAL = 0,
    /// 5'-11": the foot-inch.
    UNITFORMAT_FEET_INCHES = 2,
    /// 5.948: inch, foot and yard.
    UNITFORMAT_IMPERIAL_DECIMAL = 3,
    /// 5'-11 3/8" or 71 3/8": the two lengths with fractions.
    UNITFORMAT_FRACTION = 4,
};

/// The unit ids: the physical quantities. The length ids share one table of units, for twelve uses that a user may show
/// differently.
/// Kept: UNIT_ID_LENGTH_26 titles them as squares, while symbols and coefficients are those of plain lengths.
enum UNIT_ID : unsigned int
{
    UNIT_ID_LENGTH = 1,
    UNIT_ID_FORCE = 2,
    UNIT_ID_MOMENT = 3,
    UNIT_ID_MASS = 4,
    UNIT_ID_ANGLE = 5,
    UNIT_ID_ANGLE_6 = 6,
    UNIT_ID_STRESS = 7,
    UNIT_ID_TIME = 8,
    UNIT_ID_LENGTH_9 = 9,
    UNIT_ID_TEMPERATURE = 10,
    UNIT_ID_DIMENSIONLESS = 11,
    UNIT_ID_LENGTH_12 = 12,
    UNIT_ID_LENGTH_13 = 13,
    UNIT_ID_LENGTH_14 = 14,
    UNIT_ID_ENERGY = 15,
    UNIT_ID_VELOCITY = 16,
    UNIT_ID_ACCELERATION = 17,
    UNIT_ID_RATIO = 18,
    UNIT_ID_LENGTH_19 = 19,
    UNIT_ID_FREQUENCY = 20,
    UNIT_ID_LENGTH_21 = 21,
    UNIT_ID_LENGTH_22 = 22,
    UNIT_ID_LENGTH_23 = 23,
    UNIT_ID_LENGTH_24 = 24,
    UNIT_ID_LENGTH_25 = 25,
    UNIT_ID_LENGTH_26 = 26,
};

}  // namespace Unit
