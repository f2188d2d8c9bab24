#include "vetools/util/VeDirectory.h"

#include <cstdlib>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"
#include "tests/support/TextPrinting.h"
#include "vetools/platform/Platform.h"

namespace
{

namespace fs = std::filesystem;

/// The array that GetFileNames makes, freed at its end.
class FileNames
{
public:
    FileNames() = default;
    FileNames(const FileNames&) = delete;
    FileNames& operator=(const FileNames&) = delete;
    ~FileNames() { std::free(m_slots); }

    std::vector<std::wstring> Of(const CVeDirectory& folder, const wchar_t* filter = nullptr)
    {
        std::wstring writable = filter ? filter : L"";
        unsigned int count = 99;
        folder.GetFileNames(&m_slots, &count, filter ? writable.data() : nullptr);
        return std::vector<std::wstring>(m_slots, m_slots + count);
    }
    bool IsNull() const { return m_slots == nullptr; }
    void Put(unsigned int slot, std::wstring_view text)
    {
        m_slots = static_cast<wchar_t(*)[260]>(std::realloc(m_slots, (slot + 1) * sizeof *m_slots));
        text.copy(m_slots[slot], 259);
        m_slots[slot][text.size()] = L'\0';
    }

private:
    wchar_t (*m_slots)[260] = nullptr;
};

class Directory : public testing::Test
{
protected:
    void Make(std::wstring_view name, std::string_view text = "") const
    {
        fs::create_directories((m_folder / PathOf(name)).parent_path());
        WriteBytes(m_folder / PathOf(name), Bytes(text.begin(), text.end()));
    }
    void MakeFolder(std::wstring_view name) const { fs::create_directories(m_folder / PathOf(name)); }
    bool Exists(std::wstring_view name) const { return fs::exists(m_folder / PathOf(name)); }
    /// The path of something in the test's folder, joined to it by a backslash.
    CString Path(std::wstring_view name) const
    {
        const std::wstring folder = m_folder.Path().wstring();
        return CString((name.empty() ? folder : folder + L'\\' + std::wstring(name)).c_str());
    }
    CVeDirectory At(std::wstring_view name) const { return CVeDirectory(Path(name)); }

    TestFolder m_folder;
};

}  // namespace

TEST_F(Directory, HoldsItsPathWithoutOneBackslashAtItsEnd)
{
    const struct
    {
        const wchar_t* expected;
        CString path;
    } rows[] = {
        {L"", L""},
        {L"", L"\\"},
        {L"\\", L"\\\\"},
        {L"C:\\out", L"C:\\out"},
        {L"C:\\out", L"C:\\out\\"},
        {L"C:\\out\\", L"C:\\out\\\\"},
        {L"C:\\out/", L"C:\\out/"},
        {L"a", CString(L"a\0b", 3)},
        {L"a", CString(L"a\\\0b", 4)},
    };
    for (const auto& row : rows)
    {
        const CVeDirectory folder(row.path);
        EXPECT_EQ(CString(row.expected), folder.m_strPath);
        const CVeDirectory copied(folder);
        CVeDirectory assigned(L"other");
        assigned = copied;
        EXPECT_EQ(CString(row.expected), assigned.m_strPath);
    }
}

TEST_F(Directory, IsMadeOnceItsParentExists)
{
    EXPECT_EQ(0, At(L"a\\b").Create());
    EXPECT_EQ(0, At(L"a").IsExist());
    EXPECT_NE(0, At(L"a\\").Create());
    EXPECT_NE(0, At(L"a").IsExist());
    EXPECT_NE(0, At(L"a\\b").Create());
    EXPECT_NE(0, At(L"a\\b").IsExist());
    ::SetLastError(0);
    EXPECT_EQ(0, At(L"a").Create());
    EXPECT_EQ(static_cast<DWORD>(ERROR_ALREADY_EXISTS), ::GetLastError());
}

TEST_F(Directory, IsNoFile)
{
    Make(L"file");
    EXPECT_EQ(0, At(L"file").IsExist());
    EXPECT_EQ(0, At(L"missing").IsExist());
    EXPECT_NE(0, At(L"").IsExist());
    EXPECT_NE(0, CVeDirectory(m_folder[L""]).IsExist());
}

TEST_F(Directory, KeptWithoutAPathIsTheRoot)
{
    EXPECT_NE(0, CVeDirectory(L"").IsExist());
    EXPECT_NE(0, CVeDirectory(L"\\").IsExist());
}

TEST_F(Directory, ThatDoesNotExistIsDestroyed)
{
    EXPECT_EQ(1, At(L"missing").Destroy());
}

