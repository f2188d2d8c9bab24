#include "vetools/platform/posix/LibraryStrings.h"

// The string table of the library's own module, where modules have no resources of the system's kind.

namespace
{

// A string is found by bisection: StringTable.cpp checks that the rows ascend.
constexpr VeStringResource c_strings[] = {
#define VETOOLS_STRING(id, name, text) StringResource(id, L##text),
#include "vetools/resources/strings.def"
};

}  // namespace

const VeStringModule c_libraryStrings = StringModuleOf(c_strings);
