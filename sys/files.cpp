#include "sys/files.h"
#include "sys/codepage.h"
#include "sys/pages.h"
#include <cerrno>
#include <charconv>
#include <csignal>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace sys {

namespace {

namespace fs = std::filesystem;

std::string reasonOf(int error) { return std::generic_category().message(error); }

[[noreturn]] void failWith(const fs::path& path, int error) { throw FileError(path, reasonOf(error)); }

/// A descriptor that closes itself.
class Descriptor {
public:
  explicit Descriptor(const fs::path& path) : m_number(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
    if (m_number < 0) failWith(path, errno);
  }
  ~Descriptor() { ::close(m_number); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int number() const { return m_number; }

private:
  int m_number;
};

struct stat statusOf(const Descriptor& file, const fs::path& path) {
  struct stat status {};
  if (::fstat(file.number(), &status) != 0) failWith(path, errno);
  if (S_ISDIR(status.st_mode)) failWith(path, EISDIR);
  return status;
}

/// Reads up to `size` bytes; fewer only at the end of the file.
std::size_t readUpTo(const Descriptor& file, const fs::path& path, char* to, std::size_t size) {
  std::size_t count = 0;
  while (count < size) {
    const ssize_t got = ::read(file.number(), to + count, size - count);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) failWith(path, errno);
    if (got == 0) break;
    count += static_cast<std::size_t>(got);
  }
  return count;
}

FileBytes readRegular(const Descriptor& file, const fs::path& path, std::size_t size) try {
  std::shared_ptr<void> owner(pages().allocate(size),
                              [size](void* memory) { pages().deallocate(memory, size); });
  auto* bytes = static_cast<char*>(owner.get());
  const std::size_t count = readUpTo(file, path, bytes, size);
  return {std::move(owner), {bytes, count}};
} catch (const std::bad_alloc&) {
  failWith(path, ENOMEM);
}

/// Pipes and devices, whose size nobody knows beforehand.
FileBytes readStream(const Descriptor& file, const fs::path& path) {
  constexpr std::size_t kPiece = std::size_t{1} << 20;
  auto bytes = std::make_shared<std::string>();
  for (std::size_t count = kPiece; count == kPiece;) {
    const std::size_t old = bytes->size();
    bytes->resize(old + kPiece);
    count = readUpTo(file, path, bytes->data() + old, kPiece);
    bytes->resize(old + count);
  }
  const std::string_view view = *bytes;
  return {std::move(bytes), view};
}

} // namespace

FileError::FileError(const fs::path& path, std::string_view reason)
    : std::runtime_error(path.string() + ": " + std::string(reason)) {}

fs::path toPath(std::wstring_view text) {
  std::string bytes;
  for (const wchar_t unit : text) encodeUtf8(static_cast<char32_t>(unit), bytes);
  return bytes;
}

std::wstring fromPath(const fs::path& path) {
  std::wstring text;
  decodeUtf8(path.native(), text);
  return text;
}

FileBytes readFile(const fs::path& path) {
  const Descriptor file(path);
  const struct stat status = statusOf(file, path);
  if (S_ISREG(status.st_mode) && status.st_size > 0)
    return readRegular(file, path, static_cast<std::size_t>(status.st_size));
  return readStream(file, path);
}

// --- MappedFile ---

MappedFile::MappedFile(const fs::path& path) {
  const Descriptor file(path);
  const struct stat status = statusOf(file, path);
  if (status.st_size == 0) return;
  const auto size = static_cast<std::size_t>(status.st_size);
  void* memory = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.number(), 0);
  if (memory == MAP_FAILED) failWith(path, errno);
  ::madvise(memory, size, MADV_SEQUENTIAL);
  m_bytes = {static_cast<const char*>(memory), size};
}

MappedFile::~MappedFile() {
  if (!m_bytes.empty()) ::munmap(const_cast<char*>(m_bytes.data()), m_bytes.size());
}

void MappedFile::forget(const char* place) {
  constexpr std::size_t kStep = std::size_t{8} << 20;
  const auto upTo = static_cast<std::size_t>(place - m_bytes.data()) / kStep * kStep;
  if (upTo <= m_forgotten) return;
  ::madvise(const_cast<char*>(m_bytes.data()) + m_forgotten, upTo - m_forgotten, MADV_DONTNEED);
  m_forgotten = upTo;
}

// --- ReplacementFile ---

