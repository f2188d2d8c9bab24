#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/SystemValue.h"

namespace
{

// As of every interface: Release would end the object.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// An object that counts its references, and gives the value that it is told to give. It is never freed.
class CountedObject : public IDispatch
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        const bool isKnown = std::memcmp(&iid, &IID_IUnknown, sizeof(IID)) == 0 ||
                             (m_hasValue && std::memcmp(&iid, &IID_IDispatch, sizeof(IID)) == 0);
        *object = isKnown ? this : nullptr;
        m_references += isKnown ? 1 : 0;
        return isKnown ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override { return --m_references; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override
    {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, OLECHAR**, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                                     EXCEPINFO*, UINT*) override
    {
        if (!m_hasValue || member != DISPID_VALUE || (flags & DISPATCH_PROPERTYGET) == 0 || arguments->cArgs != 0)
            return E_FAIL;
        *result = Text(L"42");
        return S_OK;
    }

    void RemoveValue() { m_hasValue = false; }
    ULONG References() const { return m_references; }

private:
    ULONG m_references = 1;
    bool m_hasValue = true;
};

#pragma GCC diagnostic pop

VARIANT ObjectValue(int type, IDispatch& object)
{
    VARIANT value = Integer(type, 0);
    value.pdispVal = &object;
    return value;
}

}  // namespace

TEST(SystemValue, HasTheLayoutThatHostsCopy)
{
    static_assert(sizeof(VARIANT) == 24 && sizeof(DECIMAL) == 16 && sizeof(CY) == 8 && sizeof(SAFEARRAYBOUND) == 8);
    VARIANT value = Decimal(3, 2, 1, DECIMAL_NEG);
    EXPECT_EQ(VT_DECIMAL, V_VT(&value));
    EXPECT_EQ(VT_DECIMAL, V_DECIMAL(&value).wReserved);
    value = Integer(VT_I8, 0x1122334455667788);
    EXPECT_EQ(0x55667788, V_I4(&value));
    EXPECT_EQ(0x7788, V_I2(&value));
    EXPECT_EQ(0x88, V_UI1(&value));
    EXPECT_EQ(0x55667788u, V_CY(&value).Lo);
    EXPECT_EQ(0x11223344, V_CY(&value).Hi);
}

TEST(SystemValue, IsEmptyAfterInitialising)
{
    VARIANT value = Integer(VT_BSTR, -1);
    ::VariantInit(&value);
    EXPECT_EQ(VT_EMPTY, value.vt);
}

TEST(SystemValue, IsEmptyAfterClearing)
{
    for (const int type : {+VT_EMPTY,
                           +VT_NULL,
                           +VT_I2,
                           +VT_I4,
                           +VT_R4,
                           +VT_R8,
                           +VT_CY,
                           +VT_DATE,
                           +VT_BSTR,
                           +VT_DISPATCH,
                           +VT_ERROR,
                           +VT_BOOL,
                           +VT_VARIANT,
                           +VT_UNKNOWN,
                           +VT_DECIMAL,
                           +VT_I1,
                           +VT_UI1,
                           +VT_UI2,
                           +VT_UI4,
                           +VT_I8,
                           +VT_UI8,
                           +VT_INT,
                           +VT_UINT,
                           VT_ARRAY | VT_I4,
                           VT_BYREF | VT_I4,
                           VT_BYREF | VT_ARRAY | VT_BSTR,
                           VT_BYREF | VT_VARIANT})
    {
        VARIANT value = Integer(type, 0);
        EXPECT_EQ(S_OK, ::VariantClear(&value)) << type;
        EXPECT_EQ(VT_EMPTY, value.vt) << type;
    }
}

