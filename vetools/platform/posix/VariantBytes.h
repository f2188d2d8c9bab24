#pragma once

#include <cstddef>

#include "vetools/platform/posix/WinVariant.h"

// A text as the bytes that it has on Windows, where its characters are UTF-16 with the lower byte first. A pair of
// surrogates is one character here, a lone one is kept. Internal to the platform layer.

/// The text that the bytes are. A last byte without a second one stands behind the last character and is not counted as
/// one. Null when there is no memory.
BSTR TextOfBytes(const BYTE* bytes, std::size_t size);

/// The bytes of a text, which may be null, as a new array: U+FFFD for what is no character, and as they are the bytes
/// behind the last character. Null when there is no memory.
SAFEARRAY* BytesOfText(BSTR text);
