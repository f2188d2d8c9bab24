#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "vetools/platform/Platform.h"
#include "vetools/unitmanager/ComUnit.h"

// The type library as other tools read it: from the DLL, by the system.

namespace
{

std::wstring PathOfTheLibrary()
{
    wchar_t path[MAX_PATH] = {};
    ::GetModuleFileNameW(::GetModuleHandleW(L"vetools.dll"), path, MAX_PATH);
    return path;
}

std::wstring Take(BSTR text)
{
    const std::wstring taken = text ? std::wstring(text, ::SysStringLen(text)) : L"";
    ::SysFreeString(text);
    return taken;
}

/// What a type library says of a method: its slot, and its last argument's type.
struct Method
{
    std::wstring name;
    int slot;
    VARTYPE argument;
    VARTYPE pointee;  ///< VT_EMPTY unless the argument is a pointer

    bool operator==(const Method&) const = default;
};

void PrintTo(const Method& method, std::ostream* out)
{
    *out << testing::PrintToString(method.name) << " in slot " << method.slot << " with type " << method.argument
         << " of " << method.pointee;
}

Method Describe(ITypeInfo* type, UINT index)
{
    FUNCDESC* function = nullptr;
    EXPECT_EQ(S_OK, type->GetFuncDesc(index, &function));
    BSTR name = nullptr;
    EXPECT_EQ(S_OK, type->GetDocumentation(function->memid, &name, nullptr, nullptr, nullptr));
    EXPECT_EQ(1, function->cParams);
    EXPECT_EQ(VT_HRESULT, function->elemdescFunc.tdesc.vt);
    const TYPEDESC& argument = function->lprgelemdescParam[0].tdesc;
    Method method = {Take(name), static_cast<int>(function->oVft / sizeof(void*)), argument.vt,
                     argument.vt == VT_PTR ? argument.lptdesc->vt : static_cast<VARTYPE>(VT_EMPTY)};
    type->ReleaseFuncDesc(function);
    return method;
}

class TypeLibrary : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(S_OK, ::LoadTypeLib(PathOfTheLibrary().c_str(), &m_library));
        ASSERT_EQ(S_OK, m_library->GetTypeInfoOfGuid(IID_IComUnit, &m_type));
    }
    void TearDown() override
    {
        if (m_type)
            m_type->Release();
        if (m_library)
            m_library->Release();
    }

    ITypeLib* m_library = nullptr;
    ITypeInfo* m_type = nullptr;
};

}  // namespace

TEST_F(TypeLibrary, StandsInTheLibraryUnderItsOwnId)
{
    const GUID id = {0x0BF3CC8B, 0x1127, 0x4DF9, {0x8B, 0xA2, 0xD8, 0x00, 0x09, 0xE2, 0xAE, 0x87}};
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(S_OK, m_library->GetLibAttr(&attributes));
    EXPECT_TRUE(IsEqualGUID(id, attributes->guid));
    EXPECT_EQ(1, attributes->wMajorVerNum);
    EXPECT_EQ(0, attributes->wMinorVerNum);
    m_library->ReleaseTLibAttr(attributes);
    EXPECT_EQ(1u, m_library->GetTypeInfoCount());
}

TEST_F(TypeLibrary, DescribesTheInterfaceOfAUnit)
{
    BSTR name = nullptr;
    BSTR description = nullptr;
    ASSERT_EQ(S_OK, m_type->GetDocumentation(MEMBERID_NIL, &name, &description, nullptr, nullptr));
    EXPECT_EQ(L"IComUnit", Take(name));
    EXPECT_EQ(L"A unit of measure", Take(description));

    HREFTYPE reference = 0;
    ITypeInfo* base = nullptr;
    ASSERT_EQ(S_OK, m_type->GetRefTypeOfImplType(0, &reference));
    ASSERT_EQ(S_OK, m_type->GetRefTypeInfo(reference, &base));
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(S_OK, base->GetTypeAttr(&attributes));
    EXPECT_TRUE(IsEqualGUID(IID_IUnknown, attributes->guid)) << "it derives from IUnknown";
    base->ReleaseTypeAttr(attributes);
    base->Release();
}

TEST_F(TypeLibrary, NamesTheMethodsInSlotOrder)
{
    const std::vector<Method> expected = {
        {L"SetRange", 3, VT_UINT, VT_EMPTY},       {L"SetPrecision", 4, VT_UINT, VT_EMPTY},
        {L"SetSeparator", 5, VT_LPWSTR, VT_EMPTY}, {L"GetRange", 6, VT_PTR, VT_UINT},
        {L"GetCoefficient", 7, VT_PTR, VT_R8},     {L"GetName", 8, VT_PTR, VT_BSTR},
        {L"GetTitle", 9, VT_PTR, VT_BSTR},         {L"GetUnit", 10, VT_PTR, VT_PTR},
    };
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(S_OK, m_type->GetTypeAttr(&attributes));
    std::vector<Method> methods;
    for (UINT index = 0; index < attributes->cFuncs; ++index)
        methods.push_back(Describe(m_type, index));
    m_type->ReleaseTypeAttr(attributes);
    EXPECT_EQ(expected, methods);
}

TEST_F(TypeLibrary, ExplainsEveryMethod)
{
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(S_OK, m_type->GetTypeAttr(&attributes));
    for (UINT index = 0; index < attributes->cFuncs; ++index)
    {
        FUNCDESC* function = nullptr;
        ASSERT_EQ(S_OK, m_type->GetFuncDesc(index, &function));
        BSTR description = nullptr;
        EXPECT_EQ(S_OK, m_type->GetDocumentation(function->memid, nullptr, &description, nullptr, nullptr));
        EXPECT_NE(L"", Take(description)) << "method " << index;
        m_type->ReleaseFuncDesc(function);
    }
    m_type->ReleaseTypeAttr(attributes);
}