TEST_F(Directory, IsDestroyedWithAllThatIsInIt)
{
    Make(L"tree/file", "text");
    Make(L"tree/a b/c/d/e.txt");
    MakeFolder(L"tree/empty");
    Make(L"tree/mètre/単位");
    Make(L"kept");
    EXPECT_NE(0, At(L"tree").Destroy());
    EXPECT_FALSE(Exists(L"tree"));
    EXPECT_TRUE(Exists(L"kept"));
    EXPECT_EQ(0, At(L"tree").IsExist());
}

TEST_F(Directory, IsRemovedWhateverSeparatorsAndPointsEndItsPath)
{
    for (const wchar_t* path : {L"tree\\", L"tree\\\\", L"tree/", L"tree\\.", L"tree\\.\\", L"tree\\.\\."})
    {
        Make(L"tree/a/file");
        EXPECT_NE(0, At(L"tree").Remove(Path(path))) << testing::PrintToString(path);
        EXPECT_FALSE(Exists(L"tree")) << testing::PrintToString(path);
    }
}

TEST_F(Directory, RemovesAnyOtherFolder)
{
    Make(L"own/file");
    Make(L"other/a/file");
    EXPECT_NE(0, At(L"own").Remove(Path(L"other")));
    EXPECT_FALSE(Exists(L"other"));
    EXPECT_TRUE(Exists(L"own/file"));
    EXPECT_EQ(1, At(L"own").Remove(Path(L"missing")));
    EXPECT_EQ(1, At(L"own").Remove(Path(L"own\\file")));
    EXPECT_TRUE(Exists(L"own/file"));
}

TEST_F(Directory, KeptRemovesNothingWhenItsOwnFolderDoesNotExist)
{
    Make(L"other/file");
    EXPECT_EQ(0, At(L"missing").Remove(Path(L"other")));
    EXPECT_TRUE(Exists(L"other/file"));
}

TEST_F(Directory, KeptRemovesNoFurtherFolderOnceItsOwnIsGone)
{
    Make(L"tree/a/file");
    Make(L"tree/b/file");
    Make(L"tree/c/file");
    Make(L"tree/d");
    EXPECT_EQ(0, At(L"tree\\b").Remove(Path(L"tree")));
    EXPECT_FALSE(Exists(L"tree/a"));
    EXPECT_FALSE(Exists(L"tree/b"));
    EXPECT_TRUE(Exists(L"tree/c/file"));
    EXPECT_FALSE(Exists(L"tree/d"));
}

TEST_F(Directory, RemovesNothingByAPathWithoutAName)
{
    for (const wchar_t* path : {L"", L"\\", L"/", L"\\\\", L"\\/\\"})
        EXPECT_EQ(0, At(L"").Remove(path)) << testing::PrintToString(path);
    EXPECT_EQ(0, CVeDirectory(L"\\").Destroy());
    EXPECT_TRUE(fs::exists(m_folder.Path()));
}

TEST_F(Directory, LeavesWhatCannotBeDeleted)
{
    Make(L"tree/open");
    Make(L"tree/other");
    const HANDLE open = ::CreateFileW(Path(L"tree\\open"), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, open);
    EXPECT_EQ(0, At(L"tree").Destroy());
    EXPECT_TRUE(::CloseHandle(open));
    EXPECT_TRUE(Exists(L"tree/open"));
    EXPECT_FALSE(Exists(L"tree/other"));
    EXPECT_NE(0, At(L"tree").Destroy());
}

TEST_F(Directory, OfTenThousandEntriesIsListedAndRemoved)
{
    constexpr int c_parts = 10;  // Wine looks at all names of a folder when one is added
    constexpr int c_files = 900;
    constexpr int c_folders = 100;
    for (int part = 0; part < c_parts; ++part)
    {
        const fs::path folder = m_folder / "tree" / ("part" + std::to_string(part));
        fs::create_directories(folder);
        WriteBytes(folder / "f0.txt", {});
        for (int i = 1; i < c_files; ++i)  // further names of the one file: made faster than as many files
            fs::create_hard_link(folder / "f0.txt", folder / ("f" + std::to_string(i) + ".txt"));
        for (int i = 0; i < c_folders; ++i)
            fs::create_directory(folder / ("d" + std::to_string(part * c_folders + i) + ".dir"));
    }
    FileNames names;
    for (int part = 0; part < c_parts; ++part)
    {
        const CVeDirectory folder = At(L"tree\\part" + std::to_wstring(part));
        const std::vector<std::wstring> listed = names.Of(folder);
        const std::set<std::wstring> different(listed.begin(), listed.end());
        EXPECT_EQ(static_cast<std::size_t>(c_files + c_folders), listed.size());
        EXPECT_EQ(listed.size(), different.size());
        EXPECT_EQ(1u, different.count(L"f899"));
        EXPECT_EQ(CString(L"f901.txt"), folder.GetIncName(L"f.txt"));
    }
    EXPECT_EQ(Path(L"tree\\part9\\d999.dir"), At(L"tree").GetChild(L"d999.dir"));
    EXPECT_NE(0, At(L"tree").Destroy());
    EXPECT_FALSE(Exists(L"tree"));
}

