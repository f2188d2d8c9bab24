#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the command needs from the system: arguments, standard streams and files, with UTF-8 text in and out on every
/// system. Line ends are written and read as they are: nothing turns "\n" into "\r\n". One implementation per system,
/// chosen by the build.
namespace System
{

enum class Stream
{
    Output,
    Error,
};

/// How a write ended. Closed: nobody reads the other end of the pipe any more, which is no failure of ours.
enum class WriteResult
{
    Done,
    Closed,
    Failed,
};

/// The program's arguments without its name.
std::vector<std::string> Arguments(int argc, char** argv);

/// A path as the library opens it, however long: what the system wants in front of a long one is put there.
std::wstring LongPath(const std::wstring& path);

/// Writes all of the text, whole code points only. A terminal shows it whatever its own encoding is.
WriteResult Write(Stream stream, std::string_view text);

bool IsTerminal(Stream stream);

/// A file or standard input, read from front to back. Closed with the object.
class InputFile
{
public:
    static InputFile StandardInput();

    /// Nothing when the file cannot be opened; `problem` then says why.
    static std::optional<InputFile> Open(const std::string& path, std::string& problem);

    InputFile(InputFile&& other) noexcept;
    InputFile& operator=(InputFile&& other) = delete;
    ~InputFile();

    /// Reads up to `capacity` bytes, waiting until there is at least one. 0 at the end; nothing on a failure, with
    /// `problem` saying why.
    std::optional<std::size_t> Read(char* buffer, std::size_t capacity, std::string& problem);

    /// Length of a regular file in bytes; nothing for pipes and terminals.
    std::optional<std::uint64_t> Size() const;

    bool IsTerminal() const;

private:
    InputFile(std::intptr_t handle, bool owned)
        : m_handle(handle)
        , m_owned(owned)
    {
    }

    std::intptr_t m_handle;
    bool m_owned;
};

}  // namespace System
