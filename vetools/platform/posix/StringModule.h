#pragma once

#include "vetools/platform/posix/WinTypes.h"

#ifdef __cplusplus
#include <cstddef>
#include <iterator>
#else
#include <stddef.h>
#endif

// What makes a shared object a module with a string table, where the system has no resources: it exports one record under the
// name VeToolsStringModule. The CMake function vetools_add_string_module makes such modules; any other way that leads to this
// record is as good, also from C.

/// An entry of a string table.
typedef struct VeStringResource
{
    /// 0 to 65535.
    UINT id;
    /// Elements of wchar_t in the text.
    INT length;
    /// The text; no terminator is needed.
    LPCWSTR text;
} VeStringResource;

/// The first fields stay what and where they are in all versions.
typedef struct VeStringModule
{
    /// sizeof(VeStringModule); more where a later version has more fields.
    DWORD size;
    /// VETOOLS_STRING_MODULE_VERSION. Modules of another version are not loaded.
    DWORD version;
    /// Ascending by id, each of which stands once. A module whose table is not so is not loaded.
    const VeStringResource* strings;
    size_t stringCount;
} VeStringModule;

#define VETOOLS_STRING_MODULE_VERSION 1

#ifdef __cplusplus
#define VETOOLS_STRING_MODULE extern "C" __attribute__((visibility("default")))
#else
#define VETOOLS_STRING_MODULE extern __attribute__((visibility("default")))
#endif

/// The record, which the module defines.
VETOOLS_STRING_MODULE const VeStringModule VeToolsStringModule;

#ifdef __cplusplus

/// The entry of an id and a literal.
template <std::size_t size>
constexpr VeStringResource StringResource(UINT id, const wchar_t (&text)[size])
{
    return {id, static_cast<INT>(size) - 1, text};
}

/// The record of a table, which must live as long as the record.
template <class Strings>
constexpr VeStringModule StringModuleOf(const Strings& strings)
{
    return {sizeof(VeStringModule), VETOOLS_STRING_MODULE_VERSION, std::data(strings), std::size(strings)};
}
#endif
