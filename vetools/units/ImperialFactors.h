#pragma once

/// The factors between metres, feet and inches, and how factors are compared (internal). They are rounded as the catalogue of units has them, so a value
/// that goes through feet and one that goes through inches may differ in the last digit.
inline constexpr double c_feetPerMetre = 3.2808398950131235;
inline constexpr double c_inchesPerMetre = 39.37007874015748;
inline constexpr double c_inchesPerFoot = 12.0;

/// Whether two factors between units are the same, as far as factors go.
inline bool IsSameFactor(double a, double b)
{
    return (a - b) * (a - b) <= 1e-20;
}

/// What one unit of an imperial length is.
enum class LengthIn
{
    Feet,
    Inches,
};
