#pragma once

/// Marks what the shared library exports: VETOOLS_BUILDING is defined while the library itself is compiled.
#if defined(_WIN32)
#if defined(VETOOLS_BUILDING)
#define VETOOLS_API __declspec(dllexport)
#else
#define VETOOLS_API __declspec(dllimport)
#endif
#else
#define VETOOLS_API __attribute__((visibility("default")))
#endif
