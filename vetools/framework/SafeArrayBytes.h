#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <span>

#include "vetools/platform/Platform.h"

/// The bytes of an array, locked as long as the object lives (internal).
class SafeArrayBytes
{
public:
    /// No bytes for a null array, or one that cannot be locked.
    explicit SafeArrayBytes(SAFEARRAY* array) noexcept
    {
        void* data = nullptr;
        if (array == nullptr || FAILED(::SafeArrayAccessData(array, &data)))
            return;
        m_array = array;
        m_data = static_cast<BYTE*>(data);
    }
    ~SafeArrayBytes()
    {
        if (m_array != nullptr)
            ::SafeArrayUnaccessData(m_array);
    }
    SafeArrayBytes(const SafeArrayBytes&) = delete;
    SafeArrayBytes& operator=(const SafeArrayBytes&) = delete;

    /// Whether there is an array to look at; it may be one of no elements.
    bool IsLocked() const noexcept { return m_array != nullptr; }

    /// All bytes, of all dimensions.
    std::span<BYTE> Bytes() const noexcept
    {
        return m_data != nullptr ? std::span<BYTE>(m_data, Size()) : std::span<BYTE>();
    }

private:
    std::size_t Size() const noexcept
    {
        std::uint64_t size = m_array->cbElements;
        for (USHORT i = 0; i < m_array->cDims && size != 0; ++i)
        {
            const ULONG elements = m_array->rgsabound[i].cElements;
            if (elements != 0 && size > std::numeric_limits<std::uint64_t>::max() / elements)
                return 0;  // no memory holds that many
            size *= elements;
        }
        return size;
    }

    SAFEARRAY* m_array = nullptr;
    BYTE* m_data = nullptr;
};