TEST_F(Directory, KeptIsPurgedByDoingNothing)
{
    Make(L"file");
    EXPECT_EQ(1, At(L"").Purge());
    EXPECT_EQ(1, At(L"missing").Purge());
    EXPECT_TRUE(Exists(L"file"));
}

TEST_F(Directory, TakesCopiesOfTheFilesOfAnother)
{
    Make(L"from/a.txt", "new a");
    Make(L"from/b.txt", "new b");
    Make(L"from/folder/c.txt", "c");
    Make(L"to/b.txt", "old b");
    const CVeDirectory target = At(L"to");
    EXPECT_EQ(1, target.Copy(Path(L"from")));
    EXPECT_EQ((Bytes{'n', 'e', 'w', ' ', 'a'}), ReadBytes(m_folder / "to" / "a.txt"));
    EXPECT_EQ((Bytes{'o', 'l', 'd', ' ', 'b'}), ReadBytes(m_folder / "to" / "b.txt"));
    EXPECT_FALSE(Exists(L"to/folder"));
    EXPECT_TRUE(Exists(L"from/a.txt"));

    EXPECT_EQ(1, target.Copy(Path(L"from\\")));
    EXPECT_EQ(1, target.Copy(Path(L"to")));
    EXPECT_EQ(0, target.Copy(Path(L"missing")));
    EXPECT_EQ(0, target.Copy(Path(L"from\\a.txt")));
    EXPECT_EQ(0, At(L"missing").Copy(Path(L"from")));
}

TEST_F(Directory, HasAValidPathWithoutTheEightRefusedCharacters)
{
    EXPECT_EQ(0, CVeDirectory(L"").IsValidPath());
    for (const wchar_t* refused : {L"é", L"è", L"à", L"â", L"ê", L"î", L"ô", L"ç"})
    {
        EXPECT_EQ(0, CVeDirectory(refused).IsValidPath()) << testing::PrintToString(refused);
        EXPECT_EQ(0, CVeDirectory(CString(L"C:\\x") + refused + L"\\y").IsValidPath());
    }
    for (const wchar_t* valid : {L"C:\\out", L"\\\\", L"ë", L"É", L"ù", L"ï", L"a?*b", L"単位", L" "})
        EXPECT_EQ(1, CVeDirectory(valid).IsValidPath()) << testing::PrintToString(valid);
}

TEST_F(Directory, KeptIsLookedForInItsParentWhateverNameIsGiven)
{
    MakeFolder(L"Results");
    Make(L"file.txt");
    for (const wchar_t* name : {L"", L"missing", L"Results"})
    {
        EXPECT_EQ(1, At(L"Results").IsFileIn(name));
        EXPECT_EQ(1, At(L"rESULTS").IsFileIn(name));
        EXPECT_EQ(1, At(L"FILE.TXT").IsFileIn(name));
        EXPECT_EQ(0, At(L"missing").IsFileIn(name));
        EXPECT_EQ(0, At(L"missing\\Results").IsFileIn(name));
    }
    EXPECT_EQ(1, CVeDirectory(m_folder[L"results"]).IsFileIn(L""));
    EXPECT_EQ(0, CVeDirectory(L"").IsFileIn(L""));
}

