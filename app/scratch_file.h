#pragma once
#include <filesystem>

namespace app {

/// A place for a file that nobody else sees; file and folder are removed with the object.
class ScratchFile {
public:
  /// Throws std::runtime_error when the system gives no place.
  ScratchFile();
  ~ScratchFile();
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  std::filesystem::path path() const { return m_folder / "output"; }

private:
  std::filesystem::path m_folder;
};

} // namespace app
