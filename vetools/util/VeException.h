#pragma once

#include "vetools/framework/CException.h"
#include "vetools/platform/Export.h"

/// The base of exceptions that carry the id of a message. As all of the framework's they are thrown by pointer, and who catches
/// one and does not throw it on calls Delete:
///
///     throw new CVeExceptionBase(IDS_NO_SUCH_BEAM);
///
///     catch (CVeExceptionBase* exception)
///     {
///         Show(exception->MessageID());
///         exception->Delete();
///     }
///
/// Its run-time class record is named "CVeExceptionBase"; the record of its base class is that of CException. The library itself
/// throws none of these.
class VETOOLS_API CVeExceptionBase : public CException
{
    DECLARE_DYNAMIC(CVeExceptionBase)

public:
    explicit CVeExceptionBase(int messageId);
    ~CVeExceptionBase() override;

    int MessageID() const;
    void MessageID(int messageId);

protected:
    /// For derived classes that set the id themselves; it is 0 until they do.
    CVeExceptionBase();

private:
    int m_messageId;
};
