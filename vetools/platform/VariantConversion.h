#pragma once

#include "vetools/platform/Platform.h"

/// VariantChangeType for values that come from anywhere (internal).
///
/// A reference to nowhere is a bad argument, E_INVALIDARG, which ends the program on Windows. So is a DECIMAL that is no
/// number, which ends it when Wine writes it as a text. Wine computes exponents in 32 bits: "1e2147483648" ends the program
/// and "1e4294967296" is 1; on the Windows build a text whose exponent is beyond all numbers is therefore handed over with
/// a smaller one that is so, too.
HRESULT ConvertVariant(VARIANT& destination, const VARIANT& source, VARTYPE type);
