#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/ByteStream.h"

namespace CLI
{
class App;
}

/// Where the values come from when they are not arguments, as the options of the command give it.
struct SourceSettings
{
    std::string csvFile;  ///< "-" for standard input
    std::string column;   ///< name, or number from 1
    char delimiter = ',';
    bool hasHeader = true;
};

/// --csv, --column, --delimiter, --no-header.
void AddSourceOptions(CLI::App& command, SourceSettings& settings);

/// One text to be read as a value.
struct ValueText
{
    std::string_view text;          ///< valid until the next one; any bytes
    std::uint64_t line = 0;         ///< where it stands in the input, from 1; 0 for an argument
    const char* problem = nullptr;  ///< what keeps it from being read at all; null for a good text
};

/// Values one after the other, from input of any size.
class ValueSource
{
public:
    virtual ~ValueSource() = default;

    /// False at the end. Throws StreamError when the input cannot be read.
    virtual bool Next(ValueText& value) = 0;

    /// Null for arguments.
    virtual const System::InputFile* File() const = 0;
};

/// The arguments, or a column of a CSV file, or one value per line of standard input: the latter when there is neither
/// a file nor an argument, or the one argument is "-". Throws UsageError for a file or column that is not there.
///
/// beforeRead  called before each read, with the number of bytes read so far
std::unique_ptr<ValueSource> OpenValues(std::vector<std::string> arguments, const SourceSettings& settings,
                                        std::function<void(std::uint64_t)> beforeRead);
