// A host as small as can be: one public header, something from the library, and success as the exit code.
#include <cstdio>

#include "vetools/vetools.h"

int main()
{
    const bool asExpected = CVeUnitSeparator::m_cSep == L'.';
    std::printf("%s\n", asExpected ? "the library answers" : "the library gives a wrong answer");
    return asExpected ? 0 : 1;
}
