#pragma once

#include "vetools/framework/CException.h"
#include "vetools/framework/CString.h"
#include "vetools/platform/Export.h"
#include "vetools/platform/Platform.h"

/// A failed file operation. Thrown by pointer; whoever catches it calls Delete.
class VETOOLS_API CFileException : public CException
{
    DECLARE_DYNAMIC(CFileException)

public:
    enum
    {
        none = 0,
        genericException = 1,
        fileNotFound = 2,
        badPath = 3,
        tooManyOpenFiles = 4,
        accessDenied = 5,
        invalidFile = 6,
        removeCurrentDir = 7,
        directoryFull = 8,
        badSeek = 9,
        hardIO = 10,
        sharingViolation = 11,
        lockViolation = 12,
        diskFull = 13,
        endOfFile = 14,
    };

    explicit CFileException(int cause = none, LONG osError = -1, const wchar_t* fileName = nullptr);

    /// The cause that stands for one of the system's error numbers; genericException for a number without one.
    static int OsErrorToException(LONG osError);
    /// Throws the exception for one of the system's error numbers.
    [[noreturn]] static void ThrowOsError(LONG osError, const wchar_t* fileName = nullptr);

    int m_cause;
    LONG m_lOsError;        ///< the system's error number, -1 when there is none
    CString m_strFileName;  ///< as it was given to Open; empty when unknown
};

/// Throws a CFileException.
[[noreturn]] VETOOLS_API void AfxThrowFileException(int cause, LONG osError = -1, const wchar_t* fileName = nullptr);

/// A binary file, unbuffered: every Read and Write is one call of the system. Closed by its destructor.
class VETOOLS_API CFile : public CObject
{
    DECLARE_DYNAMIC(CFile)

public:
    /// Flags of Open: one access mode, one share mode, and any of modeCreate and modeNoTruncate.
    enum OpenFlags
    {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareCompat = 0x0000,     ///< as shareExclusive
        shareExclusive = 0x0010,  ///< nobody else may open the file meanwhile
        shareDenyWrite = 0x0020,  ///< others may read
        shareDenyRead = 0x0030,   ///< others may write
        shareDenyNone = 0x0040,   ///< others may read and write
        modeNoInherit = 0x0080,
        modeCreate = 0x1000,      ///< created when missing, emptied when it exists
        modeNoTruncate = 0x2000,  ///< with modeCreate: an existing file keeps its contents
        typeText = 0x4000,        ///< accepted; the bytes are not translated
        typeBinary = 0x8000,
    };

    enum SeekPosition
    {
        begin = 0,
        current = 1,
        end = 2,
    };

    /// No file is open.
    CFile();
    /// Takes over an open handle: the object closes it.
    explicit CFile(HANDLE file);
    /// Opens a file and throws a CFileException when that fails.
    CFile(const wchar_t* path, UINT flags);
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;
    ~CFile() override;

    /// Opens `path` (any length that the system takes). False when that fails, and `*error`, when given, says why.
    virtual bool Open(const wchar_t* path, UINT flags, CFileException* error = nullptr);

    /// Reads up to `size` bytes and returns their number, less than `size` only at the end of the file. Throws a CFileException.
    virtual UINT Read(void* buffer, UINT size);
    /// Writes `size` bytes, all of them or a CFileException (diskFull when fewer were taken) is thrown.
    virtual void Write(const void* buffer, UINT size);

    /// Moves the file pointer and returns the new position in bytes from the beginning. Throws a CFileException.
    virtual ULONGLONG Seek(LONGLONG offset, UINT from);
    ULONGLONG SeekToEnd();
    void SeekToBegin();
    virtual ULONGLONG GetPosition() const;
    virtual ULONGLONG GetLength() const;
    /// Cuts or extends the file to `length` bytes; the pointer stands there afterwards.
    virtual void SetLength(ULONGLONG length);
    /// Hands everything to the disk. Throws a CFileException.
    virtual void Flush();
    /// Closes the file; throws a CFileException when the system reports a failure. Nothing happens when no file is open.
    virtual void Close();
    /// Closes the file and ignores failures.
    virtual void Abort();

    /// The path as it was given to Open; empty when no file is open.
    virtual CString GetFilePath() const;

    HANDLE m_hFile;  ///< INVALID_HANDLE_VALUE when no file is open

protected:
    CString m_strFileName;
};

/// A file in memory, which grows as it is written: for tests, and to make up a block that is then written at once.
class VETOOLS_API CMemFile : public CFile
{
    DECLARE_DYNAMIC(CMemFile)

public:
    CMemFile();
    /// A copy of `size` bytes, the pointer at the beginning.
    CMemFile(const BYTE* bytes, UINT size);
    ~CMemFile() override;

    UINT Read(void* buffer, UINT size) override;
    void Write(const void* buffer, UINT size) override;
    ULONGLONG Seek(LONGLONG offset, UINT from) override;
    ULONGLONG GetPosition() const override;
    ULONGLONG GetLength() const override;
    void SetLength(ULONGLONG length) override;
    void Flush() override;
    void Close() override;
    void Abort() override;

    /// The bytes, valid until the next operation on this object.
    const BYTE* GetBytes() const;

private:
    struct Storage;
    Storage* m_storage;
};
