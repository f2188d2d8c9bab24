// Any bytes as the name of a file and as a pattern: a name leads back to its file, and the pattern finds what a slow reading of
// its rules finds.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "vetools/platform/posix/NamePattern.h"
#include "vetools/platform/posix/NativePath.h"

namespace
{

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

/// Whether a pattern fits a name: row by row of its characters, all beginnings of the name that the pattern fits so far.
bool MatchesSlowly(std::wstring_view pattern, std::wstring_view name)
{
    std::vector<bool> fits(name.size() + 1, false);
    fits[0] = true;
    bool endsWithFit = false;
    for (std::size_t p = 0; p <= pattern.size(); ++p)
    {
        // The rest of the pattern may be met by the end of the name.
        endsWithFit = endsWithFit || (fits[name.size()] && pattern.find_first_not_of(L"*.", p) == pattern.npos);
        if (p == pattern.size())
            break;
        std::vector<bool> next(name.size() + 1, false);
        for (std::size_t n = 0; n <= name.size(); ++n)
        {
            if (pattern[p] == L'*')
                next[n] = fits[n] || (n > 0 && next[n - 1]);
            else if (n > 0)
                next[n] = fits[n - 1] && (pattern[p] == L'?' || pattern[p] == name[n - 1]);
        }
        fits = std::move(next);
    }
    return endsWithFit;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t c_longest = 200;
    const std::string bytes(data, data + std::min(size, c_longest));
    Require(NativePath(WidePath(bytes)) == bytes);

    const std::wstring text = UpperName(WidePath(bytes));
    const std::size_t half = std::min(text.find(L'|'), text.size());
    const std::wstring_view pattern = std::wstring_view(text).substr(0, half);
    const std::wstring_view name = std::wstring_view(text).substr(std::min(half + 1, text.size()));
    Require(NamePattern(pattern).Matches(name) == MatchesSlowly(pattern, name));
    return 0;
}
