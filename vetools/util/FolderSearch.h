#pragma once

#include <string_view>

#include "vetools/platform/Platform.h"

/// A search that is closed at its end (internal):
///
///     for (FolderSearch search(pattern); search.Found(); search.Next())
///         Use(search.Name());
class FolderSearch
{
public:
    explicit FolderSearch(const wchar_t* pattern)
        : m_search(::FindFirstFileW(pattern, &m_entry))
    {
    }
    FolderSearch(const FolderSearch&) = delete;
    FolderSearch& operator=(const FolderSearch&) = delete;
    ~FolderSearch() { Close(); }

    /// Whether there is an entry at this place; the members below are about it.
    bool Found() const { return m_search != INVALID_HANDLE_VALUE; }
    void Next()
    {
        if (!::FindNextFileW(m_search, &m_entry))
            Close();
    }

    const wchar_t* Name() const { return m_entry.cFileName; }
    /// "." or "..": the folder itself, or its parent.
    bool IsDots() const
    {
        const std::wstring_view name = Name();
        return name == L"." || name == L"..";
    }
    bool IsFolder() const { return Has(FILE_ATTRIBUTE_DIRECTORY); }
    /// Whether it stands for another file or folder.
    bool IsLink() const { return Has(FILE_ATTRIBUTE_REPARSE_POINT); }

private:
    bool Has(DWORD attribute) const { return (m_entry.dwFileAttributes & attribute) != 0; }
    void Close()
    {
        if (Found())
            ::FindClose(m_search);
        m_search = INVALID_HANDLE_VALUE;
    }

    WIN32_FIND_DATAW m_entry{};
    HANDLE m_search;
};
