// Any bytes as an archive of units: each is read whole or not at all, and what was read is written with the same bytes
// again, but for the separator, which becomes the current one.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "vetools/framework/CArchive.h"
#include "vetools/units/VeUnitBase.h"

namespace
{

constexpr std::size_t c_recordSize = 14;
constexpr std::size_t c_numbersSize = 12;

/// False at the end of the archive.
bool ReadUnit(CArchive& archive, CVeUnitBase& unit)
{
    try
    {
        archive >> unit;
        return true;
    }
    catch (CArchiveException* exception)
    {
        if (exception->m_cause != CArchiveException::endOfFile)
            std::abort();
        exception->Delete();
        return false;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CMemFile source(data, static_cast<UINT>(size));
    CArchive archive(&source, CArchive::load, static_cast<int>(size % 300));
    std::size_t position = 0;
    CVeUnitBase unit;
    while (ReadUnit(archive, unit))
    {
        CMemFile target;
        CArchive copy(&target, CArchive::store);
        copy << unit;
        copy.Close();
        if (target.GetLength() != c_recordSize || std::memcmp(target.GetBytes(), data + position, c_numbersSize) != 0)
            std::abort();
        position += c_recordSize;
    }
    if (position != size / c_recordSize * c_recordSize)
        std::abort();
    return 0;
}
