#include <cstring>
#include <cwchar>
#include <memory>
#include <optional>
#include <string_view>

#include <unicode/coll.h>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include "vetools/platform/posix/ErrnoMapping.h"
#include "vetools/platform/posix/TextOutput.h"
#include "vetools/platform/posix/WinBase.h"

namespace
{

constexpr UChar32 c_replacement = 0xFFFD;

bool IsKnownCodePage(UINT codePage)
{
    return codePage == CP_ACP || codePage == CP_UTF8;
}

/// The text that a conversion function is given: `size` elements, or with -1 a terminated text with its terminator.
template <class Element, class Buffer>
std::optional<std::basic_string_view<Element>> InputText(const Element* text, int size, const Buffer* buffer,
                                                         int bufferSize)
{
    const bool sameBuffer = static_cast<const void*>(text) == static_cast<const void*>(buffer);
    if (text == nullptr || size == 0 || size < -1 || bufferSize < 0 || (buffer == nullptr && bufferSize > 0) ||
        sameBuffer)
        return std::nullopt;
    if (size == -1)
        return std::basic_string_view<Element>(text, std::char_traits<Element>::length(text) + 1);
    return std::basic_string_view<Element>(text, static_cast<std::size_t>(size));
}

bool IsEncodable(wchar_t character)
{
    return character >= 0 && static_cast<UChar32>(character) <= 0x10FFFF &&
           !U_IS_SURROGATE(static_cast<UChar32>(character));
}

/// A letter's counterpart in the other case, when that letter's counterpart is this one.
template <class To, class Back>
wchar_t MappedCase(wchar_t character, To toCase, Back backAgain)
{
    constexpr wchar_t lastMapped = 0xFFFF;
    if (character < 0 || character > lastMapped)
        return character;
    const UChar32 mapped = toCase(static_cast<UChar32>(character));
    return backAgain(mapped) == static_cast<UChar32>(character) ? static_cast<wchar_t>(mapped) : character;
}

/// The collator of no language in particular, one for either way of reading case; null where its data is missing.
const icu::Collator* CollatorFor(bool ignoreCase)
{
    const auto makeCollator = [](icu::Collator::ECollationStrength strength)
    {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(icu::Locale::getRoot(), status));
        if (U_FAILURE(status))
            return std::unique_ptr<icu::Collator>();
        collator->setStrength(strength);
        return collator;
    };
    static const std::unique_ptr<icu::Collator> s_withCase = makeCollator(icu::Collator::TERTIARY);
    static const std::unique_ptr<icu::Collator> s_withoutCase = makeCollator(icu::Collator::SECONDARY);
    return ignoreCase ? s_withoutCase.get() : s_withCase.get();
}

icu::UnicodeString ToUnicode(std::wstring_view text)
{
    icu::UnicodeString result;
    for (const wchar_t character : text)
        result.append(IsEncodable(character) ? static_cast<UChar32>(character) : c_replacement);
    return result;
}

}  // namespace

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int textSize, LPWSTR buffer, int bufferSize)
{
    const auto bytes = InputText(text, textSize, buffer, bufferSize);
    if (!bytes || !IsKnownCodePage(codePage))
        return Fail(ERROR_INVALID_PARAMETER);

    TextOutput<wchar_t> output(buffer, bufferSize);
    const std::int64_t size = static_cast<std::int64_t>(bytes->size());
    for (std::int64_t i = 0; i < size;)
    {
        UChar32 character;
        U8_NEXT(bytes->data(), i, size, character);
        if (character < 0 && (flags & MB_ERR_INVALID_CHARS) != 0)
            return Fail(ERROR_NO_UNICODE_TRANSLATION);
        output.Put(static_cast<wchar_t>(character < 0 ? c_replacement : character));
    }
    return output.Result();
}

int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int textSize, LPSTR buffer, int bufferSize,
                        LPCSTR defaultCharacter, BOOL* usedDefaultCharacter)
{
    const auto characters = InputText(text, textSize, buffer, bufferSize);
    if (!characters || !IsKnownCodePage(codePage) || defaultCharacter != nullptr || usedDefaultCharacter != nullptr)
        return Fail(ERROR_INVALID_PARAMETER);

    TextOutput<char> output(buffer, bufferSize);
    for (const wchar_t character : *characters)
    {
        if (!IsEncodable(character) && (flags & WC_ERR_INVALID_CHARS) != 0)
            return Fail(ERROR_NO_UNICODE_TRANSLATION);
        const UChar32 encoded = IsEncodable(character) ? static_cast<UChar32>(character) : c_replacement;
        std::uint8_t sequence[U8_MAX_LENGTH];
        int length = 0;
        U8_APPEND_UNSAFE(sequence, length, encoded);
        for (int i = 0; i < length; ++i)
            output.Put(static_cast<char>(sequence[i]));
    }
    return output.Result();
}

DWORD CharUpperBuffW(LPWSTR text, DWORD length)
{
    for (DWORD i = 0; i < length; ++i)
        text[i] = MappedCase(text[i], u_toupper, u_tolower);
    return length;
}

DWORD CharLowerBuffW(LPWSTR text, DWORD length)
{
    for (DWORD i = 0; i < length; ++i)
        text[i] = MappedCase(text[i], u_tolower, u_toupper);
    return length;
}

int CompareStringW(LCID, DWORD flags, LPCWSTR left, int leftLength, LPCWSTR right, int rightLength)
{
    if (left == nullptr || right == nullptr)
        return Fail(ERROR_INVALID_PARAMETER);
    if ((flags & ~NORM_IGNORECASE) != 0)
        return Fail(ERROR_INVALID_FLAGS);

    const auto viewOf = [](LPCWSTR text, int length)
    {
        return length < 0 ? std::wstring_view(text) : std::wstring_view(text, static_cast<std::size_t>(length));
    };
    const icu::Collator* const collator = CollatorFor((flags & NORM_IGNORECASE) != 0);
    const std::wstring_view leftText = viewOf(left, leftLength);
    const std::wstring_view rightText = viewOf(right, rightLength);
    if (collator == nullptr)
        return CSTR_EQUAL + (leftText > rightText) - (leftText < rightText);
    UErrorCode status = U_ZERO_ERROR;
    return CSTR_EQUAL + collator->compare(ToUnicode(leftText), ToUnicode(rightText), status);
}
