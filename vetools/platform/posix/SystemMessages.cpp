#include <algorithm>
#include <cstdlib>
#include <cwchar>
#include <iterator>
#include <string_view>

#include "vetools/platform/posix/ErrnoMapping.h"
#include "vetools/platform/posix/WinBase.h"

namespace
{

struct MessageRow
{
    DWORD code;
    std::wstring_view text;
};

// The English texts of the system's message table, for the numbers of WinErrors.h.
// clang-format off
constexpr MessageRow c_messages[] = {
    {ERROR_SUCCESS,                L"The operation completed successfully.\r\n"},
    {ERROR_FILE_NOT_FOUND,         L"The system cannot find the file specified.\r\n"},
    {ERROR_PATH_NOT_FOUND,         L"The system cannot find the path specified.\r\n"},
    {ERROR_TOO_MANY_OPEN_FILES,    L"The system cannot open the file.\r\n"},
    {ERROR_ACCESS_DENIED,          L"Access is denied.\r\n"},
    {ERROR_INVALID_HANDLE,         L"The handle is invalid.\r\n"},
    {ERROR_NOT_ENOUGH_MEMORY,      L"Not enough memory resources are available to process this command.\r\n"},
    {ERROR_CURRENT_DIRECTORY,      L"The directory cannot be removed.\r\n"},
    {ERROR_NOT_SAME_DEVICE,        L"The system cannot move the file to a different disk drive.\r\n"},
    {ERROR_NO_MORE_FILES,          L"There are no more files.\r\n"},
    {ERROR_WRITE_PROTECT,          L"The media is write protected.\r\n"},
    {ERROR_SEEK,                   L"The drive cannot locate a specific area or track on the disk.\r\n"},
    {ERROR_WRITE_FAULT,            L"The system cannot write to the specified device.\r\n"},
    {ERROR_READ_FAULT,             L"The system cannot read from the specified device.\r\n"},
    {ERROR_GEN_FAILURE,            L"A device attached to the system is not functioning.\r\n"},
    {ERROR_SHARING_VIOLATION,      L"The process cannot access the file because it is being used by another process.\r\n"},
    {ERROR_LOCK_VIOLATION,         L"The process cannot access the file because another process has locked a portion of the file.\r\n"},
    {ERROR_HANDLE_EOF,             L"Reached the end of the file.\r\n"},
    {ERROR_HANDLE_DISK_FULL,       L"The disk is full.\r\n"},
    {ERROR_FILE_EXISTS,            L"The file exists.\r\n"},
    {ERROR_CANNOT_MAKE,            L"The directory or file cannot be created.\r\n"},
    {ERROR_INVALID_PARAMETER,      L"The parameter is incorrect.\r\n"},
    {ERROR_BROKEN_PIPE,            L"The pipe has been ended.\r\n"},
    {ERROR_DISK_FULL,              L"There is not enough space on the disk.\r\n"},
    {ERROR_INSUFFICIENT_BUFFER,    L"The data area passed to a system call is too small.\r\n"},
    {ERROR_INVALID_NAME,           L"The filename, directory name, or volume label syntax is incorrect.\r\n"},
    {ERROR_NEGATIVE_SEEK,          L"An attempt was made to move the file pointer before the beginning of the file.\r\n"},
    {ERROR_DIR_NOT_EMPTY,          L"The directory is not empty.\r\n"},
    {ERROR_BAD_PATHNAME,           L"The specified path is invalid.\r\n"},
    {ERROR_BUSY,                   L"The requested resource is in use.\r\n"},
    {ERROR_ALREADY_EXISTS,         L"Cannot create a file when that file already exists.\r\n"},
    {ERROR_FILENAME_EXCED_RANGE,   L"The filename or extension is too long.\r\n"},
    {ERROR_FILE_TOO_LARGE,         L"The file size exceeds the limit allowed and cannot be saved.\r\n"},
    {ERROR_DIRECTORY,              L"The directory name is invalid.\r\n"},
    {ERROR_MR_MID_NOT_FOUND,       L"The system cannot find message text for message number 0x%1 in the message file for %2.\r\n"},
    {ERROR_NOACCESS,               L"Invalid access to memory location.\r\n"},
    {ERROR_INVALID_FLAGS,          L"Invalid flags.\r\n"},
    {ERROR_NO_UNICODE_TRANSLATION, L"No mapping for the Unicode character exists in the target multi-byte code page.\r\n"},
    {ERROR_IO_DEVICE,              L"The request could not be performed because of an I/O device error.\r\n"},
    {ERROR_DISK_QUOTA_EXCEEDED,    L"The requested file operation failed because the storage quota was exceeded.\r\n"},
    {ERROR_INVALID_USER_BUFFER,    L"The supplied user buffer is not valid for the requested operation.\r\n"},
    {ERROR_RESOURCE_NAME_NOT_FOUND, L"The specified resource name cannot be found in the image file.\r\n"},
    {ERROR_CANT_RESOLVE_FILENAME,  L"The name of the file cannot be resolved by the system.\r\n"},
};
// clang-format on

static_assert(std::is_sorted(std::begin(c_messages), std::end(c_messages),
                             [](const MessageRow& left, const MessageRow& right) { return left.code < right.code; }),
              "the texts stand in the order of their codes, for a binary search");

/// The text of a code; empty when it has none.
std::wstring_view TextOf(DWORD code)
{
    const auto* row = std::lower_bound(std::begin(c_messages), std::end(c_messages), code,
                                       [](const MessageRow& message, DWORD wanted) { return message.code < wanted; });
    return row != std::end(c_messages) && row->code == code ? row->text : std::wstring_view();
}

}  // namespace

DWORD FormatMessageW(DWORD flags, LPCVOID, DWORD code, DWORD, LPWSTR buffer, DWORD size, va_list*)
{
    constexpr DWORD c_needed = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    const bool allocates = flags & FORMAT_MESSAGE_ALLOCATE_BUFFER;
    if ((flags & ~FORMAT_MESSAGE_ALLOCATE_BUFFER) != c_needed || !buffer || (!allocates && size == 0))
        return static_cast<DWORD>(Fail(ERROR_INVALID_PARAMETER));
    const std::wstring_view text = TextOf(code);
    if (text.empty())
        return static_cast<DWORD>(Fail(ERROR_MR_MID_NOT_FOUND));
    if (!allocates && size <= text.size())
        return static_cast<DWORD>(Fail(ERROR_INSUFFICIENT_BUFFER));
    LPWSTR target = buffer;
    if (allocates)
    {
        const std::size_t characters = std::max<std::size_t>(size, text.size() + 1);
        target = static_cast<LPWSTR>(std::calloc(characters, sizeof(wchar_t)));
        *reinterpret_cast<LPWSTR*>(buffer) = target;
        if (!target)
            return static_cast<DWORD>(Fail(ERROR_NOT_ENOUGH_MEMORY));
    }
    std::wmemcpy(target, text.data(), text.size());
    target[text.size()] = L'\0';
    return static_cast<DWORD>(text.size());
}

HLOCAL LocalFree(HLOCAL memory)
{
    std::free(memory);
    return nullptr;
}
