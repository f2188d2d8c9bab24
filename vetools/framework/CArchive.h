#pragma once

#include <bit>
#include <cstdint>
#include <type_traits>

#include "vetools/framework/CFile.h"

/// A failed archive operation. Thrown by pointer; whoever catches it calls Delete.
class VETOOLS_API CArchiveException : public CException
{
    DECLARE_DYNAMIC(CArchiveException)

public:
    enum
    {
        none = 0,
        genericException = 1,
        readOnly = 2,   ///< writing into an archive that loads
        endOfFile = 3,  ///< reading past the end
        writeOnly = 4,  ///< reading from an archive that stores
        badIndex = 5,
        badClass = 6,
        badSchema = 7,
    };

    explicit CArchiveException(int cause = none, const wchar_t* fileName = nullptr);

    int m_cause;
    CString m_strFileName;
};

/// Throws a CArchiveException.
[[noreturn]] VETOOLS_API void AfxThrowArchiveException(int cause, const wchar_t* fileName = nullptr);

/// Binary values, little-endian and without padding, streamed to or from a file through a buffer.
///
/// Values are written by << into an archive made with `store` and read by >> from one made with `load`. The wrong direction
/// throws a CArchiveException with the cause readOnly or writeOnly, a short file one with endOfFile; failures of the file
/// itself throw its CFileException. The file stays the caller's and must outlive the archive; Close hands the rest of
/// the buffer to it, and the destructor calls Close.
class VETOOLS_API CArchive
{
public:
    enum Mode
    {
        store = 0,
        load = 1,
        bNoFlushOnDelete = 2,
        bNoByteSwap = 4,
    };

    /// `bufferSize` in bytes, at least 128. A buffer of the caller's is accepted and not used: the archive has its own.
    CArchive(CFile* file, UINT mode, int bufferSize = 4096, void* buffer = nullptr);
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;
    ~CArchive();

    bool IsLoading() const;
    bool IsStoring() const;
    CFile* GetFile() const;

    /// Reads up to `size` bytes and returns their number.
    UINT Read(void* buffer, UINT size);
    void Write(const void* buffer, UINT size);
    /// Hands what was written to the file, or sets the file back to what was read of it.
    void Flush();
    void Close();
    /// Drops the buffer: nothing more is written.
    void Abort();

    /// Writes the value's bytes, the lowest first: bool as one byte, wchar_t as 16 bits whatever its size here.
    /// A long has 4 bytes on Windows and 8 elsewhere: store types of fixed size.
    template <typename Value>
    requires std::is_arithmetic_v<Value> CArchive& operator<<(Value value)
    {
        const auto stored = static_cast<Stored<Value>>(value);
        Write(&stored, sizeof stored);
        return *this;
    }

    /// Reads what << wrote. `value` keeps what it held when the file ends too early.
    template <typename Value>
    requires std::is_arithmetic_v<Value> CArchive& operator>>(Value& value)
    {
        Stored<Value> stored{};
        if (Read(&stored, sizeof stored) != sizeof stored)
            AfxThrowArchiveException(CArchiveException::endOfFile, GetFile()->GetFilePath());
        value = static_cast<Value>(stored);
        return *this;
    }

private:
    static_assert(std::endian::native == std::endian::little, "values are stored as they stand in memory");

    template <typename Value>
    using Stored = std::conditional_t<std::is_same_v<Value, wchar_t>, std::uint16_t,
                                      std::conditional_t<std::is_same_v<Value, bool>, std::uint8_t, Value>>;

    CFile* m_file;
    UINT m_mode;
    UINT m_capacity;
    UINT m_used = 0;   ///< bytes in the buffer: read from the file, or to be written to it
    UINT m_taken = 0;  ///< when loading, how many of them were handed out
    BYTE* m_buffer;
};
