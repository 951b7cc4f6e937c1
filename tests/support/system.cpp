#include "support/system.h"
#include "sys/process.h"

namespace fs = std::filesystem;

std::filesystem::path test::makeTemporaryFolder(const std::string& name) {
  for (int number = 0;; ++number) {
    const std::string unique = name + "-" + std::to_string(sys::ownProcess()) + "-" + std::to_string(number);
    if (fs::path folder = fs::temp_directory_path() / unique; fs::create_directory(folder)) return folder;
  }
}

std::string test::withPlainLineEnds(std::string text) {
  const std::string_view end(kLineEnd);
  if (end == "\n") return text;
  for (std::size_t at = 0; (at = text.find(end, at)) != std::string::npos; ++at)
    text.replace(at, end.size(), "\n");
  return text;
}
