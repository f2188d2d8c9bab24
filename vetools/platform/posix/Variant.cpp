#include <type_traits>

#include "vetools/platform/posix/VariantContent.h"
#include "vetools/platform/posix/VariantTypes.h"
#include "vetools/platform/posix/WinVariant.h"

namespace
{

/// Gives a value that was copied byte by byte what it must own itself; what it shares stays the original's on failure.
HRESULT OwnContent(VARIANT& value)
{
    if ((value.vt & VT_BYREF) != 0)
        return S_OK;
    if ((value.vt & VT_ARRAY) != 0)
        return ::SafeArrayCopy(value.parray, &value.parray);
    if (value.vt == VT_BSTR && value.bstrVal != nullptr)
    {
        value.bstrVal = CopyOf(value.bstrVal);
        return value.bstrVal != nullptr ? S_OK : E_OUTOFMEMORY;
    }
    if ((value.vt == VT_UNKNOWN || value.vt == VT_DISPATCH) && value.punkVal != nullptr)
        value.punkVal->AddRef();
    return S_OK;
}

/// Puts a copy of a value of a valid type in the place of another, which may be the original.
HRESULT ReplaceByCopy(VARIANT& destination, const VARIANT& source)
{
    VARIANT copy = source;
    const HRESULT copied = OwnContent(copy);
    return FAILED(copied) ? copied : HandOver(copy, destination);
}

}  // namespace

static_assert(sizeof(VARIANT) == 24 && sizeof(DECIMAL) == 16 && std::is_trivially_copyable_v<VARIANT>,
              "values are copied as bytes, by hosts as well");

BSTR CopyOf(BSTR text)
{
    return ::SysAllocStringByteLen(reinterpret_cast<const char*>(text), ::SysStringByteLen(text));
}

HRESULT HandOver(VARIANT& made, VARIANT& destination)
{
    const HRESULT cleared = ::VariantClear(&destination);
    if (FAILED(cleared))
        ::VariantClear(&made);
    else
        destination = made;
    return cleared;
}

void VariantInit(VARIANTARG* value)
{
    *value = VARIANT{};
}

HRESULT VariantClear(VARIANTARG* value)
{
    if (value == nullptr)
        return E_INVALIDARG;
    if (!IsValueType(value->vt))
        return DISP_E_BADVARTYPE;

    if ((value->vt & VT_BYREF) != 0)
    {
        value->vt = VT_EMPTY;
        return S_OK;
    }
    if ((value->vt & VT_ARRAY) != 0)
    {
        const HRESULT result = ::SafeArrayDestroy(value->parray);
        if (FAILED(result))
            return result;
    }
    else if (value->vt == VT_BSTR)
        ::SysFreeString(value->bstrVal);
    else if ((value->vt == VT_UNKNOWN || value->vt == VT_DISPATCH) && value->punkVal != nullptr)
        value->punkVal->Release();
    value->vt = VT_EMPTY;
    return S_OK;
}

HRESULT VariantCopy(VARIANTARG* destination, const VARIANTARG* source)
{
    if (destination == nullptr || source == nullptr)
        return E_INVALIDARG;
    if (!IsValueType(source->vt))
        return DISP_E_BADVARTYPE;
    if (destination == source)
        return S_OK;
    return ReplaceByCopy(*destination, *source);
}

HRESULT VariantCopyInd(VARIANT* destination, const VARIANTARG* source)
{
    if (destination == nullptr || source == nullptr || ((source->vt & VT_BYREF) != 0 && !IsValueType(source->vt)))
        return E_INVALIDARG;
    if ((source->vt & VT_BYREF) == 0)
        return ::VariantCopy(destination, source);
    const std::optional<VARIANT> referenced = Dereferenced(*source);
    return referenced ? ReplaceByCopy(*destination, *referenced) : E_INVALIDARG;
}
