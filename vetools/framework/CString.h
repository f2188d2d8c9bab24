#pragma once

#include <cstdarg>
#include <cstddef>
#include <string_view>

#include "vetools/platform/Export.h"
#include "vetools/platform/Platform.h"

/// The framework's wide string. Short texts (up to 23 characters) are held in the object itself, without allocation.
class VETOOLS_API CString
{
public:
    using XCHAR = wchar_t;
    using PXSTR = wchar_t*;
    using PCXSTR = const wchar_t*;

    CString() noexcept;
    CString(const CString& other);
    CString(CString&& other) noexcept;
    CString(const wchar_t* text);
    CString(const char* text);
    CString(const wchar_t* text, int length);
    explicit CString(wchar_t character, int repeat = 1);
    explicit CString(std::wstring_view text);
    ~CString();

    CString& operator=(const CString& other);
    CString& operator=(CString&& other) noexcept;
    CString& operator=(const wchar_t* text);
    CString& operator=(const char* text);
    CString& operator=(wchar_t character);
    CString& operator+=(const CString& other);
    CString& operator+=(const wchar_t* text);
    CString& operator+=(wchar_t character);

    operator const wchar_t*() const noexcept;
    wchar_t operator[](int index) const;
    operator std::wstring_view() const noexcept = delete;
    std::wstring_view View() const noexcept;

    const wchar_t* GetString() const noexcept;
    int GetLength() const noexcept;
    bool IsEmpty() const noexcept;
    void Empty() noexcept;
    wchar_t GetAt(int index) const;
    void SetAt(int index, wchar_t character);
    void SetString(const wchar_t* text);
    void SetString(const wchar_t* text, int length);
    void Append(const wchar_t* text);
    void Append(const wchar_t* text, int length);
    void Append(const CString& text);
    void AppendChar(wchar_t character);

    int Compare(const wchar_t* other) const;
    int CompareNoCase(const wchar_t* other) const;
    int Collate(const wchar_t* other) const;
    int CollateNoCase(const wchar_t* other) const;

    CString Mid(int first) const;
    CString Mid(int first, int count) const;
    CString Left(int count) const;
    CString Right(int count) const;
    CString SpanIncluding(const wchar_t* characters) const;
    CString SpanExcluding(const wchar_t* characters) const;
    CString Tokenize(const wchar_t* delimiters, int& position) const;

    CString& MakeUpper();
    CString& MakeLower();
    CString& MakeReverse();

    int Replace(wchar_t oldCharacter, wchar_t newCharacter);
    int Replace(const wchar_t* oldText, const wchar_t* newText);
    int Remove(wchar_t character);
    int Insert(int index, wchar_t character);
    int Insert(int index, const wchar_t* text);
    int Delete(int index, int count = 1);

    CString& Trim();
    CString& Trim(wchar_t character);
    CString& Trim(const wchar_t* characters);
    CString& TrimLeft();
    CString& TrimLeft(wchar_t character);
    CString& TrimLeft(const wchar_t* characters);
    CString& TrimRight();
    CString& TrimRight(wchar_t character);
    CString& TrimRight(const wchar_t* characters);

    int Find(wchar_t character, int start = 0) const noexcept;
    int Find(const wchar_t* text, int start = 0) const noexcept;
    int ReverseFind(wchar_t character) const noexcept;
    int FindOneOf(const wchar_t* characters) const noexcept;

    void Format(const wchar_t* format, ...);
    void Format(UINT formatId, ...);
    void FormatV(const wchar_t* format, va_list arguments);
    void AppendFormat(const wchar_t* format, ...);
    void AppendFormat(UINT formatId, ...);
    void AppendFormatV(const wchar_t* format, va_list arguments);

    bool LoadString(UINT id);
    bool LoadString(HINSTANCE module, UINT id);

    wchar_t* GetBuffer();
    wchar_t* GetBuffer(int minimumLength);
    wchar_t* GetBufferSetLength(int length);
    void ReleaseBuffer(int newLength = -1);
    void ReleaseBufferSetLength(int newLength);
    void Truncate(int newLength);
    void Preallocate(int length);
    void FreeExtra();
    int GetAllocLength() const noexcept;
};
