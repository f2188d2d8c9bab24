// Any text as a path: its parts make it up again, and its extended name is one that stays as it is.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "fuzz/FuzzText.h"
#include "vetools/platform/WindowsPath.h"

namespace
{

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::wstring path = TextOf(data, size);
    Require(std::wstring(FolderPart(path)).append(LastComponent(path)) == path);
    Require(LastComponent(path).find_first_of(L"\\/") == std::wstring_view::npos);

    const FileNameParts parts = SplitFileName(path);
    const std::wstring name = std::wstring(parts.base).append(parts.extension);
    Require(path.ends_with(name));
    Require(parts.extension.empty() || parts.extension.rfind(L'.') == 0);

    const std::wstring extended = ExtendedPath(path);
    Require(HasExtendedPrefix(extended));
    Require(ExtendedPath(extended) == extended);
    Require(!IsUncPath(path) || HasExtendedUncPrefix(extended));
    return 0;
}
