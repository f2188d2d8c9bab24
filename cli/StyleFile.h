#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "cli/StyleLayout.h"
#include "vetools/vetools.h"

/// A style file by the path that the user gave.
class StyleFile
{
public:
    /// Throws UsageError for a path that is empty, no UTF-8 or longer than the library's three parts of it hold.
    explicit StyleFile(const std::string& path);

    const std::string& Path() const { return m_path; }

    /// The file's bytes, at most c_mostBytes of them. Throws UsageError when it cannot be opened, StreamError when it
    /// cannot be read.
    std::vector<std::byte> Read() const;

    /// A new manager whose style file this is, whether it is there or not.
    std::unique_ptr<CVeUnitManager> NewManager() const;

    /// The manager as it is after a load. Units that the file does not hold are those of a new manager. Throws StreamError
    /// when the file cannot be read; one that cannot be opened gives a new manager.
    std::unique_ptr<CVeUnitManager> Load(StyleLoader loader) const;

    /// Saves a manager of this file and reads the file back, since the library does not say when it could not write.
    /// Throws StreamError when the manager's units are not what is there afterwards.
    void Save(CVeUnitManager& manager) const;

    static constexpr std::size_t c_mostBytes = 1 << 16;  ///< no style is longer

private:
    bool IsSaved(CVeUnitManager& manager) const;
    std::string WhyNotWritten() const;

    std::string m_path;
    std::wstring m_widePath;
    std::wstring m_folder;
    std::wstring m_name;
    std::wstring m_extension;
};

/// The record that the library writes of a unit, in the layout of c_styleVersion.
std::vector<std::byte> MakeStyleRecord(const CVeUnitBase& unit);
