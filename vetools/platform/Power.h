#pragma once

/// `base` to the power of `exponent`, as std::pow promises it (internal).
///
/// The run-time library of the Windows build is off in the last digit of one result in six. There the power is computed
/// here, correctly rounded save for what lies within 1e-10 of a last digit from the middle between two doubles;
/// elsewhere it is the system's std::pow, whose results are correctly rounded save for one in a thousand.
/// docs/architecture.md lists what differs.
double Power(double base, double exponent);
