#pragma once

#include "vetools/platform/Platform.h"

/// The module that this code stands in: the library's own, from which its resources are loaded (internal).
HINSTANCE LibraryModule() noexcept;
