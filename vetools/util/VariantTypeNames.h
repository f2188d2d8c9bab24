#pragma once

#include <algorithm>
#include <functional>
#include <iterator>

#include "vetools/platform/Platform.h"

/// The types of a VARIANT by name, and how a value of each reads (internal).

enum class VariantText
{
    Null,      ///< NULL
    Short,     ///< 42
    Long,      ///< 42
    Single,    ///< 4.200000e+01
    Double,    ///< 4.200000e+01
    Currency,  ///< 42.5
    Date,      ///< 01 18 21
    String,    ///< the text itself
    Boolean,   ///< TRUE or FALSE
    Byte,      ///< 0x2A
    TypeName,  ///< VT_UI4
};

struct VariantTypeRow
{
    VARTYPE type;
    const wchar_t* name;
    VariantText text = VariantText::TypeName;
};

// clang-format off
constexpr VariantTypeRow c_variantTypes[] = {
//   type                  name                    text of a value
    {VT_EMPTY,             L"VT_EMPTY",            VariantText::Null},
    {VT_NULL,              L"VT_NULL",             VariantText::Null},
    {VT_I2,                L"VT_I2",               VariantText::Short},
    {VT_I4,                L"VT_I4",               VariantText::Long},
    {VT_R4,                L"VT_R4",               VariantText::Single},
    {VT_R8,                L"VT_R8",               VariantText::Double},
    {VT_CY,                L"VT_CY",               VariantText::Currency},
    {VT_DATE,              L"VT_DATE",             VariantText::Date},
    {VT_BSTR,              L"VT_BSTR",             VariantText::String},
    {VT_DISPATCH,          L"VT_DISPATCH"},
    {VT_ERROR,             L"VT_ERROR"},
    {VT_BOOL,              L"VT_BOOL",             VariantText::Boolean},
    {VT_VARIANT,           L"VT_VARIANT"},
    {VT_UNKNOWN,           L"VT_UNKNOWN"},
    {VT_I1,                L"VT_I1"},  // 14, VT_DECIMAL, has no name
    {VT_UI1,               L"VT_UI1",              VariantText::Byte},
    {VT_UI2,               L"VT_UI2"},
    {VT_UI4,               L"VT_UI4"},
    {VT_I8,                L"VT_I8"},
    {VT_UI8,               L"VT_UI8"},
    {VT_INT,               L"VT_INT"},
    {VT_UINT,              L"VT_UINT"},
    {VT_VOID,              L"VT_VOID"},
    {VT_HRESULT,           L"VT_HRESULT"},
    {VT_PTR,               L"VT_PTR"},
    {VT_SAFEARRAY,         L"VT_SAFEARRAY"},
    {VT_CARRAY,            L"VT_CARRAY"},
    {VT_USERDEFINED,       L"VT_USERDEFINED"},
    {VT_LPSTR,             L"VT_LPSTR"},
    {VT_LPWSTR,            L"VT_LPWSTR"},
    {VT_FILETIME,          L"VT_FILETIME"},
    {VT_BLOB,              L"VT_BLOB"},
    {VT_STREAM,            L"VT_STREAM"},
    {VT_STORAGE,           L"VT_STORAGE"},
    {VT_STREAMED_OBJECT,   L"VT_STREAMED_OBJECT"},
    {VT_STORED_OBJECT,     L"VT_STORED_OBJECT"},
    {VT_BLOB_OBJECT,       L"VT_BLOB_OBJECT"},
    {VT_CF,                L"VT_CF"},
    {VT_CLSID,             L"VT_CLSID"},
};
// clang-format on
static_assert(std::ranges::adjacent_find(c_variantTypes, std::greater_equal<>(), &VariantTypeRow::type) ==
                  std::end(c_variantTypes),
              "types ascend, one row each");

/// The row of a type; null for one without a name, which every type with a flag is.
constexpr const VariantTypeRow* FindVariantType(VARTYPE type)
{
    const auto row = std::ranges::lower_bound(c_variantTypes, type, std::less<>(), &VariantTypeRow::type);
    return row != std::end(c_variantTypes) && row->type == type ? row : nullptr;
}
