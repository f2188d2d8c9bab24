#include "vetools/framework/COleException.h"

IMPLEMENT_DYNAMIC(COleException, CException)

COleException::COleException()
    : m_sc(S_OK)
{
}

void AfxThrowOleException(SCODE code)
{
    auto* const exception = new COleException;
    exception->m_sc = code;
    throw exception;
}

void AfxCheckError(SCODE code)
{
    if (SUCCEEDED(code))
        return;
    if (code == E_OUTOFMEMORY)
        AfxThrowMemoryException();
    AfxThrowOleException(code);
}
