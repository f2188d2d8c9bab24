// The display units of a user, kept in a style file of the current folder.
#include <cstdio>

#include "vetools/vetools.h"

int main()
{
    wchar_t folder[] = L"./";
    wchar_t name[] = L"office";
    wchar_t extension[] = L".units";

    CVeUnitManager units(folder, name, extension, L'.', 1.0, 0);
    units.SetVisUnit(Unit::UNIT_ID_FORCE, 7, 3);
    try
    {
        units.SaveStyleUnit();
    }
    catch (CFileException* exception)  // the disk is full: a style that was there is still whole
    {
        std::printf("cause %d\n", exception->m_cause);
        exception->Delete();
        return 1;
    }

    CVeUnitManager another(folder, name, extension, L'.', 1.0, 1);  // loads it
    const CVeUnit& force = another.GetVisUnit(Unit::UNIT_ID_FORCE);
    std::printf("forces in %ls with %u decimals\n", force.GetName().GetString(), force.GetPrecision());

    CFile file(L"./office.units", CFile::modeRead);
    std::printf("%llu bytes\n", static_cast<unsigned long long>(file.GetLength()));
}
