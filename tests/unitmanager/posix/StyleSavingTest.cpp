#include <csignal>
#include <fstream>
#include <optional>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"
#include "vetools/framework/CFile.h"
#include "vetools/unitmanager/VeUnitManager.h"

// What becomes of a style when saving it fails: the means to make it fail are those of this system.

namespace
{

constexpr std::size_t c_styleSize = 19280;

CVeUnitManager ManagerIn(const std::wstring& folder, const wchar_t* name, const wchar_t* extension = L"")
{
    return CVeUnitManager(folder.c_str(), name, extension, L'.', 1.0, 0);
}

/// No file grows beyond `size` bytes while this lives, as if the disk were full.
class SizeLimit
{
public:
    explicit SizeLimit(rlim_t size)
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limited{size, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limited);
    }
    SizeLimit(const SizeLimit&) = delete;
    SizeLimit& operator=(const SizeLimit&) = delete;
    ~SizeLimit() { ::setrlimit(RLIMIT_FSIZE, &m_before); }

private:
    rlimit m_before{};
};

/// The cause of the CFileException that saving throws.
std::optional<int> CauseOfSaving(CVeUnitManager& manager)
{
    try
    {
        manager.SaveStyleUnit();
    }
    catch (CFileException* exception)
    {
        const int cause = exception->m_cause;
        exception->Delete();
        return cause;
    }
    return std::nullopt;
}

/// Calls that read and that write, of this process until now.
struct TransferCalls
{
    long read = 0;
    long written = 0;
};

TransferCalls CountTransferCalls()
{
    TransferCalls calls;
    std::ifstream file("/proc/self/io");
    for (std::string name; file >> name;)
    {
        long value = 0;
        file >> value;
        if (name == "syscr:")
            calls.read = value;
        if (name == "syscw:")
            calls.written = value;
    }
    return calls;
}

}  // namespace

TEST(StyleSaving, KeepsTheOldStyleWholeWhenTheDiskFills)
{
    const TestFolder folder;
    CVeUnitManager manager = ManagerIn(folder.Prefix(), L"style");
    ASSERT_EQ(1, manager.SaveStyleUnit());
    const Bytes before = ReadBytes(folder / "style");
    manager.SetVisUnit(1, 1, 1);
    const auto formerAction = std::signal(SIGXFSZ, SIG_IGN);
    for (const rlim_t size : {rlim_t{0}, rlim_t{1}, rlim_t{c_styleSize - 1}})
    {
        const SizeLimit limit(size);
        EXPECT_TRUE(CauseOfSaving(manager).has_value()) << size;
        EXPECT_EQ(before, ReadBytes(folder / "style")) << size;
        EXPECT_EQ(1u, folder.Count()) << size;
    }
    std::signal(SIGXFSZ, formerAction);
    EXPECT_EQ(1, manager.SaveStyleUnit());
    EXPECT_NE(before, ReadBytes(folder / "style"));
}

