// Makes an ordinary program of a fuzz target: it runs the target on every file that it is given, and on every file of
// every folder. Arguments with a dash are the fuzzer's own and are passed over.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace
{

std::vector<std::filesystem::path> FilesOf(const std::filesystem::path& path)
{
    if (!std::filesystem::is_directory(path))
        return {path};

    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path))
    {
        if (entry.is_regular_file())
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

bool Replay(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
    {
        std::fprintf(stderr, "cannot read %s\n", path.string().c_str());
        return false;
    }
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    // The name comes first: when the target crashes, it is the last line.
    std::printf("%s (%zu bytes)\n", path.string().c_str(), bytes.size());
    std::fflush(stdout);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return true;
}

}  // namespace

int main(int argc, char** argv)
{
    int replayed = 0;
    for (int i = 1; i < argc; ++i)
    {
        const std::string argument = argv[i];
        if (argument.starts_with('-'))
            continue;
        for (const std::filesystem::path& file : FilesOf(argument))
        {
            if (!Replay(file))
                return 1;
            ++replayed;
        }
    }
    std::printf("%d files replayed\n", replayed);
    return replayed > 0 ? 0 : 1;
}
