#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "vetools/framework/CString.h"

using Bytes = std::vector<std::uint8_t>;

inline Bytes operator+(Bytes left, const Bytes& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

/// A field of a file: a text in UTF-16LE, filled up with zeros, or cut, to `size` bytes. `text` has no character beyond
/// 16 bits.
inline Bytes FieldOf(std::wstring_view text, std::size_t size)
{
    Bytes field;
    for (const wchar_t character : text)
    {
        field.push_back(static_cast<std::uint8_t>(character & 0xFF));
        field.push_back(static_cast<std::uint8_t>(character >> 8));
    }
    field.resize(size);
    return field;
}

/// A path made from wide text, whatever the locale.
inline std::filesystem::path PathOf(std::wstring_view text)
{
    if constexpr (sizeof(wchar_t) == sizeof(char32_t))
        return std::u32string(text.begin(), text.end());
    else
        return std::wstring(text);
}

inline Bytes ReadBytes(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline void WriteBytes(const std::filesystem::path& path, const Bytes& bytes)
{
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

/// An empty folder of a test's own, removed with everything in it.
class TestFolder
{
public:
    TestFolder()
    {
        for (unsigned int number = 0; m_path.empty() || !Create(); ++number)
            m_path = std::filesystem::temp_directory_path() / ("vetools-test-" + std::to_string(number));
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    const std::filesystem::path& Path() const { return m_path; }
    std::filesystem::path operator/(const std::filesystem::path& name) const { return m_path / name; }

    /// The path of a file in the folder, as the library takes it.
    CString operator[](std::wstring_view name) const { return CString((Prefix() + std::wstring(name)).c_str()); }

    /// The folder with the separator behind it.
    std::wstring Prefix() const { return (m_path / L"").wstring(); }

    /// How many files there are.
    std::size_t Count() const
    {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(m_path), std::filesystem::directory_iterator()));
    }

private:
    /// False when the name is taken, also by a test in another process that removes its folder just now: the error is that
    /// the file exists then, though it does not any more.
    bool Create() const
    {
        std::error_code error;
        if (std::filesystem::create_directory(m_path, error))
            return true;
        if (error && error != std::errc::file_exists)
            throw std::filesystem::filesystem_error("a test's folder", m_path, error);
        return false;
    }

    std::filesystem::path m_path;
};
