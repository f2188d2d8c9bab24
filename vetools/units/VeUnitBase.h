#pragma once

#include <vector>

#include "vetools/framework/CString.h"
#include "vetools/platform/Export.h"
#include "vetools/units/UnitTypes.h"

class VETOOLS_API CVeUnitBase
{
public:
    static const int c_arrayTypeNumber[26][2];
    static const wchar_t* const c_arrayPrecision[9];
    static const wchar_t* const c_arrayImperialPrecision[9][2];

    CVeUnitBase();
    CVeUnitBase(unsigned int idUnit, unsigned int range, unsigned int precision, wchar_t sep, double metricsFactor,
                int removeTrailingZeroes);
    CVeUnitBase(const CVeUnitBase& other);
    virtual ~CVeUnitBase();
    CVeUnitBase& operator=(const CVeUnitBase& other);
    CVeUnitBase* GetClone() const;

    int operator==(const CVeUnitBase& other) const;
    int operator!=(const CVeUnitBase& other) const;

    unsigned int GetIDUnit() const;
    unsigned int GetRange() const;
    unsigned int GetPrecision() const;
    void SetPrecision(unsigned int precision);
    int GetExponent() const;
    void SetExponent(int exponent);
    wchar_t GetSep() const;
    void SetSep(wchar_t sep);
    double GetCoef() const;
    void SetCoef(double coef);
    Unit::UNIT_TYPE GetType() const;
    void SetUnitType(Unit::UNIT_TYPE type);
    double GetMetricsFactor() const;
    void SetMetricsFactor(double factor);
    Unit::enumUNITFORMAT GetUnitFormat() const;
    bool SetUnitFormat(Unit::enumUNITFORMAT format);
    int GetRemoveTrailingZeroes() const;
    void SetRemoveTrailingZeroes(int remove);
    void SetIdUnit(unsigned int idUnit);
    void SetRange(unsigned int range);
    void SetIdUnitAndRange(unsigned int idUnit, unsigned int range);
    void SetName(const wchar_t* name);
    void SetUnitValues(const wchar_t* title, const wchar_t* name, double coef);
    void Dump() const;

    void SI2Double(double& value, int useMetricsFactor) const;
    void Double2SI(double& value, int useMetricsFactor) const;

    CVeUnitBase operator*(CVeUnitBase& other) const;
    CVeUnitBase operator/(CVeUnitBase& other) const;
    CVeUnitBase& operator*=(CVeUnitBase& other);
    CVeUnitBase& operator/=(CVeUnitBase& other);
    static CVeUnitBase MakeUnit(CVeUnitBase* unit, int exponent, ...);
    static void MakeUnit(CVeUnitBase* result, CVeUnitBase* unit, int exponent, ...);

    CString GetName() const;
    wchar_t* GetTitle();
    CString GetTitlePlural() const;
    static CString GetStringUnits(unsigned int idUnit, int range);
    static bool GetRangeFromUnitName(const wchar_t* symbol, unsigned int* range);
    static bool GetRangeFromUnitTitle(const wchar_t* title, unsigned int* range);
    static std::vector<CString> GetAllUnitsSymbols(unsigned int idUnit);
    static void EliminateUnitsSymbol(unsigned int idUnit, CString& text);

    // Value text: declared with the unit, defined in valuetext/.
    CString Double2String(wchar_t* buffer, double value, int withUnit, const wchar_t* format, int applyMetricsFactor,
                          int removeTrailingZeros, unsigned int bufferSize, int reserved, int smallValuesAsExponent,
                          int smallValueThreshold) const;
    CString Double2String(wchar_t* buffer, int superscriptSubUnits, double value, int withUnit, const wchar_t* format,
                          int applyMetricsFactor, int removeTrailingZeros, unsigned int bufferSize,
                          int dropZeroSuperscript, int reserved, int smallValuesAsExponent,
                          int smallValueThreshold) const;
    double String2Double(const wchar_t* text, int* ok, int applyMetricsFactor) const;
    static void EliminatePrecision(CString& text);
    static bool ReplaceNumberSeparator(wchar_t separator, CString& text);

private:
    friend class CVeUnitManager;

    void UpdateDataUnit(bool alternativeTitles);

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
