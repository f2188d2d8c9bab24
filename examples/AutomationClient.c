/* A client in C of the COM interface of a unit: of the library it needs this one header. */
#define COBJMACROS
#define INITGUID
#include "vetools/unitmanager/ComUnitC.h"

#include <stdio.h>

/* Chooses a unit of length and shows how long 100 metres are in it. Returns 0 when everything went well. */
int ShowHundredMetres(IUnknown* object, unsigned int range)
{
    IComUnit* unit = NULL;
    if (FAILED(object->lpVtbl->QueryInterface(object, &IID_IComUnit, (void**)&unit)))
        return 1;

    double coefficient = 0.0;
    BSTR name = NULL;
    HRESULT result = IComUnit_SetRange(unit, range);
    if (SUCCEEDED(result))
        result = IComUnit_GetCoefficient(unit, &coefficient);
    if (SUCCEEDED(result))
        result = IComUnit_GetName(unit, &name);
    if (SUCCEEDED(result))
        printf("100 m are %.3f %ls\n", 100.0 * coefficient, name);

    SysFreeString(name);
    IComUnit_Release(unit);
    return FAILED(result);
}
