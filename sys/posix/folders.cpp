#include "sys/folders.h"
#include <cstdlib>
#include <fstream>
#include <string>

namespace fs = std::filesystem;

namespace sys {

namespace {

constexpr char kOwnFolder[] = "hbhost";

/// The desktop's rules ignore relative paths in these variables.
fs::path absoluteFromEnvironment(const char* variable) {
  fs::path path = environmentPath(variable);
  return path.is_absolute() ? path : fs::path();
}

fs::path userFolder(const char* variable, const char* inHome) {
  fs::path folder = absoluteFromEnvironment(variable);
  if (!folder.empty()) return folder;
  folder = absoluteFromEnvironment("HOME");
  return folder.empty() ? folder : folder / inHome;
}

fs::path userConfiguration() { return userFolder("XDG_CONFIG_HOME", ".config"); }

fs::path ownFolder(const fs::path& parent) { return parent.empty() ? parent : parent / kOwnFolder; }

/// The value of a line NAME="value" of the desktop's folder list, where $HOME may lead the value.
fs::path listedFolder(const std::string& line, const std::string& name) {
  const std::string head = name + "=\"";
  if (line.rfind(head, 0) != 0) return {};
  const std::size_t end = line.find('"', head.size());
  if (end == std::string::npos) return {};
  std::string value = line.substr(head.size(), end - head.size());
  if (value.rfind("$HOME", 0) == 0) value = absoluteFromEnvironment("HOME").string() + value.substr(5);
  const fs::path path = value;
  return path.is_absolute() ? path : fs::path();
}

fs::path desktopDocuments() {
  std::ifstream list(userConfiguration() / "user-dirs.dirs");
  fs::path found;
  for (std::string line; std::getline(list, line);) {
    fs::path folder = listedFolder(line, "XDG_DOCUMENTS_DIR");
    if (!folder.empty()) found = std::move(folder);
  }
  return found;
}

bool isFolder(const fs::path& path) {
  std::error_code ignored;
  return !path.empty() && fs::is_directory(path, ignored);
}

} // namespace

fs::path configFolder() { return ownFolder(userConfiguration()); }

fs::path stateFolder() { return ownFolder(userFolder("XDG_STATE_HOME", ".local/state")); }

fs::path documentsFolder() {
  if (fs::path documents = desktopDocuments(); isFolder(documents)) return documents;
  const fs::path home = absoluteFromEnvironment("HOME");
  const fs::path documents = home / "Documents";
  return !home.empty() && isFolder(documents) ? documents : fs::path();
}

fs::path programFolder() {
  std::error_code failed;
  const fs::path program = fs::read_symlink("/proc/self/exe", failed);
  return failed ? fs::path() : program.parent_path();
}

fs::path environmentPath(const char* variable) {
  const char* value = std::getenv(variable);
  return value ? value : "";
}

} // namespace sys
