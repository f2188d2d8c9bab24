#pragma once

#include <chrono>
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

/// UTF-8 of a text in the encoding of narrow text that the library writes: the ANSI code page on Windows, UTF-8
/// elsewhere. What encodes nothing becomes U+FFFD.
std::string FromNarrow(std::string_view text);

/// What gives the library its encodings, languages and dates: "ICU 72.1", "code page 1252".
std::string TextServices();

/// What tells a file from every other one on this system.
struct FileIdentity
{
    std::uint64_t volume = 0;
    std::uint64_t file = 0;

    bool operator==(const FileIdentity&) const = default;
};

/// Whether a file that is open here can be deleted by others and made anew at once. On Windows its name is taken until
/// it is closed: whoever watches a file has it open only to read.
extern const bool c_openFilesAreReplaceable;

/// A file or standard input, read from front to back. Closed with the object. Others may read, write and delete it.
class InputFile
{
public:
    static InputFile StandardInput();

    /// Nothing when the file cannot be opened or is a folder; `problem` then says why.
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

    FileIdentity Identity() const;

    /// The next Read begins at this byte of a regular file. False when it cannot.
    bool Seek(std::uint64_t position);

private:
    InputFile(std::intptr_t handle, bool owned)
        : m_handle(handle)
        , m_owned(owned)
    {
    }

    std::intptr_t m_handle;
    bool m_owned;
};

/// While it lives, Ctrl+C and the like, and a reader of standard output that leaves, do not end the program at once but
/// are answered by Wait. One at a time.
class Waiter
{
public:
    enum class Answer
    {
        Elapsed,
        Interrupted,
        OutputClosed,
    };

    Waiter();
    ~Waiter();
    Waiter(const Waiter&) = delete;
    Waiter& operator=(const Waiter&) = delete;

    Answer Wait(std::chrono::milliseconds time);
};

}  // namespace System
