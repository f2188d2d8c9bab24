#include <algorithm>
#include <iterator>

#include "vetools/platform/posix/ModuleRecord.h"

// The string table of the library's own module, where modules have no resources of the system's kind.

namespace
{

template <std::size_t size>
constexpr VeStringResource Row(UINT id, const wchar_t (&text)[size])
{
    return {id, text, static_cast<int>(size) - 1};
}

constexpr VeStringResource c_strings[] = {
#define VETOOLS_STRING(id, name, text) Row(id, L##text),
#include "vetools/resources/strings.def"
};

constexpr bool IdsAscend()
{
    return std::is_sorted(std::begin(c_strings), std::end(c_strings),
                          [](const VeStringResource& left, const VeStringResource& right)
                          { return left.id <= right.id; });
}

static_assert(IdsAscend(), "a string is found by bisection");

}  // namespace

const VeModuleRecord c_libraryModule = {c_strings, std::size(c_strings)};
