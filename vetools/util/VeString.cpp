#include "vetools/util/VeString.h"

#include <algorithm>
#include <chrono>
#include <string_view>
#include <thread>

namespace
{

/// Marks, for its lifetime, that a comparison of the object has been handed on to whatever stands in the object's slot.
class HandedOn
{
public:
    HandedOn(const CVeString*& current, const CVeString* object)
        : m_current(current)
        , m_outer(current)
    {
        m_current = object;
    }
    ~HandedOn() { m_current = m_outer; }
    HandedOn(const HandedOn&) = delete;
    HandedOn& operator=(const HandedOn&) = delete;

private:
    const CVeString*& m_current;
    const CVeString* m_outer;
};

/// What a function that calls itself without end amounts to, at the cost of neither the stack nor a processor.
[[noreturn]] void NeverReturn()
{
    for (;;)
        std::this_thread::sleep_for(std::chrono::seconds(1));
}

bool Contains(const CString& characters, wchar_t character)
{
    return characters.View().find(character) != std::wstring_view::npos;
}

}  // namespace

CVeString::CVeString() = default;

CVeString::CVeString(const CVeString& other)
    : CString()
{
    CVeString::operator=(other);
}

CVeString::CVeString(const CString& text)
    : CString(text)
{
}

CVeString::CVeString(const wchar_t* text, int length)
    : CString(text, length)
{
}

CVeString::CVeString(wchar_t character, int repeat)
    : CString(character, repeat)
{
}

CVeString::CVeString(const wchar_t* text)
    : CString(text)
{
}

CVeString::~CVeString() = default;

CVeString& CVeString::operator=(const CVeString& other)
{
    CString::operator=(other);
    return *this;
}

// Kept: both comparisons dispatch again on the object. Arriving here a second time with the same object means that there is no
// override which could answer.

int CVeString::operator==(const CVeString& other) const
{
    static thread_local const CVeString* s_handedOn = nullptr;
    if (s_handedOn == this)
        NeverReturn();
    const HandedOn handedOn(s_handedOn, this);
    return operator==(other);
}

int CVeString::operator!=(const CVeString& other) const
{
    static thread_local const CVeString* s_handedOn = nullptr;
    if (s_handedOn == this)
        NeverReturn();
    const HandedOn handedOn(s_handedOn, this);
    return operator!=(other);
}

void CVeString::Dump() const {}

void CVeString::ExcludeChar(const CString& chars)
{
    const CString excluded(chars);  // chars may be this string
    wchar_t* const first = GetBuffer();
    wchar_t* const last =
        std::remove_if(first, first + GetLength(), [&](wchar_t character) { return Contains(excluded, character); });
    ReleaseBufferSetLength(static_cast<int>(last - first));
}

void CVeString::IncludeChar(const CString& chars)
{
    const CString included(chars);  // chars may be this string
    wchar_t* const text = GetBuffer();
    const int length = GetLength();
    int kept = 0;
    for (int i = 0; i < length; ++i)
    {
        if (Contains(included, text[i]))
            text[kept++] = text[i];
        else if (kept == 0 && ++i < length)
            text[kept++] = text[i];  // Kept: what moves to the first place is not looked at
    }
    ReleaseBufferSetLength(kept);
}

int CompareUpperCase(CString a, CString b)
{
    return a.MakeUpper().Compare(b.MakeUpper());
}

const wchar_t* BoolToString(int b)
{
    return b ? L"TRUE" : L"FALSE";
}
