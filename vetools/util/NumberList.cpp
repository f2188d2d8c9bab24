#include "vetools/util/NumberList.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "vetools/framework/NumberText.h"
#include "vetools/util/TextCursor.h"

namespace
{

/// Every integer from first to last, both included.
struct Range
{
    std::int64_t first;
    std::int64_t last;
};

struct Items
{
    std::vector<Range> ranges;
    std::vector<std::int64_t> exclusions;
};

/// Nothing for a text that is not a number, and for a zero that is not allowed.
std::optional<std::int64_t> ReadNumber(std::wstring_view text, int allowZero)
{
    const int number = ReadInteger(text);
    if (number != 0 || (allowZero == 1 && text.starts_with(L'0')))
        return number;
    return std::nullopt;
}

/// 7   !4
void ReadSingle(std::wstring_view token, int allowZero, Items& items)
{
    const bool excluded = token.starts_with(L'!');
    if (excluded)
        token.remove_prefix(1);
    const std::optional<std::int64_t> number = ReadNumber(token, allowZero);
    if (!number)
        return;
    if (excluded)
        items.exclusions.push_back(*number);
    else
        items.ranges.push_back({*number, *number});
}

/// 3-5   5-3   Kept: a '!' makes the first bound a bad one.
void ReadRange(std::wstring_view first, std::wstring_view second, int allowZero, Items& items)
{
    const std::optional<std::int64_t> firstBound = ReadNumber(first, allowZero);
    if (!firstBound)
        return;
    // Kept: a bad second bound leaves the first.
    const std::int64_t secondBound = ReadNumber(second, allowZero).value_or(*firstBound);
    items.ranges.push_back({std::min(*firstBound, secondBound), std::max(*firstBound, secondBound)});
}

/// Reads the items between blanks; the text ends with none.
Items ReadItems(std::wstring_view text, int allowZero)
{
    Items items;
    for (TextCursor cursor(text); !cursor.AtEnd();)
    {
        cursor.ConsumeBlanks();
        cursor.ConsumeAll(L'-');  // Kept: never a sign
        cursor.ConsumeBlanks();
        const std::wstring_view item = cursor.ConsumeUntil(L' ');
        const std::size_t dash = item.find(L'-');
        if (dash == std::wstring_view::npos)
            ReadSingle(item, allowZero, items);
        else
            ReadRange(item.substr(0, dash), item.substr(dash + 1), allowZero, items);
    }
    return items;
}

/// Makes the ranges ascending and disjoint.
void Merge(std::vector<Range>& ranges)
{
    std::sort(ranges.begin(), ranges.end(), [](const Range& a, const Range& b) { return a.first < b.first; });
    std::size_t merged = 0;
    for (const Range& range : ranges)
    {
        if (merged != 0 && range.first <= ranges[merged - 1].last)
            ranges[merged - 1].last = std::max(ranges[merged - 1].last, range.last);
        else
            ranges[merged++] = range;
    }
    ranges.resize(merged);
}

/// Counts before anything is taken: a short text can name four thousand million numbers.
void CheckLength(const std::vector<Range>& ranges)
{
    std::uint64_t count = 0;
    for (const Range& range : ranges)
        count += static_cast<std::uint64_t>(range.last - range.first) + 1;
    if (count > c_maximumNumberListLength)
        throw std::length_error("list<T> too long");
}

/// Appends the numbers of the ranges except the exclusions, all ascending.
void Append(const Items& items, std::list<long>& values)
{
    auto exclusion = items.exclusions.begin();
    for (const Range& range : items.ranges)
    {
        for (std::int64_t number = range.first; number <= range.last; ++number)
        {
            while (exclusion != items.exclusions.end() && *exclusion < number)
                ++exclusion;
            if (exclusion == items.exclusions.end() || *exclusion != number)
                values.push_back(static_cast<long>(number));
        }
    }
}

}  // namespace

void ParseStringToLong(const CString& text, std::list<long>& values, int allowZero)
{
    values.clear();
    CString copy(text);
    copy.Replace(L',', L' ');
    copy.Trim(L' ').TrimRight(L'-').Trim(L' ');

    Items items = ReadItems(copy.View(), allowZero);
    Merge(items.ranges);
    CheckLength(items.ranges);
    std::sort(items.exclusions.begin(), items.exclusions.end());
    Append(items, values);
}
