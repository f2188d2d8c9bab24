#pragma once

#include "vetools/platform/Export.h"
#include "vetools/platform/Platform.h"

class CArchive;
class CObject;

/// What is known of a class at run time: one constant record per class, linked to the record of its base class. Hosts
/// compare records by address.
struct VETOOLS_API CRuntimeClass
{
    /// The class name as it stands in the source, in ASCII.
    const char* m_lpszClassName;
    /// The size of an object in bytes.
    int m_nObjectSize;
    /// The version of the stored form; 0xFFFF for a class that is not stored.
    UINT m_wSchema;
    /// Makes an object by default construction; null for a class that cannot be made so.
    CObject* (*m_pfnCreateObject)();
    /// The record of the base class; a null function, or a null result, at the root.
    CRuntimeClass* (*m_pfnGetBaseClass)();

    /// Whether the class is `baseClass` or derives from it; false for null.
    bool IsDerivedFrom(const CRuntimeClass* baseClass) const;
};

/// The record of a class: RUNTIME_CLASS(CException)->m_lpszClassName is "CException".
#define RUNTIME_CLASS(className) (className::GetThisClass())

/// Stands in a class that derives from CObject and declares its record, and that of its base class for derived classes;
/// IMPLEMENT_DYNAMIC in one source defines them.
#define DECLARE_DYNAMIC(className)                                                                                     \
protected:                                                                                                             \
    static CRuntimeClass* _GetBaseClass();                                                                             \
                                                                                                                       \
public:                                                                                                                \
    static CRuntimeClass* GetThisClass();                                                                              \
    CRuntimeClass* GetRuntimeClass() const override;

/// Defines the record of `className`, whose base class is `baseClassName`.
#define IMPLEMENT_DYNAMIC(className, baseClassName)                                                                    \
    CRuntimeClass* className::_GetBaseClass()                                                                          \
    {                                                                                                                  \
        return RUNTIME_CLASS(baseClassName);                                                                           \
    }                                                                                                                  \
    CRuntimeClass* className::GetThisClass()                                                                           \
    {                                                                                                                  \
        static CRuntimeClass s_record = {#className, static_cast<int>(sizeof(className)), 0xFFFF, nullptr,             \
                                         &className::_GetBaseClass};                                                   \
        return &s_record;                                                                                              \
    }                                                                                                                  \
    CRuntimeClass* className::GetRuntimeClass() const                                                                  \
    {                                                                                                                  \
        return GetThisClass();                                                                                         \
    }

/// The root of the framework's classes: a virtual destructor and the run-time class record. Objects are not copied,
/// unless a derived class says how.
class VETOOLS_API CObject
{
public:
    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject();
    /// Writes the object to an archive or reads it from there. Nothing here.
    virtual void Serialize(CArchive& archive);

    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;

    static CRuntimeClass* GetThisClass();

    /// Whether the object is of the class with that record, or of one that derives from it.
    bool IsKindOf(const CRuntimeClass* runtimeClass) const;

protected:
    CObject() = default;
};

/// What the framework throws, by pointer: `catch (CException* exception)`. Who catches it and does not throw it on
/// calls Delete.
class VETOOLS_API CException : public CObject
{
    DECLARE_DYNAMIC(CException)

public:
    /// autoDelete  true for an object made with new, which Delete is to destroy; false for one that lives elsewhere
    explicit CException(bool autoDelete = true);
    ~CException() override;

    /// Ends the life of a caught exception: destroys it if it was made with new for throwing.
    void Delete();

    /// Writes what went wrong, cut to `bufferSize` characters with the terminator, and returns true. Returns false when
    /// there is no text to give: `buffer` then holds an empty text (nothing is written when it is null or bufferSize is
    /// 0). helpContext, when given, receives 0.
    virtual bool GetErrorMessage(wchar_t* buffer, UINT bufferSize, UINT* helpContext = nullptr) const;

private:
    bool m_autoDelete;
};

/// An exception whose text is fixed by its class.
class VETOOLS_API CSimpleException : public CException
{
    DECLARE_DYNAMIC(CSimpleException)

public:
    explicit CSimpleException(bool autoDelete);
    bool GetErrorMessage(wchar_t* buffer, UINT bufferSize, UINT* helpContext = nullptr) const override;

private:
    virtual const wchar_t* ErrorText() const;
};

/// Thrown for an argument outside what a function takes, such as an index beyond the end.
class VETOOLS_API CInvalidArgException : public CSimpleException
{
    DECLARE_DYNAMIC(CInvalidArgException)

public:
    explicit CInvalidArgException(bool autoDelete = true);

private:
    const wchar_t* ErrorText() const override;
};

/// Thrown when memory is exhausted, or when a text or an array would exceed the largest length. The object thrown is
/// not allocated: one stands ready.
class VETOOLS_API CMemoryException : public CSimpleException
{
    DECLARE_DYNAMIC(CMemoryException)

public:
    explicit CMemoryException(bool autoDelete = true);

private:
    const wchar_t* ErrorText() const override;
};

/// Throws a CInvalidArgException*.
[[noreturn]] VETOOLS_API void AfxThrowInvalidArgException();
/// Throws a CMemoryException*.
[[noreturn]] VETOOLS_API void AfxThrowMemoryException();
