#include "vetools/resources/StringTable.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <iterator>

#include "vetools/platform/LibraryModule.h"
#include "vetools/platform/Platform.h"
#include "vetools/resources/StringIds.h"

namespace
{

constexpr unsigned int c_ids[] = {
#define VETOOLS_STRING(id, name, text) id,
#include "vetools/resources/strings.def"
};

constexpr bool IdsAscend()
{
    return std::adjacent_find(std::begin(c_ids), std::end(c_ids), std::greater_equal<>()) == std::end(c_ids);
}

static_assert(IdsAscend(), "an id stands once in strings.def, and rows ascend");

constexpr unsigned int c_firstId = c_ids[0];
constexpr std::size_t c_idRange = c_ids[std::size(c_ids) - 1] - c_firstId + 1;

/// A text for every id from the first to the last, empty where there is none.
using Texts = std::array<std::wstring_view, c_idRange>;

/// A text in the string table of the library's own module. With a size of 0 the system gives a pointer to the table.
std::wstring_view ResourceText(unsigned int id)
{
    const wchar_t* text = nullptr;
    const int length = ::LoadStringW(LibraryModule(), id, reinterpret_cast<LPWSTR>(&text), 0);
    return length > 0 ? std::wstring_view(text, static_cast<std::size_t>(length)) : std::wstring_view();
}

Texts FindTexts()
{
    Texts texts;
    for (const unsigned int id : c_ids)
        texts[id - c_firstId] = ResourceText(id);
    return texts;
}

}  // namespace

std::wstring_view StringTableText(unsigned int id)
{
    static const Texts s_texts = FindTexts();
    const std::size_t index = id - c_firstId;
    return index < s_texts.size() ? s_texts[index] : std::wstring_view();
}
