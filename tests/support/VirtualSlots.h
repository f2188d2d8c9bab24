#pragma once

#include <array>
#include <bit>
#include <cstddef>

/// The slot of a virtual function, counted from the destructor's, which is 0. Both builds' compilers give the destructor two
/// entries of the table, and a pointer to a virtual function holds its entry's distance from the table's start, plus 1.
template <class Member>
int SlotOf(Member member)
{
    const auto words = std::bit_cast<std::array<std::ptrdiff_t, 2>>(member);
    return static_cast<int>((words[0] - 1) / static_cast<std::ptrdiff_t>(sizeof(void*))) - 1;
}
