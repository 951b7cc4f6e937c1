#include "sys/files.h"
#include "sys/codepage.h"
#include "sys/pages.h"
#include "sys/replacing.h"
#include "sys/windows/system.h"
#include <algorithm>

namespace sys {

namespace {

namespace fs = std::filesystem;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
/// The most that one call of the system is asked for.
constexpr std::size_t kPiece = std::size_t{1} << 26;

[[noreturn]] void failWith(const fs::path& path, DWORD error) { throw FileError(path, reasonOf(error)); }

[[noreturn]] void failWith(const fs::path& path, std::errc condition) {
  throw FileError(path, std::make_error_code(condition).message());
}

bool isFolder(const fs::path& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// A file that is open for reading.
class InputFile {
public:
  explicit InputFile(const fs::path& path)
      : m_handle(CreateFileW(path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                             FILE_FLAG_SEQUENTIAL_SCAN, nullptr)) {
    if (m_handle.isOpen()) return;
    const DWORD error = GetLastError();
    if (isFolder(path)) failWith(path, std::errc::is_a_directory);
    failWith(path, error);
  }
  HANDLE get() const { return m_handle.get(); }
  bool isRegular() const { return GetFileType(get()) == FILE_TYPE_DISK; }
  std::size_t size(const fs::path& path) const {
    LARGE_INTEGER size;
    if (!GetFileSizeEx(get(), &size)) failWith(path, GetLastError());
    return static_cast<std::size_t>(size.QuadPart);
  }

private:
  Handle m_handle;
};

/// Reads up to `size` bytes; fewer only at the end of the file.
std::size_t readUpTo(const InputFile& file, const fs::path& path, char* to, std::size_t size) {
  std::size_t count = 0;
  while (count < size) {
    DWORD got = 0;
    const auto wanted = static_cast<DWORD>(std::min(size - count, kPiece));
    if (!ReadFile(file.get(), to + count, wanted, &got, nullptr)) {
      // The other end of a pipe is closed.
      if (GetLastError() == ERROR_BROKEN_PIPE) break;
      failWith(path, GetLastError());
    }
    if (got == 0) break;
    count += got;
  }
  return count;
}

FileBytes readRegular(const InputFile& file, const fs::path& path, std::size_t size) try {
  std::shared_ptr<void> owner(pages().allocate(size),
                              [size](void* memory) { pages().deallocate(memory, size); });
  auto* bytes = static_cast<char*>(owner.get());
  const std::size_t count = readUpTo(file, path, bytes, size);
  return {std::move(owner), {bytes, count}};
} catch (const std::bad_alloc&) {
  failWith(path, DWORD{ERROR_NOT_ENOUGH_MEMORY});
}

/// Pipes and devices, whose size nobody knows beforehand.
FileBytes readStream(const InputFile& file, const fs::path& path) {
  constexpr std::size_t kStep = std::size_t{1} << 20;
  auto bytes = std::make_shared<std::string>();
  for (std::size_t count = kStep; count == kStep;) {
    const std::size_t old = bytes->size();
    bytes->resize(old + kStep);
    count = readUpTo(file, path, bytes->data() + old, kStep);
    bytes->resize(old + count);
  }
  const std::string_view view = *bytes;
  return {std::move(bytes), view};
}

} // namespace

fs::path toPath(std::wstring_view text) { return text; }

std::wstring fromPath(const fs::path& path) { return path.native(); }

fs::path pathNamed(std::string_view text) {
  std::wstring wide;
  decodeUtf8(text, wide);
  return wide;
}

std::string shownPath(const fs::path& path) { return utf8(path.native()); }

FileBytes readFile(const fs::path& path) {
  const InputFile file(path);
  if (file.isRegular())
    if (const std::size_t size = file.size(path)) return readRegular(file, path, size);
  return readStream(file, path);
}

// --- MappedFile ---

MappedFile::MappedFile(const fs::path& path) {
  const InputFile file(path);
  const std::size_t size = file.size(path);
  if (size == 0) return;
  const Handle mapping(CreateFileMappingW(file.get(), nullptr, PAGE_READONLY, 0, 0, nullptr));
  // The view keeps the mapping.
  const void* memory = mapping.isOpen() ? MapViewOfFile(mapping.get(), FILE_MAP_READ, 0, 0, 0) : nullptr;
  if (!memory) failWith(path, GetLastError());
  m_bytes = {static_cast<const char*>(memory), size};
}

MappedFile::~MappedFile() {
  if (!m_bytes.empty()) UnmapViewOfFile(m_bytes.data());
}

void MappedFile::forget(const char* place) {
  constexpr std::size_t kStep = std::size_t{8} << 20;
  const auto upTo = static_cast<std::size_t>(place - m_bytes.data()) / kStep * kStep;
  if (upTo <= m_forgotten) return;
  // Unlocking pages that are not locked takes them out of the working set.
  VirtualUnlock(const_cast<char*>(m_bytes.data()) + m_forgotten, upTo - m_forgotten);
  m_forgotten = upTo;
}

// --- ReplacementFile ---

namespace {

HANDLE handleOf(std::intptr_t file) { return reinterpret_cast<HANDLE>(file); }

/// What the path leads to when it is a link to a file that exists.
fs::path linkTarget(const fs::path& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return path;
  const Handle file(
      CreateFileW(path.c_str(), 0, kShareAll, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  constexpr DWORD kLongestPath = 32768;
  std::wstring target(kLongestPath, L'\0');
  const DWORD length =
      file.isOpen() ? GetFinalPathNameByHandleW(file.get(), target.data(), kLongestPath, FILE_NAME_NORMALIZED)
                    : 0;
  if (length == 0 || length >= kLongestPath) failWith(path, GetLastError());
  target.resize(length);
  return target;
}

/// Throws where replacing would do what the user did not mean: to a folder, a device, or a read-only file.
void checkOld(const fs::path& asked, const fs::path& target) {
  if (isFolder(target)) failWith(asked, std::errc::is_a_directory);
  const Handle old(CreateFileW(target.c_str(), GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING,
                               FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!old.isOpen()) {
    const DWORD error = GetLastError();
    if (error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND) failWith(asked, error);
  } else if (GetFileType(old.get()) != FILE_TYPE_DISK) {
    throw FileError(asked, "not a regular file");
  }
}

bool isThere(const fs::path& path) { return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

} // namespace

ReplacementFile::ReplacementFile(const fs::path& path) : m_asked(path), m_target(linkTarget(path)) {
  removeLeftovers(m_target);
  checkOld(m_asked, m_target);
  open();
}

void ReplacementFile::open() {
  for (int tries = 0; m_file == kNoFile; ++tries) {
    m_temporary = unusedName(m_target, tries);
    const HANDLE file = CreateFileW(m_temporary.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                    nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE && (GetLastError() != ERROR_FILE_EXISTS || tries == kMostNames))
      failWith(m_asked, GetLastError());
    m_file = reinterpret_cast<std::intptr_t>(file);
  }
}

void ReplacementFile::close() {
  if (m_file != kNoFile) CloseHandle(handleOf(m_file));
  m_file = kNoFile;
}

ReplacementFile::~ReplacementFile() {
  close();
  if (!m_temporary.empty()) DeleteFileW(m_temporary.c_str());
}

void ReplacementFile::write(std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD count = 0;
    const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kPiece));
    if (!WriteFile(handleOf(m_file), bytes.data(), wanted, &count, nullptr))
      failWith(m_asked, GetLastError());
    bytes.remove_prefix(count);
  }
}

void ReplacementFile::flush() {
  if (!FlushFileBuffers(handleOf(m_file))) failWith(m_asked, GetLastError());
}

void ReplacementFile::keepOld() {
  if (!isThere(m_target)) return;
  fs::path backup = m_target;
  backup += ".bak";
  removeLeftovers(backup);
  // A link cannot replace a file, but renaming a link can.
  fs::path link;
  BOOL isLinked = FALSE;
  for (int tries = 0; !isLinked; ++tries) {
    link = unusedName(backup, tries);
    isLinked = CreateHardLinkW(link.c_str(), m_target.c_str(), nullptr);
    if (!isLinked && (GetLastError() != ERROR_ALREADY_EXISTS || tries == kMostNames)) break;
  }
  // Some file systems, such as those of memory sticks, give a file one name only.
  if (!isLinked) return copyOver(m_target, backup);
  const DWORD error =
      MoveFileExW(link.c_str(), backup.c_str(), MOVEFILE_REPLACE_EXISTING) ? ERROR_SUCCESS : GetLastError();
  DeleteFileW(link.c_str());
  if (error != ERROR_SUCCESS) failWith(backup, error);
}

void ReplacementFile::commit() {
  close();
  // This call keeps attributes and access rights of the old file; the second one is for file systems and
  // shares that do not know it.
  const BOOL isReplaced =
      isThere(m_target) &&
      ReplaceFileW(m_target.c_str(), m_temporary.c_str(), nullptr,
                   REPLACEFILE_IGNORE_MERGE_ERRORS | REPLACEFILE_IGNORE_ACL_ERRORS, nullptr, nullptr);
  if (!isReplaced &&
      !MoveFileExW(m_temporary.c_str(), m_target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
    failWith(m_asked, GetLastError());
  m_temporary.clear();
}

} // namespace sys
