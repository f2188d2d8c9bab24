#include "vetools/platform/AppendWhole.h"

bool AppendWhole(HANDLE file, std::string_view bytes)
{
    DWORD written = 0;
    return ::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != 0;
}