TEST(SystemValue, IsLeftAloneByClearingWhenItsTypeIsNone)
{
    for (const int type : {15, 24, 26, 31, 64, 0x0FFF, VT_ARRAY | VT_EMPTY, VT_BYREF | VT_NULL, VT_VECTOR | VT_I4,
                           VT_RESERVED | VT_BSTR, 0xFFFF})
    {
        VARIANT value = Integer(type, 1);
        EXPECT_EQ(DISP_E_BADVARTYPE, ::VariantClear(&value)) << type;
        EXPECT_EQ(type, value.vt);
        VARIANT copy = Integer(VT_I4, 7);
        EXPECT_EQ(DISP_E_BADVARTYPE, ::VariantCopy(&copy, &value)) << type;
        EXPECT_EQ("7", Shown(copy)) << type;
    }
}

TEST(SystemValue, OwnsTheCopyOfAText)
{
    const std::wstring text(L"a\0b", 3);
    SystemValue source(Text(text));
    SystemValue copy(Text(L"old"));
    ASSERT_EQ(S_OK, ::VariantCopy(&copy, &source));
    ASSERT_EQ(VT_BSTR, copy->vt);
    EXPECT_NE(source->bstrVal, copy->bstrVal);
    EXPECT_EQ(text, std::wstring(copy->bstrVal, ::SysStringLen(copy->bstrVal)));
    ASSERT_EQ(S_OK, ::VariantClear(&source));
    EXPECT_EQ(text, std::wstring(copy->bstrVal, ::SysStringLen(copy->bstrVal)));
}

TEST(SystemValue, OwnsTheCopyOfAnArray)
{
    SystemValue source(Integer(VT_ARRAY | VT_BSTR, 0));
    source->parray = ::SafeArrayCreateVector(VT_BSTR, 0, 2);
    static_cast<BSTR*>(source->parray->pvData)[1] = ::SysAllocString(L"text");
    SystemValue copy;
    ASSERT_EQ(S_OK, ::VariantCopy(&copy, &source));
    ASSERT_EQ(S_OK, ::VariantClear(&source));
    EXPECT_STREQ(L"text", static_cast<BSTR*>(copy->parray->pvData)[1]);
}

TEST(SystemValue, SharesWhatItRefersTo)
{
    LONG number = 5;
    VARIANT source = Reference(VT_I4, &number);
    SystemValue copy;
    ASSERT_EQ(S_OK, ::VariantCopy(&copy, &source));
    EXPECT_EQ(VT_BYREF | VT_I4, copy->vt);
    EXPECT_EQ(&number, copy->plVal);

    SystemValue value;
    ASSERT_EQ(S_OK, ::VariantCopyInd(&value, &source));
    EXPECT_EQ("5", Shown(*value));
}

TEST(SystemValue, CopiesWhatIsReferredToThroughTwoReferences)
{
    const SystemValue text(Text(L"17"));
    BSTR place = text->bstrVal;
    VARIANT first = Reference(VT_BSTR, &place);
    VARIANT second = Reference(VT_VARIANT, &first);
    SystemValue copy;
    ASSERT_EQ(S_OK, ::VariantCopyInd(&copy, &second));
    EXPECT_EQ("17", Shown(*copy));
    EXPECT_NE(place, copy->bstrVal);

    VARIANT third = Reference(VT_VARIANT, &second);
    EXPECT_EQ(E_INVALIDARG, ::VariantCopyInd(&copy, &third));

    SAFEARRAY* array = ::SafeArrayCreateVector(VT_UI1, 0, 3);
    VARIANT reference = Reference(VT_ARRAY | VT_UI1, &array);
    ASSERT_EQ(S_OK, ::VariantCopyInd(&copy, &reference));
    EXPECT_EQ(VT_ARRAY | VT_UI1, copy->vt);
    EXPECT_NE(array, copy->parray);
    EXPECT_EQ(S_OK, ::SafeArrayDestroy(array));
}

TEST(SystemValue, IsNotChangedByACopyToItself)
{
    SystemValue value(Text(L"text"));
    const BSTR before = value->bstrVal;
    EXPECT_EQ(S_OK, ::VariantCopy(&value, &value));
    EXPECT_EQ(before, value->bstrVal);

    VARIANT inner = Integer(VT_I4, 3);
    VARIANT reference = Reference(VT_VARIANT, &inner);
    EXPECT_EQ(S_OK, ::VariantCopyInd(&reference, &reference));
    EXPECT_EQ("3", Shown(reference));
}

