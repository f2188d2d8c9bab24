#pragma once

#include <initializer_list>
#include <string_view>

#include "vetools/platform/Platform.h"

// What the two kinds of log have in common (internal).

/// The local date and time at which it was made, as both logs write them. The texts end with a terminator, and are read
/// before another moment of the thread is asked for its own.
class LogMoment
{
public:
    LogMoment() { ::GetLocalTime(&m_time); }

    /// In full and in the user's language: Monday, January 18, 2021. Empty when the system has no such text.
    std::wstring_view Date();
    /// Of 24 hours: 14:05:09.
    std::wstring_view Time();

private:
    static constexpr int c_capacity = 128;

    SYSTEMTIME m_time;
    wchar_t m_dateText[c_capacity];
};

/// Encodes texts in a code page, CP_ACP or CP_UTF8, and appends them to a file by one write, however long they are. What
/// the code page lacks is replaced as the system does. False when the write fails.
bool AppendTexts(HANDLE file, UINT codePage, std::initializer_list<std::wstring_view> texts);
