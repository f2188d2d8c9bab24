#pragma once

#include "vetools/platform/posix/WinVariant.h"

// What a value owns, copied and handed over. Internal to the platform layer.

/// A text with the same bytes, terminators included; an empty one for null. Null when there is no memory.
BSTR CopyOf(BSTR text);

/// Puts a value that was made in the place of the destination's old one, which is freed. Where that cannot be, the
/// destination stays and the new value is freed.
HRESULT HandOver(VARIANT& made, VARIANT& destination);
