#pragma once

#include <string>
#include <vector>

#include "tests/support/FileTestSupport.h"
#include "vetools/logging/LogFileBase.h"

/// Lets the log of the process lie in a folder of its own while it lives.
class ScopedLog
{
public:
    ScopedLog() { LogFileBase::CreateInstance(m_folder.Path().wstring().c_str(), 0); }
    ScopedLog(const ScopedLog&) = delete;
    ScopedLog& operator=(const ScopedLog&) = delete;
    ~ScopedLog() { LogFileBase::ReleaseInstance(); }

    /// What the library's file functions have written so far: each message with its line break, up to the next entry, such
    /// as "error (6) writing in file\n".
    std::vector<std::string> Errors() const;

private:
    TestFolder m_folder;
};
