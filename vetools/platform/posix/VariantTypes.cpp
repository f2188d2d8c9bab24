#include "vetools/platform/posix/VariantTypes.h"

#include <cstdint>
#include <cstring>

namespace
{

enum class Where : std::uint8_t
{
    Value,        // in a VARIANT, as it is
    Everywhere,   // there, by reference and in arrays
    OnlyInArrays  // pointers as numbers
};

struct TypeRow
{
    VARTYPE type;
    std::uint8_t size;
    Where where;
};

// clang-format off
constexpr TypeRow c_types[] = {
//   type         bytes            where
    {VT_EMPTY,    0,               Where::Value},
    {VT_NULL,     0,               Where::Value},
    {VT_I2,       sizeof(SHORT),   Where::Everywhere},
    {VT_I4,       sizeof(LONG),    Where::Everywhere},
    {VT_R4,       sizeof(FLOAT),   Where::Everywhere},
    {VT_R8,       sizeof(DOUBLE),  Where::Everywhere},
    {VT_CY,       sizeof(CY),      Where::Everywhere},
    {VT_DATE,     sizeof(DATE),    Where::Everywhere},
    {VT_BSTR,     sizeof(BSTR),    Where::Everywhere},
    {VT_DISPATCH, sizeof(void*),   Where::Everywhere},
    {VT_ERROR,    sizeof(SCODE),   Where::Everywhere},
    {VT_BOOL,     sizeof(VARIANT_BOOL), Where::Everywhere},
    {VT_VARIANT,  sizeof(VARIANT), Where::Everywhere},
    {VT_UNKNOWN,  sizeof(void*),   Where::Everywhere},
    {VT_DECIMAL,  sizeof(DECIMAL), Where::Everywhere},
    {VT_I1,       sizeof(CHAR),    Where::Everywhere},
    {VT_UI1,      sizeof(BYTE),    Where::Everywhere},
    {VT_UI2,      sizeof(USHORT),  Where::Everywhere},
    {VT_UI4,      sizeof(ULONG),   Where::Everywhere},
    {VT_I8,       sizeof(LONGLONG), Where::Everywhere},
    {VT_UI8,      sizeof(ULONGLONG), Where::Everywhere},
    {VT_INT,      sizeof(INT),     Where::Everywhere},
    {VT_UINT,     sizeof(UINT),    Where::Everywhere},
    {VT_RECORD,   0,               Where::Value},
    {VT_INT_PTR,  sizeof(void*),   Where::OnlyInArrays},
    {VT_UINT_PTR, sizeof(void*),   Where::OnlyInArrays},
};
// clang-format on

const TypeRow* RowOf(VARTYPE type)
{
    for (const TypeRow& row : c_types)
    {
        if (row.type == type)
            return &row;
    }
    return nullptr;
}

/// What a reference to a value of a base type refers to.
VARIANT Referenced(VARTYPE type, const void* place)
{
    VARIANT value{};
    if (type == VT_DECIMAL)
        std::memcpy(&value.decVal, place, sizeof(DECIMAL));
    else
        std::memcpy(&value.llVal, place, ElementSize(type));
    value.vt = type;
    return value;
}

}  // namespace

bool IsValueType(VARTYPE type)
{
    constexpr VARTYPE allowed = VT_TYPEMASK | VT_ARRAY | VT_BYREF;
    const TypeRow* const row = RowOf(BaseType(type));
    if (row == nullptr || row->where == Where::OnlyInArrays || (type & ~allowed) != 0)
        return false;
    return row->where == Where::Everywhere || type == row->type;
}

std::size_t ElementSize(VARTYPE type)
{
    const TypeRow* const row = RowOf(type);
    return row != nullptr ? row->size : 0;
}

std::optional<VARIANT> Dereferenced(const VARIANT& value)
{
    if ((value.vt & VT_BYREF) == 0)
        return value;
    if (value.byref == nullptr)
        return std::nullopt;
    if ((value.vt & VT_ARRAY) != 0)
    {
        VARIANT array{};
        array.vt = value.vt & ~VT_BYREF;
        array.parray = *value.pparray;
        return array;
    }
    if (BaseType(value.vt) != VT_VARIANT)
        return Referenced(BaseType(value.vt), value.byref);

    const VARIANT& inner = *value.pvarVal;
    const bool isThird = inner.vt == (VT_BYREF | VT_VARIANT);
    return isThird || !IsValueType(inner.vt) ? std::nullopt : Dereferenced(inner);
}
