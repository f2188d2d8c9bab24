#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <set>
#include <string>
#include <vector>

#include "tests/support/TextPrinting.h"
#include "vetools/objects/ObjectClassId.h"

using ObjectClassId::GetGlobalObjectClassFromId;
using ObjectClassId::SetHostClassNames;

namespace
{

constexpr int c_idsWithoutEntry[] = {35,  179, 180, 181, 182, 183, 194, 195, 210, 211, 213, 214,
                                     271, 272, 275, 276, 277, 278, 279, 280, 283, 284, 285};
static_assert(std::size(c_idsWithoutEntry) == 23);

bool HasEntry(int id)
{
    return std::ranges::count(c_idsWithoutEntry, id) == 0;
}

/// A list of the host: a name for each id, from 0 on.
std::vector<const wchar_t*> ListOf(const std::vector<std::wstring>& names)
{
    std::vector<const wchar_t*> list;
    for (const std::wstring& name : names)
        list.push_back(name.c_str());
    return list;
}

std::wstring NameOf(int id)
{
    return std::wstring(GetGlobalObjectClassFromId(id).View());
}

std::wstring BuiltInNameOf(int id)
{
    if (!HasEntry(id))
        return L"";
    if (id == 2)
        return L"CVeLimits";
    return L"HostClass" + std::to_wstring(id == 12 ? 9 : id == 71 ? 55 : id);
}

/// Each test leaves the built-in names.
class ClassNames : public testing::Test
{
protected:
    ~ClassNames() override { SetHostClassNames(nullptr, 0); }
};

}  // namespace

TEST_F(ClassNames, AreThoseOfTheLibraryUntilTheHostGivesItsOwn)
{
    EXPECT_EQ(CString(L"CVeLimits"), GetGlobalObjectClassFromId(2));
    EXPECT_EQ(CString(L"HostClass1"), GetGlobalObjectClassFromId(1));
    EXPECT_EQ(CString(L"HostClass287"), GetGlobalObjectClassFromId(287));
    for (int id = 1; id <= 287; ++id)
        EXPECT_EQ(BuiltInNameOf(id), NameOf(id)) << id;
}