namespace {

/// What the path leads to when it is a link, also one that leads to nothing yet.
fs::path linkTarget(fs::path path) {
  constexpr int kMostLinks = 40;
  std::error_code ignored;
  for (int count = 0; fs::is_symlink(path, ignored); ++count) {
    if (count == kMostLinks) failWith(path, ELOOP);
    const fs::path target = fs::read_symlink(path, ignored);
    path = target.is_absolute() ? target : path.parent_path() / target;
  }
  return path;
}

/// A name beside a file that nothing has.
fs::path unusedName(const fs::path& file, int number) {
  fs::path name = file;
  name += "." + std::to_string(::getpid()) + "-" + std::to_string(number) + ".new";
  return name;
}

constexpr int kMostNames = 100;

/// Gives a new file owner, group and mode of an old one; the answer is 0 or the reason why not.
int adopt(int descriptor, const struct stat& old) {
  // Only the administrator may give files away; a group may be given by those who are in it.
  if (::fchown(descriptor, old.st_uid, old.st_gid) != 0 &&
      ::fchown(descriptor, static_cast<uid_t>(-1), old.st_gid) != 0)
    errno = 0;
  return ::fchmod(descriptor, old.st_mode & 07777) == 0 ? 0 : errno;
}

/// Copies a file in place of another.
void copyOver(const fs::path& from, const fs::path& to) {
  const FileBytes old = readFile(from);
  ReplacementFile copy(to);
  fs::permissions(copy.temporary(), fs::status(from).permissions());
  copy.write(old.bytes);
  copy.flush();
  copy.commit();
}

/// The process that the name of a new file beside `head` tells; 0 for other names.
pid_t writerOf(std::string_view name, std::string_view head) {
  if (!name.starts_with(head) || !name.ends_with(".new")) return 0;
  name.remove_prefix(head.size());
  pid_t process = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), process);
  return error == std::errc() && *end == '-' ? process : 0;
}

/// Removes what processes that were killed left beside the file that they were going to replace.
void removeLeftovers(const fs::path& target) {
  const std::string head = target.filename().string() + ".";
  std::error_code error;
  const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
  for (fs::directory_iterator each(folder, error), end; !error && each != end; each.increment(error)) {
    const pid_t writer = writerOf(each->path().filename().native(), head);
    if (writer > 0 && ::kill(writer, 0) != 0 && errno == ESRCH) ::unlink(each->path().c_str());
  }
}

} // namespace

ReplacementFile::ReplacementFile(const fs::path& path) : m_asked(path), m_target(linkTarget(path)) {
  struct stat status {};
  const bool exists = ::stat(m_target.c_str(), &status) == 0;
  removeLeftovers(m_target);
  if (exists && S_ISDIR(status.st_mode)) failWith(m_asked, EISDIR);
  // Renaming would replace a file that its owner made read-only, or a device, without a word.
  if (exists && !S_ISREG(status.st_mode)) throw FileError(m_asked, "not a regular file");
  if (exists && ::access(m_target.c_str(), W_OK) != 0) failWith(m_asked, errno);
  open();
  const int error = exists ? adopt(m_descriptor, status) : 0;
  if (error == 0) return;
  close();
  ::unlink(m_temporary.c_str());
  failWith(m_asked, error);
}

void ReplacementFile::open() {
  constexpr mode_t kNewFileMode = 0666; // less what the user's mask takes away
  for (int tries = 0; m_descriptor < 0; ++tries) {
    m_temporary = unusedName(m_target, tries);
    m_descriptor = ::open(m_temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode);
    if (m_descriptor < 0 && (errno != EEXIST || tries == kMostNames)) failWith(m_asked, errno);
  }
}

void ReplacementFile::close() {
  if (m_descriptor >= 0) ::close(m_descriptor);
  m_descriptor = -1;
}

ReplacementFile::~ReplacementFile() {
  close();
  if (!m_temporary.empty()) ::unlink(m_temporary.c_str());
}

void ReplacementFile::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(m_descriptor, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) failWith(m_asked, errno);
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

void ReplacementFile::flush() {
  if (::fsync(m_descriptor) != 0) failWith(m_asked, errno);
}

void ReplacementFile::keepOld() {
  std::error_code ignored;
  if (!fs::exists(m_target, ignored)) return;
  fs::path backup = m_target;
  backup += ".bak";
  removeLeftovers(backup);
  // A link cannot replace a file, but renaming a link can.
  fs::path link;
  int result = -1;
  for (int tries = 0; result != 0; ++tries) {
    link = unusedName(backup, tries);
    result = ::link(m_target.c_str(), link.c_str());
    if (result != 0 && (errno != EEXIST || tries == kMostNames)) break;
  }
  // Some file systems, such as those of memory sticks, give a file one name only.
  if (result != 0) return copyOver(m_target, backup);
  const int error = ::rename(link.c_str(), backup.c_str()) == 0 ? 0 : errno;
  // Renaming does nothing where both are names of one file already.
  ::unlink(link.c_str());
  if (error != 0) failWith(backup, error);
}

void ReplacementFile::commit() {
  close();
  if (::rename(m_temporary.c_str(), m_target.c_str()) != 0) failWith(m_asked, errno);
  m_temporary.clear();
  // The folder's entry shall survive a power failure too; a file system that cannot promise that still has
  // the file.
  const fs::path folder = m_target.has_parent_path() ? m_target.parent_path() : fs::path(".");
  const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  ::fsync(descriptor);
  ::close(descriptor);
}

} // namespace sys
