#pragma once

#include "vetools/framework/CString.h"
#include "vetools/platform/Export.h"
#include "vetools/platform/Platform.h"

/// The root of the host's model objects: a reference count inside the object, an id that its owner gives, and a class id
/// that names its class (ObjectClassId.h).
///
/// An object starts with a count of 0. Holders call AddRef; the Release that brings the count to 0 or below deletes the
/// object, which must have been made with new. Objects on the stack or held by value are never released. The functions at
/// the end of this header let an intrusive pointer do the counting:
///
///     boost::intrusive_ptr<CVeObject> limits(new CVeLimits(1e-6, 0.0, 10.0));
///
/// The count is a plain number: an object is shared within one thread only. It is one of 32 bits on both builds, whatever
/// the size of `long`, and wraps round beyond its range.
///
/// The order of the virtual functions and of the members is the one that the host's modules were built with.
class VETOOLS_API CVeObject
{
public:
    virtual ~CVeObject();

    /// Does nothing; derived classes describe themselves for a debugger.
    virtual void Dump() const;
    /// A new object of the class, with count 0 and id 0, which the caller deletes; null when there is no memory.
    virtual CVeObject* GetClone() const;

    // Classes that compare and assign by value, such as CVeLimits, have operators of their own, which hide these: that is
    // meant, and no host needs to hear of it. The compiler tells of it where the hidden ones stand.
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Woverloaded-virtual"
#endif
    /// Kept: copies nothing. Count and id belong to the object, not to its value.
    virtual CVeObject& operator=(const CVeObject& other);
    /// 1 when both objects report the same class id, else 0.
    /// Kept: whatever they hold.
    virtual int operator==(const CVeObject& other) const;
    /// The negation of operator==, also of one that a derived class provides.
    virtual int operator!=(const CVeObject& other) const;
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

    /// Adds |n| to the count and returns the new count: AddRef(-3) adds 3.
    virtual long AddRef(long n);
    /// Takes |n| off the count, by RemoveRef, and deletes the object when 0 or less is left: also one that nobody held.
    virtual void Release(long n);
    /// Takes |n| off the count and returns the new count, which may be negative. Deletes nothing.
    virtual long RemoveRef(long n);
    /// The number of the object's class in the catalogue of ObjectClassId.h; -1, which names none, for this one.
    virtual int GetObjectClassId() const;

    /// Count 0 and id 0.
    CVeObject();
    /// Kept: a copy starts with count 0 and id 0 as well.
    CVeObject(const CVeObject& other);

    /// Count and id become 0, whoever holds the object.
    void Reset();
    long GetRef() const;
    __int64 GetId() const;
    void SetId(__int64 id);

    /// 1 when the object's class id is `classId`, else 0.
    int IsClass(int classId) const;
    /// The name of the object's class, empty when the catalogue has none: "CVeLimits" for a CVeLimits.
    CString GetClassNameFromClassId() const;

private:
    LONG m_referenceCount;
    __int64 m_id;
};

/// What intrusive pointers call: AddRef(1) and Release(1). A null pointer counts nothing.
VETOOLS_API void intrusive_ptr_add_ref(CVeObject* object);
VETOOLS_API void intrusive_ptr_release(CVeObject* object);
