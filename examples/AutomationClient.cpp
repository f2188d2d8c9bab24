// The host of AutomationClient.c: it owns the units and hands one out as a COM pointer.
#include "vetools/unitmanager/VeUnitManager.h"

extern "C" int ShowHundredMetres(IUnknown* object, unsigned int range);

int main()
{
    CVeUnitManager units;
    CVeUnit& length = units.GetVisUnit(Unit::UNIT_ID_LENGTH);

    void* object = nullptr;
    if (FAILED(length.ExternalQueryInterface(&IID_IUnknown, &object)))
        return 1;
    auto* client = static_cast<IUnknown*>(object);
    const int inches = ShowHundredMetres(client, 5);
    const int feet = ShowHundredMetres(client, 6);
    client->Release();  // before the manager deletes its units

    return inches == 0 && feet == 0 && length.GetRange() == 6 ? 0 : 1;
}
