#pragma once

#include <map>

#include "vetools/framework/CString.h"
#include "vetools/platform/Export.h"
#include "vetools/unitmanager/VeCompositeUnit.h"
#include "vetools/unitmanager/VeUnit.h"
#include "vetools/units/UnitSeparator.h"

/// The current display units of one document or one user: one CVeUnit for each of the 26 unit ids, and any number of
/// composite units that the host registers under ids from 27.
///
/// The manager also knows the length system chosen by the user, carried as the metrics factor (display length units per
/// metre), and where its style file lies. The current decimal separator m_cSep, inherited, is one for the whole process.
///
///     CVeUnitManager units;
///     units.SetUnitType(1);                                     // lengths count in millimetres
///     units.SetVisUnit(Unit::UNIT_ID_FORCE, 2, 1);              // forces in kN with one decimal
///     CVeUnit& force = units.GetVisUnit(Unit::UNIT_ID_FORCE);
///
/// A manager is used from one thread at a time. No operation reports an error, unless it says so.
class VETOOLS_API CVeUnitManager : public CVeUnitSeparator
{
public:
    /// What UnitFromString made of a text.
    enum statusCode
    {
        STATUS_OK = 0,       ///< recognised; the unit has been set
        STATUS_EMPTY = 1,    ///< the text is empty; the unit is untouched
        STATUS_UNKNOWN = 2,  ///< the text, or one side of a quotient, is no known unit; the unit is untouched
    };

    /// The initial units (see SetDefaultValues), metrics factor 1.0, no paths, no composites.
    CVeUnitManager();

    /// The initial units, made with the separator that was current before the call; then `separator` becomes the current
    /// one for the whole process and `metricsFactor` this manager's. When `load` is not 0, the style `name` is loaded from
    /// `folder` (with its trailing path separator) and `extension` (with its dot); a missing file changes nothing.
    /// The texts are cut to 259 (folder, name) and 255 (extension) characters; null stands for an empty text.
    /// Throws a CFileException when reading the style fails.
    CVeUnitManager(const wchar_t* folder, const wchar_t* name, const wchar_t* extension, wchar_t separator,
                   double metricsFactor, int load);

    /// A deep copy of paths, metrics factor and units. Composites are not copied: they belong to the other manager. A null
    /// pointer gives what the default constructor does.
    explicit CVeUnitManager(CVeUnitManager* other);

    /// As the constructor from a pointer: no unit and no composite is ever shared, so none is deleted twice.
    CVeUnitManager(const CVeUnitManager& other);
    /// As UpdateFromOtherUnitManager: the composites of both managers stay with their owners.
    CVeUnitManager& operator=(const CVeUnitManager& other);

    /// Deletes the 26 units and every registered composite. COM clients must have released the units before.
    virtual ~CVeUnitManager();

    /// Takes over the other's paths, metrics factor and copies of its units; the composites are left as they are and not
    /// updated. References that GetVisUnit returned before are no longer valid. Null changes nothing.
    void UpdateFromOtherUnitManager(CVeUnitManager* other);

    // --- current units -----------------------------------------------------------------------------------------------

    /// The current unit of an id: 1 to 26, or that of a registered composite. Id 0 and ids that nothing is registered
    /// under give the unit of id 1. Owned by the manager.
    CVeUnit& GetVisUnit(unsigned int idUnit);

    /// Makes `unit` the current unit of `idUnit`, 1 to 26, and updates the composites. Other ids change nothing. The
    /// unit's own id is taken over with it, whatever it is.
    void SetVisUnit(unsigned int idUnit, CVeUnit& unit);

    /// Sets range and precision (in decimals) of the current unit of `idUnit`, 1 to 26, and updates the composites. The
    /// precision 0xFFFFFFFF keeps the one that the unit has. Other ids change nothing.
    void SetVisUnit(unsigned int idUnit, unsigned int range, unsigned int precision);

    /// Copies the 26 current units, in the order of their ids, to out[0] to out[25].
    void GetTabUnit(CVeUnit* out);

    /// The style's name, without folder and extension; at most 259 characters are kept.
    void SetNameStyleUnit(const wchar_t* name);
    CString GetNameStyleUnit();

    // --- defaults ----------------------------------------------------------------------------------------------------

    /// Makes the 26 initial units: current separator, metrics factor 1.0, trailing zeros removed. What the constructors
    /// call; a manager that has its units is reset by LoadDefaultUnits.
    /// Kept: units that the manager had are not deleted. They belong to whoever holds their addresses from then on.
    void SetDefaultValues();

