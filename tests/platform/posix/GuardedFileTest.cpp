#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"
#include "tests/support/SystemCallSupport.h"
#include "vetools/platform/Platform.h"

// A lock of the file keeps other processes from deleting what is written to.

namespace
{

constexpr DWORD c_shareReading = FILE_SHARE_READ | FILE_SHARE_WRITE;
constexpr DWORD c_shareAll = c_shareReading | FILE_SHARE_DELETE;

/// A process that has a file open while this object lives.
class OtherProcess
{
public:
    OtherProcess(const CString& path, DWORD access, DWORD share)
    {
        int channel[2];
        EXPECT_EQ(0, ::pipe(channel));
        m_id = ::fork();
        if (m_id == 0)
        {
            const HANDLE file = ::CreateFileW(path, access, share, nullptr, OPEN_EXISTING, 0, nullptr);
            const char isOpen = file != INVALID_HANDLE_VALUE;
            const bool isTold = ::write(channel[1], &isOpen, 1) == 1;
            ::pause();
            ::_exit(isTold ? 0 : 1);
        }
        ::close(channel[1]);
        char isOpen = 0;
        EXPECT_EQ(1, ::read(channel[0], &isOpen, 1));
        EXPECT_EQ(1, isOpen);
        ::close(channel[0]);
    }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;
    ~OtherProcess()
    {
        ::kill(m_id, SIGKILL);
        EXPECT_EQ(m_id, ::waitpid(m_id, nullptr, 0));
    }

private:
    pid_t m_id;
};

/// A descriptor of the system, closed at the end.
class Descriptor
{
public:
    explicit Descriptor(const std::filesystem::path& path)
        : m_descriptor(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666))
    {
        EXPECT_LE(0, m_descriptor);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { ::close(m_descriptor); }

    operator int() const { return m_descriptor; }

private:
    int m_descriptor;
};

class GuardedFile : public testing::Test
{
protected:
    GuardedFile() { WriteBytes(m_folder / "file", Bytes{'a'}); }

    Outcome Delete() const
    {
        return OutcomeOf([this] { return ::DeleteFileW(m_folder[L"file"]); });
    }

    TestFolder m_folder;
};

bool Append(const CString& path)
{
    const HANDLE file =
        ::CreateFileW(path, FILE_APPEND_DATA, c_shareReading, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    const bool succeeded = ::WriteFile(file, "b", 1, nullptr, nullptr);
    return ::CloseHandle(file) && succeeded;
}

}  // namespace

TEST_F(GuardedFile, IsNotDeletedWhileAnotherProcessWritesToIt)
{
    const struct
    {
        Outcome outcome;
        DWORD access;
        DWORD share;
    } rows[] = {
        {Failed(ERROR_SHARING_VIOLATION), FILE_APPEND_DATA, c_shareReading},
        {Failed(ERROR_SHARING_VIOLATION), GENERIC_WRITE, 0},
        {Failed(ERROR_SHARING_VIOLATION), GENERIC_READ | GENERIC_WRITE, c_shareReading},
        {c_done, GENERIC_WRITE, c_shareAll},
        {c_done, GENERIC_READ, c_shareReading},
    };
    for (const auto& row : rows)
    {
        WriteBytes(m_folder / "file", Bytes{'a'});
        {
            const OtherProcess other(m_folder[L"file"], row.access, row.share);
            EXPECT_EQ(row.outcome, Delete()) << std::hex << row.access << ' ' << row.share;
        }
        EXPECT_EQ(row.outcome.succeeded ? Failed(ERROR_FILE_NOT_FOUND) : c_done, Delete());
    }
}

TEST_F(GuardedFile, IsOpenedAlsoWhenAProgramLocksItForItself)
{
    const Descriptor foreign(m_folder / "file");
    ASSERT_EQ(0, ::flock(foreign, LOCK_EX));
    EXPECT_TRUE(Append(m_folder[L"file"]));
    EXPECT_EQ((Bytes{'a', 'b'}), ReadBytes(m_folder / "file"));
    EXPECT_EQ(Failed(ERROR_SHARING_VIOLATION), Delete());
}

TEST_F(GuardedFile, MayBeOneThatHasNoNameAnyMore)
{
    const Descriptor foreign(m_folder / "file");
    EXPECT_EQ(c_done, Delete());
    const std::string name = "/proc/self/fd/" + std::to_string(foreign);
    EXPECT_TRUE(Append(CString(name.c_str())));
    char bytes[3];
    EXPECT_EQ(2, ::read(foreign, bytes, sizeof bytes));
}

TEST_F(GuardedFile, IsNeverADevice)
{
    const std::filesystem::path device = m_folder / "null";
    const dev_t null = makedev(1, 3);
    if (::mknod(device.c_str(), S_IFCHR | 0666, null) != 0)
        return;  // only who may make one could delete one
    EXPECT_EQ(Failed(ERROR_ACCESS_DENIED), OutcomeOf([this] { return ::DeleteFileW(m_folder[L"null"]); }));
    EXPECT_TRUE(std::filesystem::is_character_file(device));
}
