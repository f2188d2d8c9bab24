#include "vetools/framework/CArchive.h"

#include <algorithm>
#include <cstring>

namespace
{

constexpr int c_smallestBuffer = 128;

}  // namespace

IMPLEMENT_DYNAMIC(CArchiveException, CException)

CArchiveException::CArchiveException(int cause, const wchar_t* fileName)
    : m_cause(cause)
    , m_strFileName(fileName)
{
}

void AfxThrowArchiveException(int cause, const wchar_t* fileName)
{
    throw new CArchiveException(cause, fileName);
}

CArchive::CArchive(CFile* file, UINT mode, int bufferSize, void*)
    : m_file(file)
    , m_mode(mode)
    , m_capacity(static_cast<UINT>(std::max(bufferSize, c_smallestBuffer)))
    , m_buffer(new BYTE[m_capacity])
{
}

CArchive::~CArchive()
{
    try
    {
        if (m_file && !(m_mode & bNoFlushOnDelete))
            Close();
    }
    catch (CException* exception)
    {
        // A destructor has nobody to report to: who needs to know calls Close.
        exception->Delete();
    }
    delete[] m_buffer;
}

bool CArchive::IsLoading() const
{
    return (m_mode & load) != 0;
}

bool CArchive::IsStoring() const
{
    return !IsLoading();
}

CFile* CArchive::GetFile() const
{
    return m_file;
}

UINT CArchive::Read(void* buffer, UINT size)
{
    if (!IsLoading())
        AfxThrowArchiveException(CArchiveException::writeOnly, m_file->GetFilePath());
    UINT done = 0;
    while (done < size)
    {
        if (m_taken == m_used)
        {
            m_used = m_file->Read(m_buffer, m_capacity);
            m_taken = 0;
            if (m_used == 0)
                break;
        }
        const UINT count = std::min(size - done, m_used - m_taken);
        std::memcpy(static_cast<BYTE*>(buffer) + done, m_buffer + m_taken, count);
        m_taken += count;
        done += count;
    }
    return done;
}

void CArchive::Write(const void* buffer, UINT size)
{
    if (!IsStoring())
        AfxThrowArchiveException(CArchiveException::readOnly, m_file->GetFilePath());
    if (size > m_capacity - m_used)
        Flush();
    if (size > m_capacity)
    {
        m_file->Write(buffer, size);
        return;
    }
    std::memcpy(m_buffer + m_used, buffer, size);
    m_used += size;
}

void CArchive::Flush()
{
    // Emptied first: a block that the file refused is not written again by the destructor.
    const UINT used = m_used;
    const UINT taken = m_taken;
    m_used = 0;
    m_taken = 0;
    if (IsStoring())
    {
        if (used > 0)
            m_file->Write(m_buffer, used);
        return;
    }
    // The file pointer is to stand behind the last value that was read, not behind the buffer.
    if (taken < used)
        m_file->Seek(-static_cast<LONGLONG>(used - taken), CFile::current);
}

void CArchive::Close()
{
    if (!m_file)
        return;
    Flush();
    m_file = nullptr;
}

void CArchive::Abort()
{
    m_used = 0;
    m_taken = 0;
    m_file = nullptr;
}
