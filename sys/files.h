#pragma once
// Whole files in memory, and files that replace others only once they are complete.
#include <cstdint>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace sys {

/// A file could not be read or written. `what()` is "PATH: reason" in UTF-8.
class FileError : public std::runtime_error {
public:
  FileError(const std::filesystem::path& path, std::string_view reason);
};

/// Paths in wide text. Where the system's file names are bytes, those that are no UTF-8 stand in the text as
/// U+DC80 to U+DCFF.
std::filesystem::path toPath(std::wstring_view text);
std::wstring fromPath(const std::filesystem::path& path);
/// The path that text outside the wide strings names, such as an argument: UTF-8 on Windows, bytes elsewhere.
/// What the standard library makes of such text depends on the locale.
std::filesystem::path pathNamed(std::string_view text);
/// A path as messages show it: in UTF-8, or in its own bytes where file names are bytes. The inverse of
/// pathNamed.
std::string shownPath(const std::filesystem::path& path);

struct FileBytes {
  std::shared_ptr<void> owner; ///< keeps the bytes alive
  std::string_view bytes;
};

/// The whole file, copied, so that nothing that happens to the file afterwards can be felt. Throws FileError.
FileBytes readFile(const std::filesystem::path& path);

/// A view of a file that nobody else changes. Pages that were dealt with can be given back.
class MappedFile {
public:
  /// Throws FileError.
  explicit MappedFile(const std::filesystem::path& path);
  ~MappedFile();
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;
  std::string_view bytes() const { return m_bytes; }
  /// Tells that the bytes before `place` are no longer needed in memory; they stay readable.
  void forget(const char* place);

private:
  std::string_view m_bytes;
  std::size_t m_forgotten = 0;
};

/// Writes a file beside the one it is going to replace. Until `commit`, the old file stands untouched;
/// without it, the new one disappears again; where the process is killed, it does so with the next
/// replacement of the same file. A symbolic link is followed; the mode of the old file is kept, and its owner
/// and group where the system allows it.
class ReplacementFile {
public:
  /// Throws FileError.
  explicit ReplacementFile(const std::filesystem::path& path);
  ~ReplacementFile();
  ReplacementFile(const ReplacementFile&) = delete;
  ReplacementFile& operator=(const ReplacementFile&) = delete;

  /// Throws FileError, as for a full disk.
  void write(std::string_view bytes);
  /// Brings everything written onto the disk. Throws FileError.
  void flush();
  /// The file being written.
  const std::filesystem::path& temporary() const { return m_temporary; }
  /// Gives the old file, if there is one, a second name: its own and ".bak". An older file of that name goes.
  /// At no moment is there neither. To be called before commit. Throws FileError.
  void keepOld();
  /// Replaces the old file; to be called after flush. Throws FileError.
  void commit();

private:
  void close();
  void open();

  std::filesystem::path m_asked; ///< as the caller named it, for messages
  std::filesystem::path m_target;
  std::filesystem::path m_temporary;
  static constexpr std::intptr_t kNoFile = -1;
  std::intptr_t m_file = kNoFile; ///< the open file, as the system names it
};

} // namespace sys
