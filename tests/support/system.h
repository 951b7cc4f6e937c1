#pragma once
// What tests need of the operating system.
#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>

namespace test {

/// Sets an environment variable of this process, for the library and for programs that it starts; an empty
/// value removes it.
void setEnvironment(const char* name, const std::filesystem::path& value);

/// Makes the user's documents folder this one for the rest of the process.
void setDocumentsFolder(const std::filesystem::path& folder);

/// What this process holds of the system.
struct Holdings {
  std::size_t handles = 0; ///< open files and the like
  std::size_t memory = 0;  ///< bytes of its own
};
Holdings holdings();

/// Memory that a call takes at its height, in bytes; where the system counts only the height of the whole
/// process, 0 for a call that stays below it.
std::size_t peakMemory(const std::function<void()>& call);

/// A new folder for temporary files, with a name that no other process uses.
std::filesystem::path makeTemporaryFolder(const std::string& name);

/// What ends a line of a text file, and a library's file name.
extern const char* const kLineEnd;
extern const char* const kLibrarySuffix;

/// A text as it is where lines end in "\n".
std::string withPlainLineEnds(std::string text);

} // namespace test
