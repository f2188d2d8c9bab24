#include "vetools/logging/LogFileBase.h"

#include <algorithm>
#include <cstdarg>
#include <new>

#include "vetools/framework/CString.h"
#include "vetools/framework/NumberWriter.h"
#include "vetools/framework/WideFormat.h"
#include "vetools/logging/LogLevels.h"
#include "vetools/logging/LogText.h"

namespace
{

constexpr int c_defaultMaxSize = 10000000;
constexpr wchar_t c_nameInFolder[] = L"\\Log.txt";
constexpr wchar_t c_nameInCurrentFolder[] = L"Log.log";
constexpr wchar_t c_header[] = L"Log started\n";
constexpr wchar_t c_trailer[] = L"Log ended\n";

/// The version of the format, in the line that follows the header.
constexpr wchar_t c_versionYear[] = L"2020";
constexpr int c_versionMajor = 0;
constexpr int c_versionMinor = 0;

/// The `minLevel` of Open that leaves the log's own.
constexpr int c_sameLevel = -1;

/// Most messages are shorter, and are made without growing.
constexpr int c_usualMessageLength = 255;

int ProcessId()
{
    return static_cast<int>(::GetCurrentProcessId());
}

void AppendInteger(std::wstring& text, int value)
{
    wchar_t digits[c_integerTextCapacity];
    text.append(digits, WriteInteger(digits, value));
}

/// Whether an existing file has grown beyond `maxSize`.
bool IsTooLarge(const wchar_t* path, int maxSize)
{
    if (maxSize == 0)
        return false;
    WIN32_FILE_ATTRIBUTE_DATA attributes{};
    if (!::GetFileAttributesExW(path, GetFileExInfoStandard, &attributes))
        return false;
    const int size = static_cast<int>(attributes.nFileSizeLow);  // Kept: 32 bits with a sign
    return size != -1 && size > maxSize;
}

}  // namespace

LogFileBase* LogFileBase::s_pSingleton = nullptr;

bool LogFileBase::CreateInstance(const wchar_t* directory, int maxSize)
{
    ReleaseInstance();
    s_pSingleton = new (std::nothrow) LogFileBase;
    if (s_pSingleton == nullptr)
        return false;
    const std::wstring path = directory != nullptr ? std::wstring(directory) + c_nameInFolder : c_nameInCurrentFolder;
    s_pSingleton->Open(path.c_str(), Message, !IsTooLarge(path.c_str(), maxSize), c_header);
    return true;
}

LogFileBase* LogFileBase::GetInstance()
{
    if (s_pSingleton == nullptr)
        CreateInstance(nullptr, c_defaultMaxSize);
    return s_pSingleton;
}

void LogFileBase::ReleaseInstance()
{
    delete s_pSingleton;
    s_pSingleton = nullptr;
}

LogFileBase::~LogFileBase()
{
    Close(c_trailer);
}

bool LogFileBase::Open(const wchar_t* path, EntryLevel minLevel, bool append, const wchar_t* header)
{
    if (!append)
        ::DeleteFileW(path);
    m_strPath = path != nullptr ? path : L"";
    // Kept: the handle of an open file is lost.
    m_hFile = ::CreateFileW(m_strPath.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                            OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    // Kept: the value of a failure, INVALID_HANDLE_VALUE, counts as an open file.
    if (m_hFile == nullptr)
        return false;
    ::SetFilePointer(m_hFile, 0, nullptr, FILE_END);
    if (minLevel != c_sameLevel)
        m_minLevel = minLevel;
    if (header != nullptr)
        Write(header);
    WriteHeaderLine();
    return true;
}

void LogFileBase::WriteHeaderLine()
{
    LogMoment now;
    Write(FormatWide(L"%s, %s, PID = %d QM%s.%d.%d\n", now.Date().data(), now.Time().data(), ProcessId(), c_versionYear,
                     c_versionMajor, c_versionMinor)
              .View());
}

void LogFileBase::Close(const wchar_t* trailer)
{
    if (!IsOpen())
        return;
    LogMoment now;
    Write(FormatWide(L"%s, %s, PID = %d, Entries = %d, Errors = %d \n", now.Date().data(), now.Time().data(),
                     ProcessId(), m_nEntries, m_nErrors)
              .View());
    if (trailer != nullptr)
        Write(trailer);
    ::CloseHandle(m_hFile);
    m_hFile = nullptr;
}

LogFileBase& LogFileBase::WriteEntryBegin(EntryLevel level, bool withLevelText, bool withTime, const char* sourceFile,
                                          int line)
{
    m_bEntryActive = level >= m_minLevel && IsOpen();
    if (!m_bEntryActive)
        return *this;
    const bool isError = IsErrorLevel(level);
    m_strEntry.clear();
    if (isError && sourceFile != nullptr)
    {
        m_strEntry += CString(sourceFile).View();
        if (line != 0)
        {
            m_strEntry += L'(';
            AppendInteger(m_strEntry, line);
            m_strEntry += L')';
        }
    }
    if (withTime)
        m_strEntry += LogMoment().Time();
    if (withLevelText)
    {
        m_strEntry += LogLevelText(c_entryLevels, level);
        m_strEntry += c_levelSeparator;
        ++m_nEntries;
        m_nErrors += isError ? 1 : 0;
    }
    m_bToDebugger = isError;
    return *this;
}

void LogFileBase::WriteEntryEnd(const wchar_t* format, ...)
{
    if (!m_bEntryActive)
        return;
    CString message;
    if (format != nullptr)
    {
        message.GetBuffer(c_usualMessageLength);
        va_list arguments;
        va_start(arguments, format);
        AppendFormattedV(message, format, arguments);
        va_end(arguments);
    }
    m_strEntry += message.View();  // Kept: behind what the last call left there
    if (!message.IsEmpty() && m_strEntry.back() != L'\n')
        m_strEntry += L'\n';
    Write(m_strEntry);
    if (m_bToDebugger)
        ::OutputDebugStringW(m_strEntry.c_str());
}

bool LogFileBase::IsOpen() const
{
    return m_hFile != nullptr;
}

bool LogFileBase::Write(const wchar_t* text)
{
    return Write(std::wstring_view(text));
}

bool LogFileBase::Write(std::wstring_view text)
{
    wchar_t prefix[c_processIdPrefix.size() + c_integerTextCapacity + 1];
    wchar_t* end = WriteInteger(std::ranges::copy(c_processIdPrefix, prefix).out, ProcessId());
    *end++ = L' ';
    return AppendTexts(m_hFile, CP_ACP, {{prefix, end}, text});
}

bool LogFileBase::Flush()
{
    return true;
}
