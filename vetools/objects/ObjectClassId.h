#pragma once

#include "vetools/framework/CString.h"
#include "vetools/platform/Export.h"

/// The catalogue of the classes of all the host's modules: which name belongs to the number that an object reports
/// (CVeObject::GetObjectClassId).
///
/// Ids run from 1 to 287. 264 of them have an entry, 23 have none: 35, 179 to 183, 194, 195, 210, 211, 213, 214, 271, 272,
/// 275 to 280 and 283 to 285. Two pairs share a name, 9 with 12 and 55 with 71. The library knows the name of its own class
/// only, that of id 2; the others are the host's to give.
namespace ObjectClassId
{

/// The name of the class; empty for an id without an entry, and for any number outside 1 to 287.
///
///     id           name
///     2            CVeLimits
///     9            HostClass9     until the host gives a name
///     12           HostClass9     shares the name of id 9, unless it is given one itself
///     35, 0, 288   (empty)
VETOOLS_API CString GetGlobalObjectClassFromId(int id);

/// Gives the names of the host's classes, in place of all names given before.
///
/// names  names[i] is the name of id i, for i from 1 to 287; names[0], and what stands at an id without an entry, is not
///        read. A null pointer keeps the built-in text of its id.
/// count  how many pointers there are: ids from `count` on keep their built-in text. Null names, or a count of 0 or less,
///        give none, so that all ids have their built-in texts again.
///
/// The texts are copied: neither the array nor the texts need to outlive the call, and a module that gave names may be
/// unloaded. Throws std::bad_alloc or the framework's CMemoryException* when there is no memory; the names
/// given before are kept then.
VETOOLS_API void SetHostClassNames(const wchar_t* const* names, int count);

}  // namespace ObjectClassId
