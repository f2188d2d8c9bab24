#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"
#include "tests/support/TextPrinting.h"
#include "vetools/platform/Platform.h"
#include "vetools/util/VeDirectory.h"

// Folders as only the system here lets them be.

namespace
{

namespace fs = std::filesystem;

class HostileFolder : public testing::Test
{
protected:
    CString Path(const std::wstring& name) const { return m_folder[name]; }
    void Make(const fs::path& name) const
    {
        fs::create_directories((m_folder / name).parent_path());
        std::ofstream(m_folder / name) << "text";
    }

    TestFolder m_folder;
};

/// A limit of the process, put back at the end.
class ScopedLimit
{
public:
    ScopedLimit(__rlimit_resource resource, rlim_t limit)
        : m_resource(resource)
    {
        ::getrlimit(resource, &m_old);
        rlimit changed = m_old;
        changed.rlim_cur = limit;
        ::setrlimit(resource, &changed);
    }
    ScopedLimit(const ScopedLimit&) = delete;
    ScopedLimit& operator=(const ScopedLimit&) = delete;
    ~ScopedLimit() { ::setrlimit(m_resource, &m_old); }

private:
    __rlimit_resource m_resource;
    rlimit m_old{};
};

/// What a child process finds that no right of an administrator helps.
template <typename Question>
bool AsAnybody(const fs::path& folder, Question question)
{
    const pid_t child = ::fork();
    if (child == 0)
    {
        constexpr uid_t c_nobody = 65534;
        const bool isReady = ::chdir(folder.c_str()) == 0 && (::geteuid() != 0 || ::setuid(c_nobody) == 0);
        ::_exit(isReady && question() ? 0 : 1);
    }
    int status = -1;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

constexpr const char* c_hostileNames[] = {
    "bad\xFF",     "\xC3",         "\xED\xA0\x80", "\xF5\x80", "a\\b",    "\\", "..\\..\\x", "a*b",   "?",
    "line\nbreak", "tab\tquote\"", "%s%n",         " ",        "trail. ", "C:", "con",       "-rf *", "\x7F\x01",
};

}  // namespace

TEST_F(HostileFolder, IsDestroyedWhateverTheNamesInIt)
{
    for (const char* name : c_hostileNames)
    {
        Make(fs::path("tree") / "files" / name);
        Make(fs::path("tree") / "folders" / name / name);
    }
    Make("kept/x");
    EXPECT_NE(0, CVeDirectory(Path(L"tree")).Destroy());
    EXPECT_FALSE(fs::exists(m_folder / "tree"));
    EXPECT_TRUE(fs::exists(m_folder / "kept" / "x"));
}

TEST_F(HostileFolder, GivesNamesThatLeadBackToTheirFiles)
{
    for (const char* name : c_hostileNames)
    {
        const fs::path folder = fs::path("list") / std::to_string(name - c_hostileNames[0]);
        Make(folder / name);
        WIN32_FIND_DATAW found{};
        const HANDLE search = ::FindFirstFileW(Path(folder.wstring() + L"/*"), &found);
        ASSERT_NE(INVALID_HANDLE_VALUE, search);
        ASSERT_TRUE(::FindNextFileW(search, &found) && ::FindNextFileW(search, &found));
        EXPECT_TRUE(::FindClose(search));
        EXPECT_TRUE(::DeleteFileW(Path(folder.wstring() + L"\\" + found.cFileName))) << testing::PrintToString(name);
        EXPECT_FALSE(fs::exists(m_folder / folder / name)) << testing::PrintToString(name);
    }
}

TEST_F(HostileFolder, IsNamedWithWildcards)
{
    Make("a*b/inner/file");
    Make("aXb/inner/file");
    const CVeDirectory folder(Path(L"a*b"));
    EXPECT_NE(0, folder.IsExist());
    EXPECT_EQ(1, folder.IsFileIn(L""));
    EXPECT_EQ(CString(L"c*1.t?t"), folder.GetIncName(L"c*.t?t"));
    EXPECT_EQ(0, CVeDirectory(Path(L"a*c")).IsExist());
    EXPECT_NE(0, folder.Destroy());
    EXPECT_TRUE(fs::exists(m_folder / "aXb" / "inner" / "file"));
}

TEST_F(HostileFolder, IsNotLeftByALink)
{
    Make("outside/kept");
    Make("tree/file");
    fs::create_directory_symlink(m_folder / "outside", m_folder / "tree" / "absolute");
    fs::create_directory_symlink("../outside", m_folder / "tree" / "relative");
    fs::create_directory_symlink(".", m_folder / "tree" / "itself");
    fs::create_directory_symlink("..", m_folder / "tree" / "above");
    fs::create_symlink("nowhere", m_folder / "tree" / "dangling");
    fs::create_symlink("../outside/kept", m_folder / "tree" / "to a file");
    fs::create_directory_symlink("outside", m_folder / "entry");

    EXPECT_EQ(CString(), CVeDirectory(Path(L"tree")).GetChild(L"outside"));
    EXPECT_EQ(m_folder[L"tree"] + L"\\above", CVeDirectory(Path(L"tree")).GetChild(L"above"));
    EXPECT_NE(0, CVeDirectory(Path(L"tree")).Destroy());
    EXPECT_FALSE(fs::exists(m_folder / "tree"));
    EXPECT_TRUE(fs::exists(m_folder / "outside" / "kept"));

    // The link itself goes, also when the end of the path says that its target is meant.
    for (const wchar_t* path : {L"entry", L"entry\\\\", L"entry\\.", L"entry/./\\.\\"})
    {
        EXPECT_NE(0, CVeDirectory(Path(path)).Destroy()) << testing::PrintToString(path);
        EXPECT_FALSE(fs::is_symlink(m_folder / "entry")) << testing::PrintToString(path);
        EXPECT_TRUE(fs::exists(m_folder / "outside" / "kept")) << testing::PrintToString(path);
        fs::create_directory_symlink("outside", m_folder / "entry");
    }
}

// A folder may let its names be read, but not be gone into.
TEST_F(HostileFolder, ThatIsLockedStillExistsAndListsItsNames)
{
    Make("locked/a.txt");
    fs::create_directory(m_folder / "locked" / "folder");
    fs::permissions(m_folder / "locked", fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    const auto asAnybody = [this](auto question)
    {
        return AsAnybody(m_folder.Path(), [question] { return question(CVeDirectory(L"locked")); });
    };
    EXPECT_TRUE(asAnybody([](const CVeDirectory& folder) { return folder.IsExist() != 0; }));
    EXPECT_TRUE(asAnybody([](const CVeDirectory& folder) { return folder.Destroy() == 0; }));
    EXPECT_TRUE(asAnybody([](const CVeDirectory& folder) { return folder.GetChild(L"folder") == L"locked\\folder"; }));
    EXPECT_TRUE(asAnybody([](const CVeDirectory& folder) { return folder.GetIncName(L"a.txt") == L"a2.txt"; }));
    fs::permissions(m_folder / "locked", fs::perms::owner_all);
    EXPECT_TRUE(fs::exists(m_folder / "locked" / "a.txt"));
}

TEST_F(HostileFolder, IsDestroyedHoweverDeepWithFewFilesOpen)
{
    constexpr int c_depth = 1200;
    fs::path path = m_folder.Path();
    for (int i = 0; i < c_depth; ++i)
        ASSERT_TRUE(fs::create_directory(path /= "d"));
    const ScopedLimit descriptors(RLIMIT_NOFILE, 20);
    EXPECT_NE(0, CVeDirectory(Path(L"d")).Destroy());
    EXPECT_FALSE(fs::exists(m_folder / "d"));
}

TEST_F(HostileFolder, WithTheLongestOfPathsIsSearchedAndDestroyed)
{
    constexpr std::size_t c_longest = PATH_MAX - 1;
    std::wstring path(Path(L"d").View());
    ASSERT_NE(0, CVeDirectory(path.c_str()).Create());
    while (path.size() < c_longest)
    {
        // No name is left of one character, for which there would be no room behind a separator.
        const std::size_t rest = c_longest - path.size() - 1;
        path += L'\\' + std::wstring(rest > 200 ? std::min<std::size_t>(rest - 2, 200) : rest, L'd');
        ASSERT_NE(0, CVeDirectory(path.c_str()).Create()) << path.size();
    }
    const CVeDirectory folder(path.c_str());
    EXPECT_NE(0, folder.IsExist());
    EXPECT_EQ(1, folder.IsFileIn(L""));
    EXPECT_EQ(CString(L"calc1.txt"), folder.GetIncName(L"calc.txt"));
    EXPECT_NE(0, CVeDirectory(Path(L"d")).Destroy());
    EXPECT_FALSE(fs::exists(m_folder / "d"));
}

TEST_F(HostileFolder, DeeperThanAPathIsLeft)
{
    const std::string name(200, 'x');
    const fs::path start = fs::current_path();
    fs::current_path(m_folder.Path());
    for (int i = 0; i < 25; ++i)
    {
        fs::create_directory(name);
        fs::current_path(name);
    }
    fs::current_path(start);
    const CVeDirectory folder(Path(std::wstring(200, L'x')));
    EXPECT_EQ(0, folder.Destroy());
    EXPECT_NE(0, folder.IsExist());
    EXPECT_EQ(CString(), folder.GetChild(L"missing"));
}

TEST_F(HostileFolder, IsCopiedWithoutWhatIsNoFile)
{
    Make("from/script");
    fs::permissions(m_folder / "from" / "script", fs::perms::owner_all);
    ASSERT_EQ(0, ::mkfifo((m_folder / "from" / "pipe").c_str(), 0666));
    fs::create_symlink("/dev/zero", m_folder / "from" / "endless");
    fs::create_symlink("nowhere", m_folder / "from" / "dangling");
    fs::create_directory(m_folder / "to");
    EXPECT_EQ(1, CVeDirectory(Path(L"to")).Copy(Path(L"from")));
    EXPECT_TRUE(fs::exists(m_folder / "to" / "script"));
    EXPECT_EQ(0, ::access((m_folder / "to" / "script").c_str(), X_OK));
    EXPECT_EQ(1, std::distance(fs::directory_iterator(m_folder / "to"), fs::directory_iterator()));
    EXPECT_NE(0, CVeDirectory(Path(L"from")).Destroy());
}

TEST_F(HostileFolder, ThatIsAnUnclosedSearchHoldsNoFileOpen)
{
    for (const char* name : {"a.txt", "b.txt"})
        Make(name);
    const ScopedLimit descriptors(RLIMIT_NOFILE, 20);
    for (int i = 0; i < 100; ++i)
    {
        WIN32_FIND_DATAW found{};
        EXPECT_NE(INVALID_HANDLE_VALUE, ::FindFirstFileW(m_folder[L"*.txt"], &found));
        EXPECT_NE(INVALID_HANDLE_VALUE, ::FindFirstFileW(m_folder[L"a.txt"], &found));
    }
}
