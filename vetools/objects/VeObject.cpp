#include "vetools/objects/VeObject.h"

#include <new>

#include "vetools/objects/ObjectClassId.h"

namespace
{

constexpr int c_noClassId = -1;

/// |n| as a 32-bit number without sign, which holds that of the lowest number as well.
DWORD Magnitude(long n)
{
    const auto number = static_cast<LONG>(n);
    return number < 0 ? 0 - static_cast<DWORD>(number) : static_cast<DWORD>(number);
}

}  // namespace

CVeObject::CVeObject()
    : m_referenceCount(0)
    , m_id(0)
{
}

CVeObject::CVeObject(const CVeObject&)
    : CVeObject()  // Kept: nothing is copied
{
}

CVeObject::~CVeObject()
{
    Reset();
}

void CVeObject::Dump() const {}

CVeObject* CVeObject::GetClone() const
{
    return new (std::nothrow) CVeObject(*this);
}

CVeObject& CVeObject::operator=(const CVeObject&)
{
    return *this;  // Kept: count and id are not part of the value
}

int CVeObject::operator==(const CVeObject& other) const
{
    return GetObjectClassId() == other.GetObjectClassId();  // Kept: objects of one class are equal
}

int CVeObject::operator!=(const CVeObject& other) const
{
    return !operator==(other);
}

long CVeObject::AddRef(long n)
{
    m_referenceCount = static_cast<LONG>(static_cast<DWORD>(m_referenceCount) + Magnitude(n));
    return m_referenceCount;
}

void CVeObject::Release(long n)
{
    if (RemoveRef(n) <= 0)
        delete this;
}

long CVeObject::RemoveRef(long n)
{
    m_referenceCount = static_cast<LONG>(static_cast<DWORD>(m_referenceCount) - Magnitude(n));
    return m_referenceCount;
}

int CVeObject::GetObjectClassId() const
{
    return c_noClassId;
}

void CVeObject::Reset()
{
    m_referenceCount = 0;
    m_id = 0;
}

long CVeObject::GetRef() const
{
    return m_referenceCount;
}

__int64 CVeObject::GetId() const
{
    return m_id;
}

void CVeObject::SetId(__int64 id)
{
    m_id = id;
}

int CVeObject::IsClass(int classId) const
{
    return GetObjectClassId() == classId;
}

CString CVeObject::GetClassNameFromClassId() const
{
    return ObjectClassId::GetGlobalObjectClassFromId(GetObjectClassId());
}

void intrusive_ptr_add_ref(CVeObject* object)
{
    if (object != nullptr)
        object->AddRef(1);
}

void intrusive_ptr_release(CVeObject* object)
{
    if (object != nullptr)
        object->Release(1);
}
