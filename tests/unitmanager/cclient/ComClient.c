/* A client in C: of the library's headers it includes the one that is made from ComUnit.idl, and nothing else. */
#define COBJMACROS
#define INITGUID
#include "vetools/unitmanager/ComUnitC.h"

#include "tests/unitmanager/cclient/ComClient.h"

#include <stddef.h>
#include <wchar.h>

#define SLOT_IS(method, slot)                                                                                          \
    _Static_assert(offsetof(IComUnitVtbl, method) == (slot) * sizeof(void*), #method " is slot " #slot)

SLOT_IS(QueryInterface, 0);
SLOT_IS(AddRef, 1);
SLOT_IS(Release, 2);
SLOT_IS(SetRange, 3);
SLOT_IS(SetPrecision, 4);
SLOT_IS(SetSeparator, 5);
SLOT_IS(GetRange, 6);
SLOT_IS(GetCoefficient, 7);
SLOT_IS(GetName, 8);
SLOT_IS(GetTitle, 9);
SLOT_IS(GetUnit, 10);
_Static_assert(sizeof(IComUnitVtbl) == 11 * sizeof(void*), "there are no more slots");

#define TEXT_OF(value) #value
#define EXPANDED_TEXT_OF(value) TEXT_OF(value)
#define EXPECT(condition)                                                                                              \
    do                                                                                                                 \
    {                                                                                                                  \
        if (!(condition))                                                                                              \
            return __FILE__ ":" EXPANDED_TEXT_OF(__LINE__) ": " #condition;                                            \
    } while (0)

static int TakeAndCompare(BSTR text, const wchar_t* expected)
{
    const int same = text && wcscmp(text, expected) == 0 && SysStringLen(text) == wcslen(expected);
    SysFreeString(text);
    return same;
}

const void* ComClientInterfaceId(void)
{
    return &IID_IComUnit;
}

const char* ComClientUsesEverySlot(void* object)
{
    IComUnit* unit = (IComUnit*)object;
    void* again = NULL;
    EXPECT(IComUnit_QueryInterface(unit, &IID_IComUnit, &again) == S_OK);
    EXPECT(again == object);
    EXPECT(IComUnit_Release(unit) == 2);
    EXPECT(IComUnit_AddRef(unit) == 3);
    EXPECT(IComUnit_Release(unit) == 2);

    EXPECT(IComUnit_SetRange(unit, 1) == S_OK);
    EXPECT(IComUnit_SetPrecision(unit, 7) == S_OK);
    EXPECT(IComUnit_SetSeparator(unit, L";") == S_OK);
    EXPECT(IComUnit_SetSeparator(unit, L"") == E_FAIL);

    unsigned int range = 99;
    EXPECT(IComUnit_GetRange(unit, &range) == S_OK);
    EXPECT(range == 1);
    double coefficient = 0.0;
    EXPECT(IComUnit_GetCoefficient(unit, &coefficient) == S_OK);
    EXPECT(coefficient == 1000.0);
    BSTR text = NULL;
    EXPECT(IComUnit_GetName(unit, &text) == S_OK);
    EXPECT(TakeAndCompare(text, L"mm"));
    EXPECT(IComUnit_GetTitle(unit, &text) == S_OK);
    EXPECT(TakeAndCompare(text, L"Millim\u00E8tre"));
    void* owner = NULL;
    EXPECT(IComUnit_GetUnit(unit, &owner) == S_OK);
    EXPECT(owner != NULL);
    return NULL;
}

const char* ComClientGivesNullOutputs(void* object)
{
    IComUnit* unit = (IComUnit*)object;
    EXPECT(IComUnit_QueryInterface(unit, &IID_IComUnit, NULL) == E_POINTER);
    EXPECT(IComUnit_SetSeparator(unit, NULL) == E_FAIL);
    EXPECT(IComUnit_GetRange(unit, NULL) == E_POINTER);
    EXPECT(IComUnit_GetCoefficient(unit, NULL) == E_POINTER);
    EXPECT(IComUnit_GetName(unit, NULL) == E_POINTER);
    EXPECT(IComUnit_GetTitle(unit, NULL) == E_POINTER);
    EXPECT(IComUnit_GetUnit(unit, NULL) == E_POINTER);
    return NULL;
}

const char* ComClientChecksIdentity(void* object)
{
    IComUnit* unit = (IComUnit*)object;
    IUnknown* identity = NULL;
    IUnknown* sameIdentity = NULL;
    IComUnit* back = NULL;
    EXPECT(IComUnit_QueryInterface(unit, &IID_IUnknown, (void**)&identity) == S_OK);
    EXPECT(identity->lpVtbl->QueryInterface(identity, &IID_IComUnit, (void**)&back) == S_OK);
    EXPECT(back == unit);
    EXPECT(IComUnit_QueryInterface(back, &IID_IUnknown, (void**)&sameIdentity) == S_OK);
    EXPECT(sameIdentity == identity);
    EXPECT(sameIdentity->lpVtbl->Release(sameIdentity) == 4);
    EXPECT(IComUnit_Release(back) == 3);
    EXPECT(identity->lpVtbl->Release(identity) == 2);

    const IID unknown = {1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};
    void* nothing = object;
    EXPECT(IComUnit_QueryInterface(unit, &unknown, &nothing) == E_NOINTERFACE);
    EXPECT(nothing == NULL);
    return NULL;
}
