#include "vetools/util/VeString.h"

#include <algorithm>
#include <chrono>
#include <string_view>
#include <thread>

namespace
{

/// What a function that calls itself without end amounts to, at the cost of neither the stack nor a processor.
[[noreturn]] void NeverReturn()
{
    for (;;)
        std::this_thread::sleep_for(std::chrono::seconds(1));
}

/// Hands a comparison on to whatever stands in the object's slot. Coming here from there, with the same object, means that
/// no override answers. Each comparison has a mark of its own.
template <class Question>
int AskAgain(const CVeString& object, Question question)
{
    static thread_local const CVeString* s_asked = nullptr;
    if (s_asked == &object)
        NeverReturn();

    struct Mark
    {
        const CVeString* const outer = s_asked;
        ~Mark() { s_asked = outer; }
    };
    const Mark mark;
    s_asked = &object;
    return question();
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

// Kept: both comparisons ask the object again, through its own slot.

int CVeString::operator==(const CVeString& other) const
{
    return AskAgain(*this, [&] { return operator==(other); });
}

int CVeString::operator!=(const CVeString& other) const
{
    return AskAgain(*this, [&] { return operator!=(other); });
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
