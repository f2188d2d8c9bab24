#pragma once

#include <cstddef>
#include <memory>

#include "vetools/framework/CException.h"
#include "vetools/framework/CString.h"
#include "vetools/platform/Export.h"

/// The framework's array of strings. Indices and sizes are INT_PTR; an index outside the array, or a negative size or
/// count, throws CInvalidArgException* and changes nothing.
class VETOOLS_API CStringArray : public CObject
{
    DECLARE_DYNAMIC(CStringArray)

public:
    CStringArray();
    ~CStringArray() override;

    INT_PTR GetSize() const noexcept { return m_size; }
    INT_PTR GetCount() const noexcept { return m_size; }
    /// The index of the last string, -1 for an empty array.
    INT_PTR GetUpperBound() const noexcept { return m_size - 1; }
    bool IsEmpty() const noexcept { return m_size == 0; }
    /// Adds empty strings at the end, or removes strings from there.
    ///
    /// growBy  how many strings to take memory for at least, whenever the array grows beyond what it has; -1 leaves
    ///         that as it is, and 0, which it is at first, means by half
    void SetSize(INT_PTR size, INT_PTR growBy = -1);
    /// Gives back memory that the strings do not need.
    void FreeExtra();
    void RemoveAll();

    const CString& GetAt(INT_PTR index) const;
    void SetAt(INT_PTR index, const CString& text);
    CString& ElementAt(INT_PTR index);
    const CString& operator[](INT_PTR index) const { return GetAt(index); }
    CString& operator[](INT_PTR index) { return ElementAt(index); }
    /// The strings one behind the other, valid until the array changes; null for an array that never held any.
    const CString* GetData() const noexcept { return m_strings.get(); }
    CString* GetData() noexcept { return m_strings.get(); }

    /// Replaces the string at `index`; the array grows as far as needed, with empty strings in between.
    void SetAtGrow(INT_PTR index, const CString& text);
    /// Adds a string at the end and returns its index.
    INT_PTR Add(const CString& text);
    /// Adds the strings of another array at the end and returns the index of the first of them. Appending an array to
    /// itself doubles it.
    INT_PTR Append(const CStringArray& other);
    void Copy(const CStringArray& other);

    /// Inserts a text `count` times before the string at `index`, which may lie beyond the end: the array then grows up
    /// to there.
    void InsertAt(INT_PTR index, const CString& text, INT_PTR count = 1);
    void InsertAt(INT_PTR index, const CStringArray& other);
    /// Removes `count` strings from `index` on; they must all exist.
    void RemoveAt(INT_PTR index, INT_PTR count = 1);

private:
    void CheckIndex(INT_PTR index) const;
    void Reserve(INT_PTR size);
    void OpenGap(INT_PTR index, INT_PTR count);

    std::unique_ptr<CString[]> m_strings;
    INT_PTR m_size = 0;
    INT_PTR m_capacity = 0;
    INT_PTR m_growBy = 0;
};
