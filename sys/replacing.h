#pragma once
// What the replacement of files is made of on every system.
#include <filesystem>

namespace sys {

/// How many names are tried for a new file.
inline constexpr int kMostNames = 100;

/// A name beside a file that nothing has, unless this process has another file under the same number.
std::filesystem::path unusedName(const std::filesystem::path& file, int number);

/// Removes what processes that were killed left beside the file that they were going to replace.
void removeLeftovers(const std::filesystem::path& target);

/// Copies a file in place of another. Throws FileError.
void copyOver(const std::filesystem::path& from, const std::filesystem::path& to);

} // namespace sys
