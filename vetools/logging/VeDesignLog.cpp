#include "vetools/logging/VeDesignLog.h"

#include <algorithm>
#include <exception>
#include <string_view>

#include "vetools/logging/LogLevels.h"
#include "vetools/logging/LogText.h"
#include "vetools/platform/LineBreak.h"

namespace
{

constexpr wchar_t c_fileName[] = L"VeDesignLog.log";

void ReportToDebugger(const wchar_t* what, const std::exception& reason)
{
    ::OutputDebugStringW(what);
    ::OutputDebugStringA(reason.what());
}

/// Deletes what the log of an earlier session may have left.
void DeleteFoundFiles(const std::wstring& folder)
{
    WIN32_FIND_DATAW found{};
    const HANDLE search = ::FindFirstFileW((folder + c_fileName).c_str(), &found);  // Kept: never closed
    if (search == INVALID_HANDLE_VALUE)
        return;
    do
    {
        // Kept: the folder and the found name, also where that is another file than the one that was found.
        ::DeleteFileW((folder + found.cFileName).c_str());
    } while (::FindNextFileW(search, &found));
}

}  // namespace

/// The end of a text file, which receives what is written to it in one piece when the stream ends. A stream of the standard
/// library hands a long text over by buffers, between which another process may write, and ends at the first character
/// that its locale cannot encode.
class VeDesignLog::Stream
{
public:
    explicit Stream(const std::wstring& path)
        : m_file(::CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                               FILE_ATTRIBUTE_NORMAL, nullptr))
    {
    }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;
    ~Stream()
    {
        if (IsOpen())
            ::CloseHandle(m_file);
    }

    bool IsOpen() const { return m_file != INVALID_HANDLE_VALUE; }

    Stream& operator<<(std::wstring_view text)
    {
        while (!text.empty())
        {
            const std::size_t end = std::min(text.find(L'\n'), text.size());
            m_text += text.substr(0, end);
            if (end == text.size())
                break;
            m_text += c_lineBreak;
            text.remove_prefix(end + 1);
        }
        return *this;
    }

    void Flush() { AppendTexts(m_file, CP_UTF8, {m_text}); }

private:
    HANDLE m_file;
    std::wstring m_text;
};

std::list<std::pair<GUID, VeDesignLog*>>* VeDesignLog::ALL_LOGS = new std::list<std::pair<GUID, VeDesignLog*>>;

VeDesignLog::VeDesignLog(const GUID& guid, const std::wstring& folder)
{
    try
    {
        DeleteFoundFiles(folder);
        m_guid = guid;
        m_path = folder + c_fileName;
    }
    catch (const std::exception& reason)
    {
        // The object stays as far as it has come.
        ReportToDebugger(L"Error deleting file.", reason);
    }
}

VeDesignLog* VeDesignLog::CreateLogFileManagerInstance(const GUID& guid, const std::wstring& folder)
{
    try
    {
        std::unique_ptr<VeDesignLog> log(new VeDesignLog(guid, folder));
        ALL_LOGS->emplace_back(guid, log.get());
        return log.release();
    }
    catch (const std::exception& reason)
    {
        ReportToDebugger(L"VeDesignLog memory allocation error.", reason);
        return nullptr;
    }
}

VeDesignLog* VeDesignLog::GetLog(const GUID& guid)
{
    const auto found = std::find_if(ALL_LOGS->begin(), ALL_LOGS->end(),
                                    [&guid](const auto& pair) { return IsEqualGUID(pair.first, guid); });
    return found != ALL_LOGS->end() ? found->second : nullptr;
}

std::wstring VeDesignLog::GetPath() const
{
    return m_path;
}

std::unique_ptr<VeDesignLog::Stream> VeDesignLog::OpenStream() const
{
    auto stream = std::make_unique<Stream>(m_path);
    if (stream->IsOpen())
        return stream;
    static auto* const s_unopened = new std::list<std::unique_ptr<Stream>>;
    s_unopened->push_back(std::move(stream));  // Kept: never released
    ::OutputDebugStringA("wofstream cannot be opened");
    return nullptr;
}

void VeDesignLog::CloseStream(std::unique_ptr<Stream> stream) const
{
    if (stream)
        stream->Flush();
}

void VeDesignLog::Write(const std::wstring& text, short level) const
{
    std::unique_ptr<Stream> stream = OpenStream();
    if (!stream)
        return;
    *stream << L"\n";
    if (const std::wstring_view tag = LogLevelText(c_designLogTags, level); !tag.empty())
    {
        LogMoment now;
        *stream << now.Date() << L" " << now.Time() << tag;
    }
    *stream << text;
    CloseStream(std::move(stream));
}

void VeDesignLog::DeleteSessionLog()
{
    // Kept: the first pair alone, whose log is another one's when two were made for one session.
    if (ALL_LOGS->empty() || !IsEqualGUID(ALL_LOGS->front().first, m_guid))
        return;
    const std::unique_ptr<VeDesignLog> log(ALL_LOGS->front().second);
    ALL_LOGS->pop_front();
}
