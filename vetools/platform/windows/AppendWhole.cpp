#include "vetools/platform/AppendWhole.h"

namespace
{

/// The last byte that a file could have: nobody reads or writes it, so the lock keeps nobody but other appenders waiting.
OVERLAPPED LockedByte()
{
    OVERLAPPED place{};
    place.Offset = 0xFFFFFFFE;
    place.OffsetHigh = 0x7FFFFFFF;
    return place;
}

}  // namespace

bool AppendWhole(HANDLE file, std::string_view bytes)
{
    OVERLAPPED place = LockedByte();
    const BOOL isLocked = ::LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &place);
    DWORD written = 0;
    const BOOL succeeded = ::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    if (isLocked)
        ::UnlockFileEx(file, 0, 1, 0, &place);
    return succeeded != 0;
}
