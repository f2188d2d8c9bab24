#include "vetools/platform/Power.h"

#include <cmath>

double Power(double base, double exponent)
{
    return std::pow(base, exponent);
}
