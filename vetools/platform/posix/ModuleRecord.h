#pragma once

#include <cstddef>

#include "vetools/platform/posix/WinTypes.h"

/// An entry of a string table.
struct VeStringResource
{
    UINT id;
    LPCWSTR text;
    int length;
};

/// What a module handle points to: the resources of a module. A shared object that holds resources exports such a record.
struct VeModuleRecord
{
    /// Ascending by id.
    const VeStringResource* strings;
    std::size_t stringCount;
};

/// The library's own module, whose strings are compiled in from resources/strings.def.
extern const VeModuleRecord c_libraryModule;
