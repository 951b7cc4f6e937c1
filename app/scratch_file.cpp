#include "scratch_file.h"
#include <random>
#include <stdexcept>

namespace fs = std::filesystem;

namespace app {

ScratchFile::ScratchFile() {
  constexpr int kAttempts = 100;
  std::random_device random;
  std::error_code failed;
  const fs::path parent = fs::temp_directory_path(failed);
  for (int attempt = 0; attempt < kAttempts && !failed; ++attempt) {
    m_folder = parent / ("hbhost-" + std::to_string(random()));
    if (!fs::create_directory(m_folder, failed)) continue;
    fs::permissions(m_folder, fs::perms::owner_all, failed);
    return;
  }
  throw std::runtime_error("there is no place for a temporary file: " + failed.message());
}

ScratchFile::~ScratchFile() {
  std::error_code ignored;
  fs::remove_all(m_folder, ignored);
}

} // namespace app
