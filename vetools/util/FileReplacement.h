#pragma once

#include "vetools/platform/Platform.h"

/// Writes `size` bytes as the whole contents of the file at `path`, in a way that leaves no half of it (internal): the
/// bytes are written to a file beside it, which then takes its place. If the process dies or the disk fills meanwhile,
/// what stood there before is still whole.
///
/// False when the file can't be opened for writing: nothing is written then. Throws a CFileException when writing fails.
/// A link is followed. What is no plain file (a pipe, a device) is written to directly. So is a file whose folder takes no
/// second file: its bytes are overwritten and then its length is cut, so that a full disk needs no further room.
bool ReplaceFileContents(const wchar_t* path, const void* bytes, UINT size);
