#pragma once

/// The Win32 and OLE names: the system's own on Windows, declared in posix/ elsewhere. Clients in C
/// find there what they need of the component object model.
#if defined(_WIN32)
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <oleauto.h>
#ifndef ERROR_DISK_QUOTA_EXCEEDED
#define ERROR_DISK_QUOTA_EXCEEDED 1295L
#endif
#elif defined(__cplusplus)
#include "vetools/platform/posix/WinBase.h"
#else
#include "vetools/platform/posix/WinVariant.h"
#endif
