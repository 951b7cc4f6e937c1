#include "support/system.h"
#include <cstdlib>
#include <fstream>
#include <malloc.h>
#include <unistd.h>

const char* const test::kLineEnd = "\n";
const char* const test::kLibrarySuffix = ".so";

void test::setEnvironment(const char* name, const std::filesystem::path& value) {
  if (value.empty())
    unsetenv(name);
  else
    setenv(name, value.c_str(), 1);
}

void test::setDocumentsFolder(const std::filesystem::path& folder) {
  const std::filesystem::path settings = folder / ".settings";
  std::filesystem::create_directories(settings);
  std::ofstream(settings / "user-dirs.dirs") << "XDG_DOCUMENTS_DIR=\"" << folder.string() << "\"\n";
  setEnvironment("XDG_CONFIG_HOME", settings);
}

test::Holdings test::holdings() {
  Holdings held;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
    ++held.handles;
  std::size_t pages = 0, resident = 0, shared = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident >> shared;
  held.memory = (resident - shared) * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  return held;
}

std::size_t test::peakMemory(const std::function<void()>& call) {
  const auto kilobytes = [](const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
      if (std::size_t value = 0; word == name && status >> value) return value;
    return std::size_t{0};
  };
  ::malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << "5";
  const std::size_t before = kilobytes("VmRSS:");
  call();
  return (kilobytes("VmHWM:") - before) * 1024;
}
