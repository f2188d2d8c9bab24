#include "vetools/objects/ObjectClassId.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>

namespace
{

constexpr int c_lastId = 287;

struct IdRange
{
    int first;
    int last;
};

// Ids within 1 to 287 that have no entry.
// clang-format off
constexpr IdRange c_gaps[] = {
//   first  last
    { 35,    35},
    {179,   183},
    {194,   195},
    {210,   211},
    {213,   214},
    {271,   272},
    {275,   280},
    {283,   285},
};

struct SharedName
{
    int id;
    int lowerId;
};

// Ids whose name is that of a lower id.
constexpr SharedName c_sharedNames[] = {
//   id  lower id
    {12,  9},
    {71, 55},
};

struct BuiltInName
{
    int id;
    const wchar_t* name;
};

// The library's own classes.
constexpr BuiltInName c_builtInNames[] = {
//   id  name
    {2, L"CVeLimits"},
};
// clang-format on

constexpr bool HasEntry(int id)
{
    return id >= 1 && id <= c_lastId &&
           std::ranges::none_of(c_gaps, [id](IdRange gap) { return id >= gap.first && id <= gap.last; });
}

constexpr int CountEntries()
{
    int count = 0;
    for (int id = 1; id <= c_lastId; ++id)
        count += HasEntry(id);
    return count;
}

static_assert(CountEntries() == 264, "the host has so many ids with a class");
static_assert(std::ranges::all_of(c_sharedNames, [](SharedName row)
                                  { return HasEntry(row.id) && HasEntry(row.lowerId) && row.lowerId < row.id; }),
              "a shared name is found by going to a lower id");

/// What the host has called its classes, by id; empty for an id that it has given no name. The texts live as long as the
/// process: destructors of the host's own objects may still ask for them.
using HostNames = std::array<std::unique_ptr<CString>, c_lastId + 1>;
HostNames* s_hostNames = nullptr;

/// The row of a small table with that id, null when there is none.
template <class Row, std::size_t count>
const Row* FindRow(const Row (&rows)[count], int id)
{
    const Row* const row = std::ranges::find(rows, id, &Row::id);
    return row != std::end(rows) ? row : nullptr;
}

const CString* FindHostName(int id)
{
    return s_hostNames != nullptr ? (*s_hostNames)[static_cast<std::size_t>(id)].get() : nullptr;
}

}  // namespace

CString ObjectClassId::GetGlobalObjectClassFromId(int id)
{
    if (!HasEntry(id))
        return CString();
    if (const CString* const name = FindHostName(id))
        return *name;
    if (const SharedName* const shared = FindRow(c_sharedNames, id))
        return GetGlobalObjectClassFromId(shared->lowerId);
    if (const BuiltInName* const builtIn = FindRow(c_builtInNames, id))
        return builtIn->name;
    CString name;
    name.Format(L"HostClass%d", id);
    return name;
}

void ObjectClassId::SetHostClassNames(const wchar_t* const* names, int count)
{
    auto hostNames = std::make_unique<HostNames>();
    const int end = names != nullptr ? std::min(count, c_lastId + 1) : 0;
    for (int id = 1; id < end; ++id)
    {
        if (HasEntry(id) && names[id] != nullptr)
            (*hostNames)[static_cast<std::size_t>(id)] = std::make_unique<CString>(names[id]);
    }
    delete std::exchange(s_hostNames, hostNames.release());
}
