// What a failure looks like: results first, the framework's exceptions for misuse of texts, those of C++ for huge lists.
#include <cstdio>
#include <list>
#include <stdexcept>

#include "vetools/vetools.h"

int main()
{
    // A result says whether, and the output is left as it was.
    unsigned int range = 77;
    if (!CVeUnitBase::GetRangeFromUnitName(L"furlong", &range))
        std::printf("no such symbol, range still %u\n", range);

    // Feet and inches are checked; a text that is no number in any other unit is 0.
    const CVeUnitBase feetAndInches(Unit::UNIT_ID_LENGTH, 9, 4, L'.', 1.0, 0);
    int understood = 1;
    feetAndInches.String2Double(L"about 3'", &understood, 1);
    std::printf("understood: %d\n", understood);

    // The framework throws pointers.
    try
    {
        CString(L"kN").GetAt(7);
    }
    catch (CException* exception)
    {
        wchar_t message[80];
        exception->GetErrorMessage(message, 80);
        std::printf("%s: %ls\n", exception->GetRuntimeClass()->m_lpszClassName, message);
        exception->Delete();
    }

    // A list that would be too long is refused before it takes memory.
    std::list<long> numbers;
    try
    {
        ParseStringToLong(L"1-2000000000", numbers, 0);
    }
    catch (const std::length_error& error)
    {
        std::printf("%s, %zu numbers\n", error.what(), numbers.size());
    }
}
