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

// A string is found by bisection: StringTable.cpp checks that the rows ascend.
constexpr VeStringResource c_strings[] = {
#define VETOOLS_STRING(id, name, text) Row(id, L##text),
#include "vetools/resources/strings.def"
};

}  // namespace

const VeModuleRecord c_libraryModule = {c_strings, std::size(c_strings)};
