// Any text as a unit: the status says what happened, a failure leaves the unit, and the case of ASCII letters and the
// unit that is given do not decide.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "fuzz/FuzzText.h"
#include "vetools/unitmanager/VeUnitManager.h"

namespace
{

std::wstring Swapped(std::wstring text)
{
    for (wchar_t& character : text)
    {
        if (character >= L'a' && character <= L'z')
            character = static_cast<wchar_t>(character - L'a' + L'A');
        else if (character >= L'A' && character <= L'Z')
            character = static_cast<wchar_t>(character - L'A' + L'a');
    }
    return text;
}

CVeUnitManager::statusCode Recognise(const std::wstring& text, CVeUnit& unit)
{
    return CVeUnitManager::UnitFromString(CString(std::wstring_view(text)), unit);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::wstring text = TextOf(data, size);
    const CVeUnit before(7, 8, 5, L'.', 1.0, 1);
    CVeUnit unit(before);
    const CVeUnitManager::statusCode status = Recognise(text, unit);
    if ((status == CVeUnitManager::STATUS_EMPTY) != text.empty())
        std::abort();
    if (status != CVeUnitManager::STATUS_OK && !(unit == before && unit.GetCoef() == before.GetCoef()))
        std::abort();

    CVeUnit other;
    if (Recognise(Swapped(text), other) != status)
        std::abort();
    if (status == CVeUnitManager::STATUS_OK &&
        (other.GetIDUnit() != unit.GetIDUnit() || other.GetRange() != unit.GetRange() ||
         other.GetExponent() != unit.GetExponent()))
        std::abort();
    // A quotient of the text by itself is known exactly when the text is.
    if (!text.empty() && Recognise(text + L"/" + text, other) != status)
        std::abort();
    return 0;
}
