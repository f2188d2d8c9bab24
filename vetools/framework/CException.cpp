#include "vetools/framework/CException.h"

#include <algorithm>
#include <cwchar>

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* baseClass) const
{
    if (baseClass == nullptr)
        return false;
    const CRuntimeClass* current = this;
    while (current != nullptr && current != baseClass)
        current = current->m_pfnGetBaseClass != nullptr ? current->m_pfnGetBaseClass() : nullptr;
    return current == baseClass;
}

CRuntimeClass* CObject::GetThisClass()
{
    static CRuntimeClass s_record = {"CObject", static_cast<int>(sizeof(CObject)), 0xFFFF, nullptr, nullptr};
    return &s_record;
}

CRuntimeClass* CObject::GetRuntimeClass() const
{
    return GetThisClass();
}

CObject::~CObject() = default;

void CObject::Serialize(CArchive&) {}

bool CObject::IsKindOf(const CRuntimeClass* runtimeClass) const
{
    return GetRuntimeClass()->IsDerivedFrom(runtimeClass);
}

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CSimpleException, CException)
IMPLEMENT_DYNAMIC(CInvalidArgException, CSimpleException)
IMPLEMENT_DYNAMIC(CMemoryException, CSimpleException)

CException::CException(bool autoDelete)
    : m_autoDelete(autoDelete)
{
}

CException::~CException() = default;

void CException::Delete()
{
    if (m_autoDelete)
        delete this;
}

bool CException::GetErrorMessage(wchar_t* buffer, UINT bufferSize, UINT* helpContext) const
{
    if (helpContext != nullptr)
        *helpContext = 0;
    if (buffer != nullptr && bufferSize > 0)
        *buffer = L'\0';
    return false;
}

CSimpleException::CSimpleException(bool autoDelete)
    : CException(autoDelete)
{
}

bool CSimpleException::GetErrorMessage(wchar_t* buffer, UINT bufferSize, UINT* helpContext) const
{
    CException::GetErrorMessage(buffer, bufferSize, helpContext);
    const wchar_t* const text = ErrorText();
    if (text == nullptr || buffer == nullptr || bufferSize == 0)
        return false;
    const std::size_t length = std::min<std::size_t>(std::wcslen(text), bufferSize - 1);
    std::wmemcpy(buffer, text, length);
    buffer[length] = L'\0';
    return true;
}

const wchar_t* CSimpleException::ErrorText() const
{
    return nullptr;
}

CInvalidArgException::CInvalidArgException(bool autoDelete)
    : CSimpleException(autoDelete)
{
}

const wchar_t* CInvalidArgException::ErrorText() const
{
    return L"An invalid argument was encountered.";
}

CMemoryException::CMemoryException(bool autoDelete)
    : CSimpleException(autoDelete)
{
}

const wchar_t* CMemoryException::ErrorText() const
{
    return L"Out of memory.";
}

void AfxThrowInvalidArgException()
{
    throw new CInvalidArgException;
}

void AfxThrowMemoryException()
{
    static CMemoryException s_exception(false);
    throw &s_exception;
}
