#include "vetools/util/VeTranslate.h"

#include "vetools/framework/ModuleState.h"
#include "vetools/framework/TextCopy.h"

namespace
{

/// Null is an empty name.
const wchar_t* NameOrEmpty(const wchar_t* name)
{
    return name != nullptr ? name : L"";
}

}  // namespace

CVeTranslate::CVeTranslate(const wchar_t* resDll, const wchar_t* docDll)
    : m_hResDll(nullptr)
    , m_hDocDll(nullptr)
    , m_szResDll()
    , m_szDocDll()
{
    if (resDll != nullptr)
    {
        CopyTruncated(resDll, m_szResDll);
        m_hResDll = LoadDllRes(resDll);
    }
    CopyTruncated(NameOrEmpty(docDll), m_szDocDll);
    m_hDocDll = LoadDllDoc(NameOrEmpty(docDll));
}

CVeTranslate::CVeTranslate(const CVeTranslate& other) = default;
CVeTranslate& CVeTranslate::operator=(const CVeTranslate& other) = default;  // Kept: shares the handles, frees none

CVeTranslate::~CVeTranslate()
{
    // Kept: the current resource module stays, and copies free the same handles again.
    if (m_hResDll != nullptr)
        AfxFreeLibrary(m_hResDll);
    if (m_hDocDll != nullptr)
        AfxFreeLibrary(m_hDocDll);
}

void CVeTranslate::ChangeDllDoc(const wchar_t* docDll)
{
    CopyTruncated(NameOrEmpty(docDll), m_szDocDll);
    if (m_hDocDll != nullptr)
        AfxFreeLibrary(m_hDocDll);
    m_hDocDll = LoadDllDoc(NameOrEmpty(docDll));
}

CString CVeTranslate::GetStringDoc(int id) const
{
    return VeGetStringDoc(m_hDocDll, id);
}

HINSTANCE CVeTranslate::GetHandleDoc() const
{
    return m_hDocDll;
}

HINSTANCE CVeTranslate::LoadDllRes(const wchar_t* name)
{
    const HINSTANCE module = AfxLoadLibrary(name);
    if (module != nullptr)
        AfxSetResourceHandle(module);
    return module;
}

HINSTANCE CVeTranslate::LoadDllDoc(const wchar_t* name)
{
    return AfxLoadLibrary(name);
}

CString VeGetStringDoc(HINSTANCE module, int id)
{
    CString text;
    if (module != nullptr)  // null would be the program, whose texts are not those of documents
        text.LoadString(module, static_cast<UINT>(id));
    return text;
}
