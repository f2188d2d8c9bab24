#pragma once

#include <ostream>

#include <gtest/gtest.h>

#include "vetools/framework/CString.h"

/// How a failing test shows a string: quoted, characters beyond ASCII escaped.
inline void PrintTo(const CString& text, std::ostream* out)
{
    *out << testing::PrintToString(std::wstring(text.View()));
}
