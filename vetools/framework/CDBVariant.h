#pragma once

#include "vetools/framework/CString.h"
#include "vetools/platform/Export.h"
#include "vetools/platform/Platform.h"

// What a CDBVariant holds.

#define DBVT_NULL 0    ///< nothing
#define DBVT_BOOL 1    ///< m_boolVal
#define DBVT_UCHAR 2   ///< m_chVal
#define DBVT_SHORT 3   ///< m_iVal
#define DBVT_LONG 4    ///< m_lVal
#define DBVT_SINGLE 5  ///< m_fltVal
#define DBVT_DOUBLE 6  ///< m_dblVal
#define DBVT_DATE 7    ///< as the number of a type only
#define DBVT_STRING 8  ///< m_pstring
#define DBVT_BINARY 9  ///< as the number of a type only

/// A value of a database field, of a type known at run time. The members lie over each other; m_dwType says which one
/// holds the value, and is set together with it. Members for dates and binary objects are left out.
class VETOOLS_API CDBVariant
{
public:
    /// DBVT_NULL; every number reads as 0.
    CDBVariant() noexcept;
    ~CDBVariant();
    CDBVariant(const CDBVariant&) = delete;
    CDBVariant& operator=(const CDBVariant&) = delete;

    /// Deletes the text of a DBVT_STRING and makes it DBVT_NULL.
    void Clear() noexcept;

    DWORD m_dwType;

    union
    {
        BOOL m_boolVal;
        unsigned char m_chVal;
        short m_iVal;
        LONG m_lVal;  ///< a long of 32 bits on both builds
        float m_fltVal;
        double m_dblVal;
        CString* m_pstring;  ///< made with new, deleted by Clear
    };
};