TEST_F(Directory, FindsTheNearestFolderOfAName)
{
    MakeFolder(L"jobs/2020/archive/results");
    MakeFolder(L"jobs/2021/Results");
    MakeFolder(L"jobs/2022/results");
    Make(L"jobs/results.txt");
    Make(L"jobs/a/target");  // a file
    MakeFolder(L"jobs/b/c/target");
    MakeFolder(L"jobs/mètre");
    const CVeDirectory jobs = At(L"jobs");
    EXPECT_EQ(Path(L"jobs\\2021\\Results"), jobs.GetChild(L"results"));
    EXPECT_EQ(Path(L"jobs\\2020\\archive"), jobs.GetChild(L"ARCHIVE"));
    EXPECT_EQ(Path(L"jobs\\b\\c\\target"), jobs.GetChild(L"target"));
    EXPECT_EQ(Path(L"jobs\\mètre"), jobs.GetChild(L"MÈTRE"));
    MakeFolder(L"jobs/RESULTS");
    EXPECT_EQ(Path(L"jobs\\RESULTS"), jobs.GetChild(L"results"));

    for (const wchar_t* nothing : {L"", L"missing", L"results.txt", L".", L"..", L"2021\\Results", L"*", L"result?"})
        EXPECT_EQ(CString(), jobs.GetChild(nothing)) << testing::PrintToString(nothing);
    EXPECT_EQ(CString(), At(L"missing").GetChild(L"results"));
}

TEST_F(Directory, FindsFriendsBesideItAndBelowThem)
{
    MakeFolder(L"jobs/own/inner");
    MakeFolder(L"jobs/other/deep");
    const CVeDirectory own = At(L"jobs\\own");
    EXPECT_EQ(Path(L"jobs\\other"), own.GetFriend(L"other"));
    EXPECT_EQ(Path(L"jobs\\own"), own.GetFriend(L"own"));
    EXPECT_EQ(Path(L"jobs\\other\\deep"), own.GetFriend(L"deep"));
    EXPECT_EQ(Path(L"jobs\\own\\inner"), own.GetFriend(L"inner"));
    EXPECT_EQ(CString(), own.GetFriend(L"jobs"));
    EXPECT_EQ(Path(L"jobs\\other"), At(L"jobs\\missing").GetFriend(L"other"));
}

TEST_F(Directory, ListsNamesWithoutTheirLastFourCharacters)
{
    Make(L"list/metric.sty");
    Make(L"list/Imperial.sty");
    Make(L"list/notes.txt");
    Make(L"list/archive.json");
    MakeFolder(L"list/folder");
    const std::vector<std::wstring> all = {L"archive.", L"fo", L"Imperial", L"metric", L"notes"};
    const std::vector<std::wstring> styles = {L"Imperial", L"metric"};
    FileNames names;
    EXPECT_EQ(all, names.Of(At(L"list")));
    EXPECT_EQ(all, names.Of(At(L"list"), L""));
    EXPECT_EQ(styles, names.Of(At(L"list"), L".sty"));
    EXPECT_EQ(styles, names.Of(At(L"list"), L".STY"));
    EXPECT_EQ(styles, names.Of(At(L"list"), L"*sty"));
    EXPECT_EQ(all, names.Of(CVeDirectory(Path(L"list\\\\"))));
}

TEST_F(Directory, KeptListsFoldersTooAndCutsThemAsWell)
{
    MakeFolder(L"list/results");
    MakeFolder(L"list/abc");
    FileNames names;
    EXPECT_EQ((std::vector<std::wstring>{L"abc", L"res"}), names.Of(At(L"list")));
}

TEST_F(Directory, FreesTheListWhenNothingIsFound)
{
    Make(L"list/metric.sty");
    FileNames names;
    EXPECT_EQ(1u, names.Of(At(L"list")).size());
    EXPECT_EQ(0u, names.Of(At(L"list"), L".none").size());
    EXPECT_TRUE(names.IsNull());
    EXPECT_EQ(1u, names.Of(At(L"list")).size());
    EXPECT_EQ(0u, names.Of(At(L"missing")).size());
    EXPECT_TRUE(names.IsNull());
    MakeFolder(L"empty");
    EXPECT_EQ(0u, names.Of(At(L"empty")).size());
    EXPECT_TRUE(names.IsNull());
}

TEST_F(Directory, KeptLeavesTheSlotOfANameOfFourCharactersAsItIs)
{
    Make(L"list/.sty");
    Make(L"list/abc");
    Make(L"list/e.txt");
    FileNames names;
    names.Put(0, L"zero");
    names.Put(1, L"one");
    names.Put(2, L"two");
    EXPECT_EQ((std::vector<std::wstring>{L"zero", L"abc", L"e"}), names.Of(At(L"list")));
    FileNames fresh;
    EXPECT_EQ((std::vector<std::wstring>{L"", L"abc", L"e"}), fresh.Of(At(L"list")));
}

TEST_F(Directory, ListsNamesOfAnyLength)
{
    const std::wstring longest(240, L'n');
    Make(L"list/" + longest + L".txt");
    Make(L"list/a");
    Make(L"list/ab.c5");
    FileNames names;
    EXPECT_EQ((std::vector<std::wstring>{L"a", L"a", longest}), names.Of(At(L"list")));
}

