#pragma once

#include <filesystem>
#include <string>

/// What a log holds, with signs in place of what differs from run to run: # for the id of this process, TIME and DATE for a
/// time and a long date in English. A carriage return, which a text file of Windows has in front of each line break, is left
/// out.
std::string LogTextOf(const std::filesystem::path& path);
