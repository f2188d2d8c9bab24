#include "vetools/framework/CStringArray.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

IMPLEMENT_DYNAMIC(CStringArray, CObject)

CStringArray::CStringArray() = default;

CStringArray::~CStringArray() = default;

namespace
{

/// The largest array: one whose bytes can still be counted.
constexpr INT_PTR c_largestSize = std::numeric_limits<INT_PTR>::max() / static_cast<INT_PTR>(2 * sizeof(CString));

void CheckCount(INT_PTR count)
{
    if (count < 0)
        AfxThrowInvalidArgException();
}

}  // namespace

void CStringArray::CheckIndex(INT_PTR index) const
{
    if (index < 0 || index >= m_size)
        AfxThrowInvalidArgException();
}

/// Makes room for `size` strings; those beyond m_size are empty.
void CStringArray::Reserve(INT_PTR size)
{
    if (size <= m_capacity)
        return;
    const INT_PTR growth = m_growBy > 0 ? m_growBy : m_capacity / 2;
    const INT_PTR capacity = growth < c_largestSize - m_capacity ? std::max(size, m_capacity + growth) : size;
    if (capacity > c_largestSize)
        AfxThrowMemoryException();
    std::unique_ptr<CString[]> strings(new (std::nothrow) CString[static_cast<std::size_t>(capacity)]);
    if (strings == nullptr)
        AfxThrowMemoryException();
    std::move(m_strings.get(), m_strings.get() + m_size, strings.get());
    m_strings = std::move(strings);
    m_capacity = capacity;
}

void CStringArray::SetSize(INT_PTR size, INT_PTR growBy)
{
    CheckCount(size);
    if (growBy >= 0)
        m_growBy = growBy;
    Reserve(size);
    for (INT_PTR i = size; i < m_size; ++i)
        m_strings[static_cast<std::size_t>(i)].Empty();
    m_size = size;
}

void CStringArray::FreeExtra()
{
    if (m_size == m_capacity)
        return;
    std::unique_ptr<CString[]> strings;
    if (m_size > 0)
    {
        strings.reset(new (std::nothrow) CString[static_cast<std::size_t>(m_size)]);
        if (strings == nullptr)
            AfxThrowMemoryException();
        std::move(m_strings.get(), m_strings.get() + m_size, strings.get());
    }
    m_strings = std::move(strings);
    m_capacity = m_size;
}

void CStringArray::RemoveAll()
{
    m_strings.reset();
    m_size = 0;
    m_capacity = 0;
}

const CString& CStringArray::GetAt(INT_PTR index) const
{
    CheckIndex(index);
    return m_strings[static_cast<std::size_t>(index)];
}

CString& CStringArray::ElementAt(INT_PTR index)
{
    CheckIndex(index);
    return m_strings[static_cast<std::size_t>(index)];
}

void CStringArray::SetAt(INT_PTR index, const CString& text)
{
    ElementAt(index) = text;
}

void CStringArray::SetAtGrow(INT_PTR index, const CString& text)
{
    CheckCount(index);
    if (index < m_size)
        return SetAt(index, text);
    InsertAt(index, text);
}

INT_PTR CStringArray::Add(const CString& text)
{
    const INT_PTR index = m_size;
    InsertAt(index, text);
    return index;
}

INT_PTR CStringArray::Append(const CStringArray& other)
{
    const INT_PTR index = m_size;
    InsertAt(index, other);
    return index;
}

void CStringArray::Copy(const CStringArray& other)
{
    if (this == &other)
        return;
    SetSize(other.m_size);
    std::copy_n(other.m_strings.get(), other.m_size, m_strings.get());
}

/// Makes `count` empty strings at `index`, and before it, where it lies beyond the end.
void CStringArray::OpenGap(INT_PTR index, INT_PTR count)
{
    CheckCount(index);
    CheckCount(count);
    const INT_PTR kept = std::max(index, m_size);
    if (kept > c_largestSize - count)
        AfxThrowMemoryException();
    Reserve(kept + count);
    if (index < m_size)
        std::move_backward(m_strings.get() + index, m_strings.get() + m_size, m_strings.get() + m_size + count);
    m_size = kept + count;
}

void CStringArray::InsertAt(INT_PTR index, const CString& text, INT_PTR count)
{
    // The text may be a string of this array, which moves.
    CString inserted(text);
    OpenGap(index, count);
    if (count == 1)
        m_strings[static_cast<std::size_t>(index)] = std::move(inserted);
    else
        std::fill_n(m_strings.get() + index, count, inserted);
}

void CStringArray::InsertAt(INT_PTR index, const CStringArray& other)
{
    if (this == &other)
    {
        CStringArray copy;
        copy.Copy(other);
        return InsertAt(index, copy);
    }
    OpenGap(index, other.m_size);
    std::copy_n(other.m_strings.get(), other.m_size, m_strings.get() + index);
}

void CStringArray::RemoveAt(INT_PTR index, INT_PTR count)
{
    CheckCount(index);
    CheckCount(count);
    if (index > m_size || count > m_size - index)
        AfxThrowInvalidArgException();
    CString* const first = m_strings.get() + index;
    std::move(first + count, m_strings.get() + m_size, first);
    SetSize(m_size - count);
}
