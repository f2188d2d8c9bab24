#pragma once

#include <cstddef>

#include "vetools/platform/posix/WinBase.h"

/// Where a function of the system writes its text to (internal): counts only, when there is no buffer.
template <class Element>
class TextOutput
{
public:
    TextOutput(Element* buffer, int size)
        : m_buffer(size > 0 ? buffer : nullptr)
        , m_size(static_cast<std::size_t>(size))
    {
    }

    void Put(Element element)
    {
        if (m_buffer != nullptr && m_count < m_size)
            m_buffer[m_count] = element;
        ++m_count;
    }

    /// How many elements there were; 0 with ERROR_INSUFFICIENT_BUFFER when the buffer does not hold them.
    int Result() const
    {
        if (m_buffer != nullptr && m_count > m_size)
        {
            ::SetLastError(ERROR_INSUFFICIENT_BUFFER);
            return 0;
        }
        return static_cast<int>(m_count);
    }

private:
    Element* m_buffer;
    std::size_t m_size;
    std::size_t m_count = 0;
};
