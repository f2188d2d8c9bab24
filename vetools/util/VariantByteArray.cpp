#include "vetools/util/VariantByteArray.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "vetools/util/VeVariant.h"

CVariantByteArray::CVariantByteArray() noexcept = default;

CVariantByteArray::CVariantByteArray(const VARIANT* value, unsigned long count) noexcept
{
    Attach(value, count);
}

CVariantByteArray::CVariantByteArray(const CVariantByteArray& other) noexcept
    : COleVariant()
{
    *this = other;
}

CVariantByteArray& CVariantByteArray::operator=(const CVariantByteArray& other) noexcept
{
    ::VariantCopy(this, const_cast<CVariantByteArray*>(&other));
    m_bytes = other.m_bytes;  // Kept: one buffer for both
    m_count = other.m_count;
    return *this;
}

CVariantByteArray::~CVariantByteArray()
{
    Clear();
}

int CVariantByteArray::Attach(const VARIANT* value, unsigned long count) noexcept
{
    Clear();
    if (value != nullptr)
        ::VariantCopy(this, const_cast<VARIANT*>(value));
    // No array has more elements than the type counts: a larger number stays one that nothing fulfils.
    m_count = static_cast<DWORD>(std::min<unsigned long>(count, std::numeric_limits<DWORD>::max()));
    return value != nullptr && count != 0 ? 1 : 0;
}

BYTE* CVariantByteArray::Load() noexcept
{
    if (m_count == 0 || vt <= VT_NULL)
        return nullptr;
    m_bytes.reset();
    BYTE* bytes = nullptr;
    const unsigned long size = GetBinaryFromVariant(&bytes, this);
    std::shared_ptr<BYTE[]> loaded(bytes);
    if (size == m_count)
        m_bytes = std::move(loaded);
    return m_bytes.get();
}

const VARIANT* CVariantByteArray::Store() noexcept
{
    if (m_count == 0 || m_bytes == nullptr || vt == VT_NULL)
        return nullptr;
    VARIANT stored;
    if (PutBinaryIntoVariant(&stored, m_bytes.get(), m_count) != 0)
    {
        ::VariantClear(this);
        static_cast<VARIANT&>(*this) = stored;
    }
    return this;
}

void CVariantByteArray::Clear() noexcept
{
    m_count = 0;
    m_bytes.reset();
    ::VariantClear(this);
}

BYTE* CVariantByteArray::GetByteArray() const noexcept
{
    return m_bytes.get();
}