TEST_F(Directory, ListsNothingWithoutAPlaceForIt)
{
    unsigned int count = 7;
    wchar_t(*names)[260] = nullptr;
    At(L"").GetFileNames(nullptr, &count, nullptr);
    At(L"").GetFileNames(&names, nullptr, nullptr);
    EXPECT_EQ(7u, count);
    EXPECT_EQ(nullptr, names);
}

TEST_F(Directory, KeepsTheNameOfAMissingFolderWhenItCounts)
{
    unsigned int counter = 77;
    CVeDirectory folder = At(L"out");
    EXPECT_EQ(Path(L"out"), folder.IncName(&counter));
    EXPECT_EQ(0u, counter);
    EXPECT_EQ(Path(L"out"), folder.m_strPath);
    EXPECT_EQ(Path(L"out"), folder.IncName(nullptr));
}

TEST_F(Directory, CountsToTheFirstFreeName)
{
    MakeFolder(L"out");
    unsigned int counter = 77;
    CVeDirectory second = At(L"out");
    EXPECT_EQ(Path(L"out2"), second.IncName(&counter));
    EXPECT_EQ(2u, counter);

    MakeFolder(L"out2");
    MakeFolder(L"out4");
    CVeDirectory third = At(L"out");
    EXPECT_EQ(Path(L"out3"), third.IncName(&counter));
    EXPECT_EQ(3u, counter);
    EXPECT_EQ(Path(L"out3"), third.m_strPath);
    MakeFolder(L"out3");
    // From its new path on.
    EXPECT_EQ(Path(L"out32"), third.IncName(&counter));
    EXPECT_EQ(2u, counter);

    Make(L"out5");  // no folder, and therefore free
    CVeDirectory fifth = At(L"out");
    EXPECT_EQ(Path(L"out5"), fifth.IncName(&counter));
    EXPECT_EQ(5u, counter);
}

TEST_F(Directory, FindsAFreeNumberedFileName)
{
    const CVeDirectory folder = At(L"");
    EXPECT_EQ(CString(L"calc1.txt"), folder.GetIncName(L"calc.txt"));
    Make(L"calc.txt");
    EXPECT_EQ(CString(L"calc2.txt"), folder.GetIncName(L"calc.txt"));
    Make(L"calc2.txt");
    EXPECT_EQ(CString(L"calc3.txt"), folder.GetIncName(L"calc.txt"));
    EXPECT_EQ(CString(L"calc3.txt"), folder.GetIncName(L"C:\\other folder\\calc.txt"));
    EXPECT_EQ(CString(L"calc3.txt"), folder.GetIncName(L"C:calc.txt"));
    EXPECT_EQ(CString(L"calc3.txt"), folder.GetIncName(L"a/calc.txt"));
    Make(L"calc4.txt");
    Make(L"calc5.txt");
    Make(L"calc6.txt");  // five that look like it: 6 is the first choice
    EXPECT_EQ(CString(L"calc7.txt"), folder.GetIncName(L"calc.txt"));
    EXPECT_EQ(CString(L"6"), folder.GetIncName(L""));
    EXPECT_EQ(CString(), At(L"missing").GetIncName(L"calc.txt"));
}

// Upper and lower case differ.
TEST_F(Directory, KeptCountsNamesThatHoldBaseAndExtensionAnywhere)
{
    for (const wchar_t* name : {L"my calc.txt.bak", L".txt calc", L"Calc.txt", L"calc.TXT x", L"calc", L"other.txt"})
        Make(name);
    MakeFolder(L"calc.txt folder");
    EXPECT_EQ(CString(L"calc4.txt"), At(L"").GetIncName(L"calc.txt"));
    EXPECT_EQ(CString(L"81.txt"), At(L"").GetIncName(L"8.txt"));
}

TEST_F(Directory, ReadsNamesUpToTheirFirstNullCharacter)
{
    MakeFolder(L"own/inner");
    const CVeDirectory folder(
        CString((std::wstring(Path(L"own")) + L'\0' + L"x").c_str(), Path(L"own").GetLength() + 2));
    EXPECT_NE(0, folder.IsExist());
    std::wstring inner(Path(L"own\\inner"));
    inner += L'\0';
    inner += L"\\x";
    EXPECT_NE(0, folder.Remove(CString(inner.c_str(), static_cast<int>(inner.size()))));
    EXPECT_FALSE(Exists(L"own/inner"));
    EXPECT_TRUE(Exists(L"own"));
}