TEST_F(ClassNames, AreEmptyOutsideTheIdsAndInTheirGaps)
{
    for (const int id : {0, -1, 288, 35, 1000000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        EXPECT_EQ(CString(), GetGlobalObjectClassFromId(id)) << id;
    for (const int id : c_idsWithoutEntry)
        EXPECT_EQ(CString(), GetGlobalObjectClassFromId(id)) << id;
}

TEST_F(ClassNames, Are262OfThe264IdsWithAnEntry)
{
    std::multiset<std::wstring> names;
    for (int id = 1; id <= 287; ++id)
    {
        if (!GetGlobalObjectClassFromId(id).IsEmpty())
            names.insert(NameOf(id));
    }
    EXPECT_EQ(264u, names.size());
    EXPECT_EQ(262u, std::set<std::wstring>(names.begin(), names.end()).size());
}

TEST_F(ClassNames, AreSharedByTwoPairs)
{
    EXPECT_EQ(CString(L"HostClass9"), GetGlobalObjectClassFromId(9));
    EXPECT_EQ(CString(L"HostClass9"), GetGlobalObjectClassFromId(12));
    EXPECT_EQ(CString(L"HostClass55"), GetGlobalObjectClassFromId(55));
    EXPECT_EQ(CString(L"HostClass55"), GetGlobalObjectClassFromId(71));
}

TEST_F(ClassNames, AreTheHostsWhereItGivesThem)
{
    std::vector<std::wstring> names;
    for (int id = 0; id <= 287; ++id)
        names.push_back(L"CHost" + std::to_wstring(id));
    const auto list = ListOf(names);
    SetHostClassNames(list.data(), static_cast<int>(list.size()));
    for (int id = 0; id <= 288; ++id)
        EXPECT_EQ(id > 0 && id < 288 && HasEntry(id) ? L"CHost" + std::to_wstring(id) : L"", NameOf(id)) << id;
}

TEST_F(ClassNames, StayBuiltInWhereTheHostGivesNullOrNothing)
{
    const wchar_t* const names[] = {L"nobody", nullptr, nullptr, L"CHostBeam", L""};
    SetHostClassNames(names, 5);
    const struct
    {
        const wchar_t* expected;
        int id;
    } rows[] = {
        {L"", 0},           {L"HostClass1", 1},     {L"CVeLimits", 2}, {L"CHostBeam", 3},
        {L"", 4},  // an empty name is a name
        {L"HostClass5", 5}, {L"HostClass287", 287},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CString(row.expected), GetGlobalObjectClassFromId(row.id)) << row.id;
}

TEST_F(ClassNames, OfASharedPairFollowTheLowerIdUnlessTheHostNamesBoth)
{
    const struct
    {
        const wchar_t* expectedOf9;
        const wchar_t* expectedOf12;
        const wchar_t* nameOf9;
        const wchar_t* nameOf12;
    } rows[] = {
        {L"HostClass9", L"HostClass9", nullptr, nullptr}, {L"CPoint", L"CPoint", L"CPoint", L"CPoint"},
        {L"CPoint", L"CPoint", L"CPoint", nullptr},       {L"HostClass9", L"CLine", nullptr, L"CLine"},
        {L"CPoint", L"CLine", L"CPoint", L"CLine"},
    };
    for (const auto& row : rows)
    {
        const wchar_t* names[13] = {};
        names[9] = row.nameOf9;
        names[12] = row.nameOf12;
        SetHostClassNames(names, 13);
        EXPECT_EQ(CString(row.expectedOf9), GetGlobalObjectClassFromId(9)) << &row - rows;
        EXPECT_EQ(CString(row.expectedOf12), GetGlobalObjectClassFromId(12)) << &row - rows;
    }
}

TEST_F(ClassNames, AreReadNoFurtherThanTheIdsGoWhateverTheCount)
{
    // Allocated, so that the sanitizers see each read behind the end.
    const std::vector<const wchar_t*> names(288, L"CHost");
    SetHostClassNames(names.data(), std::numeric_limits<int>::max());
    EXPECT_EQ(CString(L"CHost"), GetGlobalObjectClassFromId(287));
    EXPECT_EQ(CString(), GetGlobalObjectClassFromId(288));

    const std::vector<const wchar_t*> few(3, L"CFew");
    SetHostClassNames(few.data(), 3);
    EXPECT_EQ(CString(L"CFew"), GetGlobalObjectClassFromId(2));
    EXPECT_EQ(CString(L"HostClass3"), GetGlobalObjectClassFromId(3)) << "the list of before is gone";
}

TEST_F(ClassNames, AreBuiltInAgainAfterAListWithoutNames)
{
    const wchar_t* const names[] = {L"CHost0", L"CHost1", L"CHost2"};
    const struct
    {
        const wchar_t* const* names;
        int count;
    } rows[] = {{nullptr, 0}, {nullptr, 300}, {names, 0},
                {names, 1},   {names, -1},    {names, std::numeric_limits<int>::min()}};
    for (const auto& row : rows)
    {
        SetHostClassNames(names, 3);
        EXPECT_EQ(CString(L"CHost2"), GetGlobalObjectClassFromId(2));
        SetHostClassNames(row.names, row.count);
        EXPECT_EQ(CString(L"HostClass1"), GetGlobalObjectClassFromId(1)) << row.count;
        EXPECT_EQ(CString(L"CVeLimits"), GetGlobalObjectClassFromId(2)) << row.count;
    }
}

TEST_F(ClassNames, AreCopiedFromTheHost)
{
    {
        std::wstring name = L"CHostBeamWithALongName, longer than a string holds in itself";
        std::vector<const wchar_t*> names = {nullptr, name.c_str()};
        SetHostClassNames(names.data(), 2);
        name.assign(name.size(), L'x');
        names.assign(2, nullptr);
    }
    EXPECT_EQ(CString(L"CHostBeamWithALongName, longer than a string holds in itself"), GetGlobalObjectClassFromId(1));
}
