#include "cli/StyleFile.h"

#include <algorithm>

#include "cli/Failure.h"
#include "cli/Utf8.h"
#include "cli/platform/System.h"
#include "vetools/framework/CFile.h"

namespace
{

// What the library keeps of folder, name and extension.
constexpr std::size_t c_longestFolder = 259;
constexpr std::size_t c_longestName = 259;
constexpr std::size_t c_longestExtension = 255;

struct CauseRow
{
    int cause;
    const char* text;
};

// clang-format off
constexpr CauseRow c_causes[] = {
    {CFileException::fileNotFound,     "No such file or directory"},
    {CFileException::badPath,          "No such file or directory"},
    {CFileException::accessDenied,     "Permission denied, or not a plain file"},
    {CFileException::sharingViolation, "Used by another program"},
    {CFileException::lockViolation,    "Used by another program"},
    {CFileException::tooManyOpenFiles, "Too many open files"},
    {CFileException::diskFull,         "No space left on the disk"},
    {CFileException::hardIO,           "Input/output error"},
};
// clang-format on

std::string Describe(const CFileException& error)
{
    for (const CauseRow& row : c_causes)
        if (row.cause == error.m_cause)
            return row.text;
    return "System error " + std::to_string(error.m_lOsError);
}

// Runs what may throw the library's exceptions, which are pointers, and throws ours in their place.
template <typename Function>
auto Guard(const std::string& problem, const Function& function)
{
    try
    {
        return function();
    }
    catch (CFileException* error)
    {
        const std::string reason = Describe(*error);
        error->Delete();
        throw StreamError(problem + ": " + reason);
    }
}

}  // namespace

StyleFile::StyleFile(const std::string& path)
    : m_path(RepairUtf8(path))
{
    if (path.empty())
        throw UsageError("the name of the style file is empty");
    if (FindInvalidUtf8(path) != std::string_view::npos)
        throw UsageError(m_path + ": expected a file name in UTF-8");
    m_widePath = System::LongPath(ToWideLossy(path));

    const std::size_t folderEnd = m_widePath.find_last_of(L"/\\") + 1;  // 0 without a folder
    const std::size_t point = m_widePath.rfind(L'.');
    const bool hasExtension = point != std::wstring::npos && point > folderEnd;
    const std::size_t nameEnd = hasExtension ? point : m_widePath.size();
    m_folder = m_widePath.substr(0, folderEnd);
    m_name = m_widePath.substr(folderEnd, nameEnd - folderEnd);
    m_extension = m_widePath.substr(nameEnd);
    if (m_folder.size() <= c_longestFolder && m_name.size() <= c_longestName &&
        m_extension.size() <= c_longestExtension)
        return;

    // The library joins the parts as they are, so a long path may be cut anywhere.
    constexpr std::size_t c_longestPath = c_longestFolder + c_longestName + c_longestExtension;
    if (m_widePath.size() > c_longestPath)
        throw UsageError(m_path + ": a path of a style has at most " + std::to_string(c_longestPath) + " characters");
    m_folder = m_widePath.substr(0, c_longestFolder);
    m_name = m_widePath.substr(m_folder.size(), c_longestName);
    m_extension = m_widePath.substr(m_folder.size() + m_name.size());
}

std::vector<std::byte> StyleFile::Read() const
{
    CFile file;
    CFileException error;
    if (!file.Open(m_widePath.c_str(), CFile::modeRead | CFile::shareDenyNone, &error))
        throw UsageError(m_path + " cannot be opened: " + Describe(error));
    return Guard(m_path + " cannot be read",
                 [&]
                 {
                     std::vector<std::byte> bytes(c_mostBytes);
                     std::size_t count = 0;
                     while (count < bytes.size())
                     {
                         const UINT read = file.Read(bytes.data() + count, static_cast<UINT>(bytes.size() - count));
                         if (read == 0)
                             break;
                         count += read;
                     }
                     bytes.resize(count);
                     return bytes;
                 });
}

std::unique_ptr<CVeUnitManager> StyleFile::NewManager() const
{
    std::wstring folder = m_folder, name = m_name, extension = m_extension;
    return std::make_unique<CVeUnitManager>(folder.data(), name.data(), extension.data(), L'.', 1.0, 0);
}

std::unique_ptr<CVeUnitManager> StyleFile::Load(StyleLoader loader) const
{
    std::unique_ptr<CVeUnitManager> manager = NewManager();
    Guard(m_path + " cannot be read", [&]
          { return loader == StyleLoader::Named ? manager->LoadStyleUnit(m_name.c_str()) : manager->LoadStyleUnit(); });
    return manager;
}

void StyleFile::Save(CVeUnitManager& manager) const
{
    Guard(m_path + " cannot be written", [&] { return manager.SaveStyleUnit(); });
    if (!IsSaved(manager))
        throw StreamError(m_path + " cannot be written: " + WhyNotWritten());
}

bool StyleFile::IsSaved(CVeUnitManager& manager) const
{
    std::vector<std::byte> records;
    for (unsigned int id = 1; id <= c_unitCount; ++id)
    {
        const std::vector<std::byte> record = MakeStyleRecord(manager.GetVisUnit(id));
        records.insert(records.end(), record.begin(), record.end());
    }
    try
    {
        const std::vector<std::byte> bytes = Read();
        return bytes.size() == c_styleHeaderSize + records.size() &&
               std::equal(records.begin(), records.end(), bytes.begin() + c_styleHeaderSize);
    }
    catch (const UsageError&)
    {
        return false;
    }
}

std::string StyleFile::WhyNotWritten() const
{
    CFile file;
    CFileException error;
    if (file.Open(m_widePath.c_str(), CFile::modeWrite, &error))
        return "what was written is not what is there";
    return Describe(error);
}

std::vector<std::byte> MakeStyleRecord(const CVeUnitBase& unit)
{
    CMemFile file;
    unit.Save(file);
    const auto* const bytes = reinterpret_cast<const std::byte*>(file.GetBytes());
    return {bytes, bytes + file.GetLength()};
}
