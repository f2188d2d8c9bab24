#pragma once

#include "vetools/platform/Export.h"

class CVeUnitBase;

class VETOOLS_API CVeImperialLength
{
public:
    struct tagIMPERIAL_LENGTH_UNIT
    {
        bool positive;
        int feet;
        int inches;
        int fractionNumerator;
        double remainderInches;
    };

    enum enumIMPERIAL_LENGTH_TYPE : unsigned int
    {
        IMPERIAL_INCHES = 5,
        IMPERIAL_FEET_INCHES = 6,
    };

    virtual ~CVeImperialLength();

    static int Meter2Feet(double m, double& rest);
    static void Meter2Feet(double m, double& rest, int& feet);
    static int Meter2Inches(double m, double& rest);
    static void Meter2Inches(double m, double& rest, int& inches);
    static int Meter2Fractions(double m, int precision, double& rest);
    static void Meter2Fractions(double m, int precision, double& rest, int& fractions);
    static double Meter2Fractions(double m, double& rest);
    static tagIMPERIAL_LENGTH_UNIT Meter2Imperial(double m, int precision, enumIMPERIAL_LENGTH_TYPE type);
    static void Meter2Imperial(double m, int precision, enumIMPERIAL_LENGTH_TYPE type, tagIMPERIAL_LENGTH_UNIT& unit);
    static void Meter2Imperial(double m, int precision, enumIMPERIAL_LENGTH_TYPE type, int& feet, int& inches,
                               int& fraction);

    static double Feet2Meter(int feet);
    static void Feet2Meter(int feet, double& m);
    static double Inches2Meter(int inches);
    static void Inches2Meter(int inches, double& m);
    static double Fractions2Meter(int numerator, int precision);
    static void Fractions2Meter(int numerator, int precision, double& m);
    static double Imperial2Meter(const tagIMPERIAL_LENGTH_UNIT& unit, int precision);
    static void Imperial2Meter(const tagIMPERIAL_LENGTH_UNIT& unit, int precision, double& m);
    static double Imperial2Meter(int feet, int inches, int numerator, int precision);
    static void Imperial2Meter(int feet, int inches, int numerator, int precision, double& m);

    static bool ImperialStr2Imperial(const wchar_t* text, enumIMPERIAL_LENGTH_TYPE type, bool& positive, int& feet,
                                     int& inches, int& numerator, int& denominatorPower);
    static bool ImperialStr2Imperial(const wchar_t* text, enumIMPERIAL_LENGTH_TYPE type, tagIMPERIAL_LENGTH_UNIT& unit,
                                     int& denominatorPower);
    static bool ImperialStr2Meter(const wchar_t* text, enumIMPERIAL_LENGTH_TYPE type, double& m);
    static bool ImperialStr2Feet(const wchar_t* text, enumIMPERIAL_LENGTH_TYPE type, double& feet);
    static bool ImperialStr2Inches(const wchar_t* text, enumIMPERIAL_LENGTH_TYPE type, double& inches);
    static bool ImperialStr2Value(const wchar_t* text, const CVeUnitBase& unit, double& value);
    static void Meter2ImperialStr(double m, int precision, enumIMPERIAL_LENGTH_TYPE type, wchar_t** text);
    static wchar_t* Meter2ImperialStr(double m, int precision, enumIMPERIAL_LENGTH_TYPE type);
};
