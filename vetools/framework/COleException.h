#pragma once

#include "vetools/framework/CException.h"
#include "vetools/platform/Export.h"
#include "vetools/platform/Platform.h"

/// A failed call of OLE Automation. Thrown by pointer; whoever catches it calls Delete. It has no text of its own.
class VETOOLS_API COleException : public CException
{
    DECLARE_DYNAMIC(COleException)

public:
    COleException();

    SCODE m_sc;  ///< what the call returned, such as DISP_E_TYPEMISMATCH; S_OK at first
};

/// Throws a COleException* with that code.
[[noreturn]] VETOOLS_API void AfxThrowOleException(SCODE code);

/// Returns for a success. Throws a CMemoryException* for E_OUTOFMEMORY and a COleException* for any other failure.
VETOOLS_API void AfxCheckError(SCODE code);