    /// The default unit of `idUnit`; a default-made unit (the metre) for an id outside 1 to 26. Not the same set as the
    /// initial units.
    CVeUnit GetDefaultUnit(unsigned int idUnit) const;

    /// Sets every current unit to its default, with metrics factor 1.0; the manager's factor stays. Call
    /// UpdateUnitsMetricsFactor(GetMetricsFactor()) afterwards when both must agree, and UpdateCompositeUnits.
    void LoadDefaultUnits();

    // --- length system -----------------------------------------------------------------------------------------------

    /// The code of the length system: 1 mm, 2 cm, 3 dm, 4 m, 5 inch, 6 foot; -1 for any other metrics factor.
    int GetUnitType() const;
    /// Sets the metrics factor of a length system here and in the units; other codes change nothing.
    void SetUnitType(int code);
    /// The code that a factor stands for: (f - factor)² <= 1e-20; -1 when none matches.
    static int FactorToType(double f);
    /// Whether a factor is that of mm, cm, dm or m.
    static bool IsMetric(double f);
    bool IsMetric();
    /// The symbol of a length system's unit; empty for any other code.
    static CString GetStringUnits(int code);

    /// Gives the metrics factor to the units of the length ids, and 1.0 to the others. The manager's own stays.
    void UpdateUnitsMetricsFactor(double f);
    /// Stores the metrics factor and gives it to the units; returns it. Kept: it writes although it is const.
    double SetMetricsFactor(double f) const;
    double GetMetricsFactor() const;

    /// A value shown in `unit`, in the reference unit: (value - temperature offset) / coefficient * metrics factor.
    double GetValueUnitRef(double value, const CVeUnit& unit);

    // --- composite units ---------------------------------------------------------------------------------------------

    /// Registers a composite under an id and takes ownership of it. False, and the composite stays the caller's, when the
    /// id is below 27 or taken, when `unit` is null, or when its update (with CVeCompositeUnit::c_allUnits) fails.
    bool AddCompositeUnit(CVeCompositeUnit* unit, unsigned int id);
    /// Updates every composite, in ascending order of ids, after the unit of `idUnit` changed. Always true.
    bool UpdateCompositeUnits(unsigned int idUnit);

    // --- style files -------------------------------------------------------------------------------------------------

    /// Writes the 26 units to folder + name + extension. Always 1: a file that can't be opened is not written, and nothing
    /// is reported. Throws a CFileException when writing fails; a style that was there before is then still whole.
    int SaveStyleUnit();
    /// Takes `name` as the style's name, then does what SaveStyleUnit does.
    int SaveAsStyleUnit(const wchar_t* name);

    /// Takes `name` as the style's name, reads the style and refreshes every unit from the catalogue, also when there is
    /// no such file. Always 1. Units whose records the file's version lacks stay as they are: 22 to 26 up to version 1001,
    /// and 13 and 14 up to version 1000. Metrics factors and composites are not brought up to date.
    /// Throws a CFileException when reading fails.
    int LoadStyleUnit(const wchar_t* name);
    /// Reads the style of the current name. Always 1. Kept: up to version 1000 the unit that is not read is 12 instead of
    /// 13 and 14, and nothing is refreshed afterwards.
    int LoadStyleUnit();

    // --- recognition -------------------------------------------------------------------------------------------------

    /// The unit that a text stands for: one of the known spellings, in upper or lower case ("kN", "cm4", "''"), or a
    /// quotient of such ("kN/m2"; a/b/c is a divided by b/c). White space is not trimmed.
    ///
    /// Precision and metrics factor of `out` are left as they were, its separator becomes the current one; a quotient
    /// replaces all of it.
    /// Kept: the spellings of forces give the id of the masses, with the range of the force. Where the masses have no such
    /// range, texts and coefficient stay those that `out` had before.
    /// Kept: a power that `out` had goes into the coefficient: after a square, that of "mm" is the root of 1000.
    /// Kept: "daN/mm²" and its kind are unknown, while "dan/mm2" is a quotient.
    static statusCode UnitFromString(CString text, CVeUnit& out);

private:
    static CVeUnit* GetDefaultUnitPtr(unsigned int idUnit);

    CString StylePath() const;
    template <typename Predicate>
    void ReadStyle(Predicate hasRecord);

    wchar_t m_folder[260] = {};
    wchar_t m_styleName[260] = {};
    wchar_t m_extension[256] = {};
    CVeUnit* m_units[26] = {};  ///< null where there was no memory for a unit
    mutable double m_metricsFactor = 1.0;
    std::map<unsigned int, CVeCompositeUnit*> m_composites;
};
