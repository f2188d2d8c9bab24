#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "vetools/platform/posix/VariantContent.h"
#include "vetools/platform/posix/VariantTypes.h"
#include "vetools/platform/posix/WinVariant.h"

namespace
{

/// What stands in front of an array: the type of its elements, where the system has it, and what keeps the array aligned.
struct ArrayHeader
{
    std::uint64_t padding;
    std::uint32_t reserved;
    std::uint32_t elementType;
};

constexpr ULONG c_maxLocks = 0xFFFF;
constexpr UINT c_maxDimensions = 0xFFFF;
/// The size of an array in bytes is one of 32 bits, as is that of an element.
constexpr std::uint64_t c_maxDataSize = std::numeric_limits<ULONG>::max();

ArrayHeader* HeaderOf(SAFEARRAY* array)
{
    return reinterpret_cast<ArrayHeader*>(array) - 1;
}

/// Whether SafeArrayCreate made this array: only then is there a header, and memory to free.
bool HasHeader(const SAFEARRAY* array)
{
    return (array->fFeatures & FADF_HAVEVARTYPE) != 0;
}

VARTYPE ElementType(SAFEARRAY* array)
{
    return static_cast<VARTYPE>(HeaderOf(array)->elementType);
}

USHORT FeaturesFor(VARTYPE type)
{
    switch (type)
    {
    case VT_BSTR:
        return FADF_HAVEVARTYPE | FADF_BSTR;
    case VT_DISPATCH:
        return FADF_HAVEVARTYPE | FADF_DISPATCH;
    case VT_UNKNOWN:
        return FADF_HAVEVARTYPE | FADF_UNKNOWN;
    case VT_VARIANT:
        return FADF_HAVEVARTYPE | FADF_VARIANT;
    default:
        return FADF_HAVEVARTYPE;
    }
}

/// The bytes of all elements, and more than there may be when there are too many.
std::uint64_t DataSize(std::size_t elementSize, const SAFEARRAYBOUND* bounds, UINT dimensions)
{
    std::uint64_t size = elementSize;
    for (UINT i = 0; i < dimensions; ++i)
    {
        if (bounds[i].cElements == 0)
            return 0;
    }
    for (UINT i = 0; i < dimensions && size <= c_maxDataSize; ++i)
        size *= bounds[i].cElements;
    return size;
}

std::uint64_t DataSize(const SAFEARRAY* array)
{
    return DataSize(array->cbElements, array->rgsabound, array->cDims);
}

/// An array without elements for the bounds that it will get.
SAFEARRAY* AllocateDescriptor(VARTYPE type, UINT dimensions)
{
    const std::size_t size = sizeof(ArrayHeader) + sizeof(SAFEARRAY) + (dimensions - 1) * sizeof(SAFEARRAYBOUND);
    auto* const header = static_cast<ArrayHeader*>(std::calloc(1, size));
    if (header == nullptr)
        return nullptr;
    header->elementType = type;
    auto* const array = reinterpret_cast<SAFEARRAY*>(header + 1);
    array->cDims = static_cast<USHORT>(dimensions);
    array->fFeatures = FeaturesFor(type);
    array->cbElements = static_cast<ULONG>(ElementSize(type));
    return array;
}

/// Gives an array its elements, all zero. An array without elements has no memory for them.
bool AllocateData(SAFEARRAY* array)
{
    const std::uint64_t size = DataSize(array);
    if (size > c_maxDataSize)
        return false;
    if (size > 0)
        array->pvData = std::calloc(1, static_cast<std::size_t>(size));
    return size == 0 || array->pvData != nullptr;
}

template <class Element, class Visitor>
void ForEachElement(SAFEARRAY* array, Visitor visit)
{
    auto* const elements = static_cast<Element*>(array->pvData);
    const std::size_t count = static_cast<std::size_t>(DataSize(array)) / sizeof(Element);
    for (std::size_t i = 0; i < count; ++i)
        visit(elements[i]);
}

void FreeContent(SAFEARRAY* array)
{
    switch (ElementType(array))
    {
    case VT_BSTR:
        ForEachElement<BSTR>(array, [](BSTR text) { ::SysFreeString(text); });
        break;
    case VT_VARIANT:
        ForEachElement<VARIANT>(array, [](VARIANT& value) { ::VariantClear(&value); });
        break;
    case VT_UNKNOWN:
    case VT_DISPATCH:
        ForEachElement<IUnknown*>(array,
                                  [](IUnknown* object)
                                  {
                                      if (object != nullptr)
                                          object->Release();
                                  });
        break;
    default:
        break;
    }
}

void FreeMemory(SAFEARRAY* array)
{
    std::free(array->pvData);
    std::free(HeaderOf(array));
}

bool CopyElement(BSTR source, BSTR& copy)
{
    if (source != nullptr)
        copy = CopyOf(source);
    return source == nullptr || copy != nullptr;
}

bool CopyElement(const VARIANT& source, VARIANT& copy)
{
    return SUCCEEDED(::VariantCopy(&copy, &source));
}

bool CopyElement(IUnknown* source, IUnknown*& copy)
{
    if (source != nullptr)
        source->AddRef();
    copy = source;
    return true;
}

/// Copies elements that own something into an array of zeros of the same bounds. What was copied stands in the copy also on
/// failure.
template <class Element>
bool CopyElements(SAFEARRAY* source, SAFEARRAY* copy)
{
    const auto* from = static_cast<const Element*>(source->pvData);
    bool copied = true;
    ForEachElement<Element>(copy, [&](Element& to) { copied = copied && CopyElement(*from++, to); });
    return copied;
}

bool CopyContent(SAFEARRAY* source, SAFEARRAY* copy)
{
    switch (ElementType(source))
    {
    case VT_BSTR:
        return CopyElements<BSTR>(source, copy);
    case VT_VARIANT:
        return CopyElements<VARIANT>(source, copy);
    case VT_UNKNOWN:
    case VT_DISPATCH:
        return CopyElements<IUnknown*>(source, copy);
    default:
        if (source->pvData != nullptr)
            std::memcpy(copy->pvData, source->pvData, static_cast<std::size_t>(DataSize(source)));
        return true;
    }
}

/// Hands a bound of a dimension over, as a function takes it from both. Dimensions count from 1 for the first, whose bounds
/// stand last.
template <class BoundOf>
HRESULT GetBound(const SAFEARRAY* array, UINT dimension, LONG* bound, BoundOf boundOf)
{
    if (array == nullptr || bound == nullptr)
        return E_INVALIDARG;
    if (dimension == 0 || dimension > array->cDims)
        return DISP_E_BADINDEX;
    *bound = boundOf(array->rgsabound[array->cDims - dimension]);
    return S_OK;
}

}  // namespace

