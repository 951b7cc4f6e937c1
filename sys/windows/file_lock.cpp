#include "sys/file_lock.h"
#include "sys/windows/system.h"

namespace sys {

namespace {

HANDLE handleOf(std::intptr_t file) { return reinterpret_cast<HANDLE>(file); }

} // namespace

FileLock::FileLock(const std::filesystem::path& path)
    : m_file(reinterpret_cast<std::intptr_t>(CreateFileW(
          path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
          nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr))) {
  OVERLAPPED wholeFile{};
  if (handleOf(m_file) != INVALID_HANDLE_VALUE)
    LockFileEx(handleOf(m_file), LOCKFILE_EXCLUSIVE_LOCK, 0, MAXDWORD, MAXDWORD, &wholeFile);
}

FileLock::~FileLock() {
  if (handleOf(m_file) != INVALID_HANDLE_VALUE) CloseHandle(handleOf(m_file));
}

} // namespace sys
