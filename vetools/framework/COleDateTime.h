#pragma once

#include "vetools/framework/CString.h"
#include "vetools/platform/Export.h"
#include "vetools/platform/Platform.h"

/// A date with a time of day, from 1 January 100 to 31 December 9999, and whether it is one. Seconds are its finest
/// unit: a time of day counts as the nearest second, half a second as the next.
///
/// It is held as OLE Automation counts: days since 30 December 1899, the fraction being the time of day. The fraction
/// counts forward on negative days as well: -1.25 is 29 December 1899, 6:00, and 1.25 is 31 December 1899, 6:00.
class VETOOLS_API COleDateTime
{
public:
    enum DateTimeStatus
    {
        valid = 0,
        invalid = 1,  ///< not a date, or one out of range
        null = 2,     ///< no value, as in a database
    };

    /// 30 December 1899, 0:00, valid.
    COleDateTime() noexcept;
    /// Invalid for a number out of range, or none; m_dt holds it all the same.
    COleDateTime(DATE date) noexcept;
    /// What the system makes of the value as VT_DATE; day 0 and invalid when it makes nothing of it.
    COleDateTime(const VARIANT& value);
    /// Invalid, with day 0, when a field is out of its range: COleDateTime(2023, 2, 29, 0, 0, 0).
    COleDateTime(int year, int month, int day, int hour, int minute, int second) noexcept;
    COleDateTime(const SYSTEMTIME& systemTime) noexcept;

    COleDateTime& operator=(DATE date) noexcept;
    COleDateTime& operator=(const VARIANT& value);
    COleDateTime& operator=(const SYSTEMTIME& systemTime) noexcept;

    DateTimeStatus GetStatus() const noexcept { return m_status; }
    void SetStatus(DateTimeStatus status) noexcept { m_status = status; }

    /// Sets the fields and returns the status: valid when they are a date, else invalid, with day 0.
    int SetDateTime(int year, int month, int day, int hour, int minute, int second) noexcept;

    /// The calendar's fields, milliseconds 0. False, with `systemTime` as it was, unless the date is valid.
    bool GetAsSystemTime(SYSTEMTIME& systemTime) const noexcept;

    /// A field; -1 unless the date is valid.
    int GetYear() const noexcept;
    int GetMonth() const noexcept;  ///< 1 to 12
    int GetDay() const noexcept;    ///< 1 to 31
    int GetHour() const noexcept;   ///< 0 to 23
    int GetMinute() const noexcept;
    int GetSecond() const noexcept;
    int GetDayOfWeek() const noexcept;  ///< 1 for Sunday to 7
    int GetDayOfYear() const noexcept;  ///< 1 to 366

    operator DATE() const noexcept { return m_dt; }

    /// Two values are equal when status and date are.
    bool operator==(const COleDateTime& other) const noexcept;
    bool operator!=(const COleDateTime& other) const noexcept { return !(*this == other); }
    /// The order in time, for valid dates: -1.75 is later than -1.25.
    bool operator<(const COleDateTime& other) const noexcept;
    bool operator>(const COleDateTime& other) const noexcept { return other < *this; }
    bool operator<=(const COleDateTime& other) const noexcept { return !(other < *this); }
    bool operator>=(const COleDateTime& other) const noexcept { return !(*this < other); }

    /// The date by a format of the language's wcsftime: "%m %d %y" gives 01 18 21.
    ///
    /// %a %A  day of the week, in English: Mon, Monday      %b %B  month: Jan, January
    /// %d day, %j day of the year, %m month, %w day of the week (0 for Sunday), %y year of the century, %Y year
    /// %H hour, %I hour of twelve, %p AM or PM, %M minute, %S second
    /// %x  01/18/21      %X  14:05:09      %c  01/18/21 14:05:09      %%  a per cent sign
    ///
    /// Any other character behind % stands for itself, with its sign. Names and order do not depend on the user's language.
    /// An empty text for a null date, for a null format, and where the text would exceed 255 characters. A date that is
    /// invalid, or has no fields, reads as the text 0xD800 of the current resource module, or "Invalid DateTime" where
    /// that module has none.
    CString Format(const wchar_t* format) const;

    DATE m_dt;
    DateTimeStatus m_status;
};