TEST(StyleSaving, KeepsTheOldStyleWholeWhenTheProcessDies)
{
    const TestFolder folder;
    CVeUnitManager manager = ManagerIn(folder.Prefix(), L"style");
    ASSERT_EQ(1, manager.SaveStyleUnit());
    const Bytes before = ReadBytes(folder / "style");
    manager.SetVisUnit(1, 1, 1);

    const pid_t child = ::fork();
    if (child == 0)
    {
        // The limit ends the process in the middle of its writing.
        std::signal(SIGXFSZ, SIG_DFL);
        const rlimit noDump{0, 0};
        ::setrlimit(RLIMIT_CORE, &noDump);
        const SizeLimit limit(0);
        manager.SaveStyleUnit();
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(child, ::waitpid(child, &status, 0));
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(before, ReadBytes(folder / "style"));

    // What the dead process left aside is in nobody's way.
    EXPECT_EQ(1, manager.SaveStyleUnit());
    EXPECT_NE(before, ReadBytes(folder / "style"));
}

TEST(StyleSaving, WritesToADeviceItself)
{
    CVeUnitManager full = ManagerIn(L"/dev/", L"full");
    EXPECT_EQ(CFileException::diskFull, CauseOfSaving(full));
    CVeUnitManager sink = ManagerIn(L"/dev/", L"null");
    EXPECT_EQ(1, sink.SaveStyleUnit());
    for (const char* path : {"/dev/full", "/dev/null"})
    {
        struct stat status
        {
        };
        EXPECT_EQ(0, ::stat(path, &status)) << path;
        EXPECT_TRUE(S_ISCHR(status.st_mode)) << path;
    }
}

TEST(StyleSaving, FollowsLinksAndKeepsThem)
{
    namespace fs = std::filesystem;
    const TestFolder folder;
    fs::create_directory(folder / "styles");
    fs::create_symlink("styles/metric", folder / "link");
    fs::create_symlink(folder / "link", folder / "style");
    CVeUnitManager manager = ManagerIn(folder.Prefix(), L"style");
    for (int round = 0; round < 2; ++round)  // the style that the links name is missing at first
    {
        EXPECT_EQ(1, manager.SaveStyleUnit());
        EXPECT_TRUE(fs::is_symlink(folder / "style"));
        EXPECT_TRUE(fs::is_symlink(folder / "link"));
        EXPECT_EQ(c_styleSize, ReadBytes(folder / "styles" / "metric").size());
        EXPECT_EQ(3u, folder.Count());
    }
    CVeUnitManager loaded = ManagerIn(folder.Prefix(), L"style");
    manager.SetVisUnit(1, 1, 7);
    EXPECT_EQ(1, manager.SaveStyleUnit());
    EXPECT_EQ(1, loaded.LoadStyleUnit());
    EXPECT_EQ(7u, loaded.GetVisUnit(1).GetPrecision());
}

TEST(StyleSaving, KeepsTheRightsOfTheFile)
{
    const TestFolder folder;
    CVeUnitManager manager = ManagerIn(folder.Prefix(), L"style");
    ASSERT_EQ(1, manager.SaveStyleUnit());
    for (const mode_t mode : {mode_t{0600}, mode_t{0664}, mode_t{0755}})
    {
        ASSERT_EQ(0, ::chmod((folder / "style").c_str(), mode));
        EXPECT_EQ(1, manager.SaveStyleUnit());
        struct stat status
        {
        };
        EXPECT_EQ(0, ::stat((folder / "style").c_str(), &status));
        EXPECT_EQ(mode, status.st_mode & 07777);
    }
}

TEST(StyleSaving, TakesFewCallsOfTheSystem)
{
    const TestFolder folder;
    CVeUnitManager manager = ManagerIn(folder.Prefix(), L"style");
    // Counting reads as well: what that takes is found first.
    const TransferCalls first = CountTransferCalls();
    const TransferCalls start = CountTransferCalls();
    const long counting = start.read - first.read;
    EXPECT_EQ(1, manager.SaveStyleUnit());
    const TransferCalls saved = CountTransferCalls();
    EXPECT_EQ(1, manager.LoadStyleUnit());
    const TransferCalls loaded = CountTransferCalls();
    EXPECT_LE(saved.written - start.written, 1);
    EXPECT_LE(saved.read - start.read - counting, 0);
    EXPECT_LE(loaded.read - saved.read - counting, 2);  // the second meets the end
    EXPECT_LE(loaded.written - saved.written, 0);
}

TEST(StyleLoading, RaisesAReadFailure)
{
    CVeUnitManager manager = ManagerIn(L"/proc/self/", L"mem");
    for (const bool named : {true, false})
    {
        int cause = CFileException::none;
        try
        {
            named ? manager.LoadStyleUnit(L"mem") : manager.LoadStyleUnit();
        }
        catch (CFileException* exception)
        {
            cause = exception->m_cause;
            exception->Delete();
        }
        EXPECT_EQ(CFileException::hardIO, cause);
        EXPECT_EQ(1u, manager.GetVisUnit(1).GetIDUnit());
    }
}