TEST(SystemValue, IsNeitherClearedNorReplacedWhileItsArrayIsInUse)
{
    SAFEARRAY* const array = ::SafeArrayCreateVector(VT_I4, 0, 2);
    ASSERT_EQ(S_OK, ::SafeArrayLock(array));
    VARIANT cleared = ArrayValue(VT_I4, array);
    EXPECT_EQ(DISP_E_ARRAYISLOCKED, ::VariantClear(&cleared));
    VARIANT replaced = ArrayValue(VT_I4, array);
    const SystemValue text(Text(L"text"));
    EXPECT_EQ(DISP_E_ARRAYISLOCKED, ::VariantCopy(&replaced, Source(*text)));

    SystemValue copy;
    EXPECT_EQ(S_OK, ::VariantCopy(&copy, Source(ArrayValue(VT_I4, array)))) << "an array in use can be copied";
    EXPECT_EQ(0u, copy->parray->cLocks);
    ASSERT_EQ(S_OK, ::SafeArrayUnlock(array));
    EXPECT_EQ(S_OK, ::SafeArrayDestroy(array));
}

TEST(SystemValue, CountsReferencesToItsObject)
{
    CountedObject object;
    for (const int type : {+VT_UNKNOWN, +VT_DISPATCH})
    {
        const VARIANT source = ObjectValue(type, object);
        VARIANT copy = Integer(VT_EMPTY, 0);
        ASSERT_EQ(S_OK, ::VariantCopy(&copy, Source(source)));
        EXPECT_EQ(2u, object.References());
        ASSERT_EQ(S_OK, ::VariantClear(&copy));
        EXPECT_EQ(1u, object.References());
    }
}

TEST(SystemValue, OfAnObjectIsTheValueThatTheObjectGives)
{
    CountedObject object;
    const VARIANT source = ObjectValue(VT_DISPATCH, object);
    EXPECT_EQ("42", Converted(source, VT_I4));
    EXPECT_EQ("42", Converted(source, VT_R8));
    EXPECT_EQ("42", Converted(source, VT_BSTR));
    EXPECT_EQ("type", Converted(source, VT_I4, VARIANT_NOVALUEPROP));
    EXPECT_EQ("type", Converted(source, VT_ERROR));
    EXPECT_EQ("empty", Converted(source, VT_EMPTY));
    EXPECT_EQ("type", Converted(source, VT_EMPTY, VARIANT_NOVALUEPROP));
    EXPECT_EQ("type", Converted(ObjectValue(VT_UNKNOWN, object), VT_I4));
    EXPECT_EQ(1u, object.References());

    object.RemoveValue();
    EXPECT_EQ("type", Converted(source, VT_I4));
    EXPECT_EQ("type", Converted(source, VT_BSTR));
}

TEST(SystemValue, OfAnObjectIsAnotherInterfaceOfIt)
{
    CountedObject object;
    for (const int from : {+VT_UNKNOWN, +VT_DISPATCH})
    {
        for (const int to : {+VT_UNKNOWN, +VT_DISPATCH})
        {
            VARIANT source = ObjectValue(from, object);
            VARIANT result = Integer(VT_EMPTY, 0);
            ASSERT_EQ(S_OK, ::VariantChangeType(&result, Source(source), 0, static_cast<VARTYPE>(to)))
                << from << " to " << to;
            EXPECT_EQ(to, result.vt);
            EXPECT_EQ(2u, object.References());
            ASSERT_EQ(S_OK, ::VariantClear(&result));
        }
    }
    object.RemoveValue();
    VARIANT source = ObjectValue(VT_UNKNOWN, object);
    VARIANT result = Integer(VT_EMPTY, 0);
    EXPECT_EQ(E_NOINTERFACE, ::VariantChangeType(&result, Source(source), 0, VT_DISPATCH));
    EXPECT_EQ("type", Converted(Integer(VT_I4, 0), VT_UNKNOWN));
    EXPECT_EQ(1u, object.References());
}
