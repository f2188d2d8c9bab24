// Files of a job: numbered, written and read whatever the length of their paths, listed, copied, and removed with their folder.
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "vetools/vetools.h"

namespace
{

bool Write(const CString& path, const char* text, unsigned int size)
{
    const HANDLE file = gCreateFile(path, GENERIC_WRITE, 0, CREATE_NEW, FILE_ATTRIBUTE_NORMAL);
    if (file == INVALID_HANDLE_VALUE)
        return false;  // the log says why
    const bool done = gWriteFile(file, text, size, nullptr) != 0;
    CloseHandle(file);
    return done;
}

void ShowNames(const CVeDirectory& folder, wchar_t* filter)
{
    wchar_t(*names)[260] = nullptr;
    unsigned int count = 0;
    folder.GetFileNames(&names, &count, filter);
    std::printf("%u:", count);
    for (unsigned int i = 0; i < count; ++i)
        std::printf(" %ls", names[i]);
    std::printf("\n");
    std::free(names);
}

}  // namespace

int main()
{
    // A folder that nobody has yet, and the log of the process in it.
    CVeDirectory job((std::filesystem::current_path() / "job").wstring().c_str());
    job.IncName(nullptr);
    job.Create();
    LogFileBase::CreateInstance(job.m_strPath, 0);

    // Three results, each under a name that is free.
    for (const char* text : {"5.4 kN", "6.1 kN", "7.0 kN"})
    {
        const CString name = job.GetIncName(L"calc.res");
        std::printf("%ls %s\n", name.GetString(), Write(job.m_strPath + L"\\" + name, text, 6) ? "written" : "failed");
    }
    wchar_t results[] = L".res";
    ShowNames(job, results);

    // Copied to a folder below, which is found by its name.
    const CVeDirectory archive(job.m_strPath + L"\\archive");
    archive.Create();
    archive.Copy(job.m_strPath);
    ShowNames(CVeDirectory(job.GetChild(L"ARCHIVE")), results);

    // Read up to the end, which reads as a failure.
    const HANDLE file = gCreateFile(job.m_strPath + L"\\calc1.res", GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING, 0);
    char bytes[4];
    for (DWORD count = 0; gReadFile(file, bytes, sizeof bytes, &count);)
        std::printf("\"%.*s\" ", static_cast<int>(count), bytes);
    CloseHandle(file);
    std::printf("end\n");

    // A failure: its number for the program, its text for the log.
    const bool again = Write(job.m_strPath + L"\\calc1.res", "8.2 kN", 6);
    std::printf("again: %d, error %u\n", again, static_cast<unsigned int>(GetLastError()));

    // The folder is removed with all that is in it, once its log is closed.
    LogFileBase::ReleaseInstance();
    const int destroyed = job.Destroy();
    std::printf("destroyed: %d, exists: %d\n", destroyed != 0, job.IsExist());
}
