#include "sys/file_lock.h"
#include <fcntl.h>
#include <unistd.h>

namespace sys {

FileLock::FileLock(const std::filesystem::path& path)
    : m_file(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
  struct flock wholeFile {};
  wholeFile.l_type = F_WRLCK;
  // Bound to this opening of the file, so that two locks in one process exclude each other too.
  if (m_file >= 0) fcntl(static_cast<int>(m_file), F_OFD_SETLKW, &wholeFile);
}

FileLock::~FileLock() {
  if (m_file >= 0) close(static_cast<int>(m_file));
}

} // namespace sys
