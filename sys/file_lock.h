#pragma once
#include <cstdint>
#include <filesystem>

namespace sys {

/// Keeps other holders of a lock on the same path waiting, in this and in other processes, as long as it
/// lives. The lock is a small file that stays; a process that dies gives its lock back. Where the file cannot
/// be made there is no lock, and work goes on without.
class FileLock {
public:
  explicit FileLock(const std::filesystem::path& path);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

private:
  std::intptr_t m_file; ///< as the system names it
};

} // namespace sys