SAFEARRAY* SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds)
{
    if (ElementSize(type) == 0 || dimensions == 0 || dimensions > c_maxDimensions || bounds == nullptr)
        return nullptr;
    SAFEARRAY* const array = AllocateDescriptor(type, dimensions);
    if (array == nullptr)
        return nullptr;
    for (UINT i = 0; i < dimensions; ++i)
        array->rgsabound[dimensions - 1 - i] = bounds[i];
    if (AllocateData(array))
        return array;
    FreeMemory(array);
    return nullptr;
}

SAFEARRAY* SafeArrayCreateVector(VARTYPE type, LONG lowerBound, ULONG elements)
{
    SAFEARRAYBOUND bound = {elements, lowerBound};
    return ::SafeArrayCreate(type, 1, &bound);
}

HRESULT SafeArrayDestroy(SAFEARRAY* array)
{
    if (array == nullptr)
        return S_OK;
    if (array->cLocks > 0)
        return DISP_E_ARRAYISLOCKED;
    if (!HasHeader(array))
        return E_INVALIDARG;
    FreeContent(array);
    FreeMemory(array);
    return S_OK;
}

HRESULT SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** copy)
{
    if (copy == nullptr)
        return E_INVALIDARG;
    if (array == nullptr)
    {
        *copy = nullptr;
        return S_OK;
    }
    if (!HasHeader(array) || array->cDims == 0)
        return E_INVALIDARG;

    SAFEARRAY* const made = AllocateDescriptor(ElementType(array), array->cDims);
    if (made == nullptr)
        return E_OUTOFMEMORY;
    std::memcpy(made->rgsabound, array->rgsabound, array->cDims * sizeof(SAFEARRAYBOUND));
    if (AllocateData(made) && CopyContent(array, made))
    {
        *copy = made;
        return S_OK;
    }
    if (made->pvData != nullptr)
        FreeContent(made);
    FreeMemory(made);
    return E_OUTOFMEMORY;
}

HRESULT SafeArrayLock(SAFEARRAY* array)
{
    if (array == nullptr)
        return E_INVALIDARG;
    if (array->cLocks >= c_maxLocks)
        return E_UNEXPECTED;
    ++array->cLocks;
    return S_OK;
}

HRESULT SafeArrayUnlock(SAFEARRAY* array)
{
    if (array == nullptr)
        return E_INVALIDARG;
    if (array->cLocks == 0)
        return E_UNEXPECTED;
    --array->cLocks;
    return S_OK;
}

HRESULT SafeArrayAccessData(SAFEARRAY* array, void** data)
{
    if (array == nullptr || data == nullptr)
        return E_INVALIDARG;
    const HRESULT result = ::SafeArrayLock(array);
    *data = SUCCEEDED(result) ? array->pvData : nullptr;
    return result;
}

HRESULT SafeArrayUnaccessData(SAFEARRAY* array)
{
    return ::SafeArrayUnlock(array);
}

UINT SafeArrayGetDim(SAFEARRAY* array)
{
    return array != nullptr ? array->cDims : 0;
}

UINT SafeArrayGetElemsize(SAFEARRAY* array)
{
    return array != nullptr ? array->cbElements : 0;
}

HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound)
{
    return GetBound(array, dimension, bound, [](const SAFEARRAYBOUND& bounds) { return bounds.lLbound; });
}

HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound)
{
    // In unsigned numbers: without elements it is one less than the lower bound, and a bound beyond a LONG wraps.
    return GetBound(array, dimension, bound,
                    [](const SAFEARRAYBOUND& bounds)
                    { return static_cast<LONG>(static_cast<ULONG>(bounds.lLbound) + bounds.cElements - 1); });
}

HRESULT SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* type)
{
    if (array == nullptr || type == nullptr || !HasHeader(array))
        return E_INVALIDARG;
    *type = ElementType(array);
    return S_OK;
}
