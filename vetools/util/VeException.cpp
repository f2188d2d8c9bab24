#include "vetools/util/VeException.h"

IMPLEMENT_DYNAMIC(CVeExceptionBase, CException)

CVeExceptionBase::CVeExceptionBase(int messageId)
    : m_messageId(messageId)
{
}

CVeExceptionBase::CVeExceptionBase()
    : m_messageId(0)
{
}

CVeExceptionBase::~CVeExceptionBase() = default;

int CVeExceptionBase::MessageID() const
{
    return m_messageId;
}

void CVeExceptionBase::MessageID(int messageId)
{
    m_messageId = messageId;
}
