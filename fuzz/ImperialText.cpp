// Feet, inches and fractions read from any text. What was understood, written plainly, is understood as the same length.
#include <cstdlib>

#include "fuzz/FuzzText.h"
#include "vetools/valuetext/VeImperialLength.h"

namespace
{

using Length = CVeImperialLength::tagIMPERIAL_LENGTH_UNIT;

/// 3'-4 1/2"
std::wstring PlainText(const Length& length, int denominatorPower)
{
    std::wstring text = length.positive ? L"" : L"-";
    text += std::to_wstring(length.feet) + L"'-" + std::to_wstring(length.inches);
    if (denominatorPower > 0)
        text += L" " + std::to_wstring(length.fractionNumerator) + L"/" + std::to_wstring(1 << denominatorPower);
    return text + L"\"";
}

void CheckPlainText(const Length& length, int denominatorPower)
{
    Length again{};
    int powerAgain = 0;
    const std::wstring text = PlainText(length, denominatorPower);
    const bool same = CVeImperialLength::ImperialStr2Imperial(text.c_str(), CVeImperialLength::IMPERIAL_FEET_INCHES,
                                                              again, powerAgain) &&
                      again.positive == length.positive && again.feet == length.feet && again.inches == length.inches &&
                      powerAgain == denominatorPower &&
                      (denominatorPower == 0 || again.fractionNumerator == length.fractionNumerator);
    if (!same)
        std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::wstring text = TextOf(data, size);
    for (const auto type : {CVeImperialLength::IMPERIAL_INCHES, CVeImperialLength::IMPERIAL_FEET_INCHES})
    {
        Length length{};
        int denominatorPower = 0;
        if (CVeImperialLength::ImperialStr2Imperial(text.c_str(), type, length, denominatorPower))
            CheckPlainText(length, denominatorPower);

        double number = 0.0;
        CVeImperialLength::ImperialStr2Meter(text.c_str(), type, number);
        CVeImperialLength::ImperialStr2Feet(text.c_str(), type, number);
        CVeImperialLength::ImperialStr2Inches(text.c_str(), type, number);
    }
    return 0;
}
