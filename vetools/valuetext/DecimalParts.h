#pragma once

#include <string>
#include <string_view>

/// Removes the decimal part of every number (internal): 12.50 m becomes 12 m, and 1.5 x 2.5 becomes 1 x 2.
///
/// From each separator on, the characters of "Ee0123456789+-.," that follow one another are a decimal part. The parts are
/// taken from the left.
/// Kept: a part that is removed is removed from the whole text, also out of longer parts: 1.5 2.55 becomes 1 25.
/// Memory grows with the length of the text, and so does the time for what people write, however many parts of few lengths
/// there are. A text made up of parts within parts, or of parts of ever other lengths, takes more, its square at the worst.
std::wstring WithoutDecimalParts(std::wstring_view text, wchar_t separator);
