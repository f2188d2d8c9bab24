// A text as a number of every type, as a Boolean and as a date: no text is read beyond its end, a failure leaves the
// destination alone, and what is written of a value without rounding it is read as that value. Bytes as a text and back.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "fuzz/FuzzText.h"
#include "vetools/platform/Platform.h"

namespace
{

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

bool IsExpectedFailure(HRESULT result)
{
    return result == DISP_E_TYPEMISMATCH || result == DISP_E_OVERFLOW || result == E_INVALIDARG;
}

/// A value that is cleared in the end.
struct Value : VARIANT
{
    Value() { ::VariantInit(this); }
    Value(const Value&) = delete;
    Value& operator=(const Value&) = delete;
    ~Value() { Require(::VariantClear(this) == S_OK); }
};

bool HaveSameContent(const VARIANT& left, const VARIANT& right)
{
    if (left.vt == VT_DECIMAL)
    {
        return left.decVal.signscale == right.decVal.signscale && left.decVal.Hi32 == right.decVal.Hi32 &&
               left.decVal.Lo64 == right.decVal.Lo64;
    }
    return std::memcmp(&left.llVal, &right.llVal, sizeof left.llVal) == 0;
}

/// Integers and money are written with all their digits.
bool IsWrittenExactly(VARTYPE type)
{
    return type != VT_R4 && type != VT_R8 && type != VT_DATE && type != VT_DECIMAL;
}

void ReadAs(VARTYPE type, VARIANT& text)
{
    Value value;
    const HRESULT result = ::VariantChangeType(&value, &text, 0, type);
    if (FAILED(result))
    {
        Require(IsExpectedFailure(result) && value.vt == VT_EMPTY);
        return;
    }
    Require(value.vt == type);

    Value written;
    const HRESULT writeResult = ::VariantChangeType(&written, &value, 0, VT_BSTR);
    Require(writeResult == S_OK && ::SysStringLen(written.bstrVal) > 0);
    Value back;
    const HRESULT backResult = ::VariantChangeType(&back, &written, 0, type);
    // A number near the end of its range may be written as one beyond it.
    Require(backResult == S_OK || (backResult == DISP_E_OVERFLOW && !IsWrittenExactly(type)));
    if (IsWrittenExactly(type))
        Require(HaveSameContent(value, back));
    // Once written, the text stays, except that of a float, which holds not quite seven digits.
    Value again;
    if (backResult == S_OK && type != VT_R4)
    {
        Require(::VariantChangeType(&again, &back, 0, VT_BSTR) == S_OK);
        Require(std::wcscmp(written.bstrVal, again.bstrVal) == 0);
    }
}

void ReadBytes(const std::uint8_t* data, std::size_t size)
{
    Value bytes;
    bytes.parray = ::SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(size));
    bytes.vt = VT_ARRAY | VT_UI1;
    if (size > 0)
        std::memcpy(bytes.parray->pvData, data, size);
    Value text;
    Require(::VariantChangeType(&text, &bytes, 0, VT_BSTR) == S_OK);
    Require(std::wcslen(text.bstrVal) <= (size + 1) / 2);
    Value back;
    Require(::VariantChangeType(&back, &text, 0, VT_ARRAY | VT_UI1) == S_OK);
    Require(back.parray->rgsabound[0].cElements == size);
    Require(size == 0 || std::memcmp(back.parray->pvData, data, size) == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::wstring characters = TextOf(data, size);
    Value text;
    text.bstrVal = ::SysAllocStringLen(characters.data(), static_cast<UINT>(characters.size()));
    text.vt = VT_BSTR;
    for (const VARTYPE type : {VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4, VT_UI4, VT_I8, VT_UI8, VT_INT, VT_UINT, VT_R4,
                               VT_R8, VT_CY, VT_DECIMAL, VT_BOOL, VT_DATE})
        ReadAs(type, text);
    ReadBytes(data, size);
    return 0;
}
