#include "vetools/framework/CDBVariant.h"

CDBVariant::CDBVariant() noexcept
    : m_dwType(DBVT_NULL)
    , m_dblVal(0.0)
{
}

CDBVariant::~CDBVariant()
{
    Clear();
}

void CDBVariant::Clear() noexcept
{
    if (m_dwType == DBVT_STRING)
        delete m_pstring;
    m_dwType = DBVT_NULL;
    m_dblVal = 0.0;
}
