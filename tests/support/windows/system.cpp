#include "support/system.h"
#include <string>
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <psapi.h> // needs the types above

const char* const test::kLineEnd = "\r\n";
const char* const test::kLibrarySuffix = ".dll";

void test::setEnvironment(const char* name, const std::filesystem::path& value) {
  const std::string_view narrow(name);
  SetEnvironmentVariableW(std::wstring(narrow.begin(), narrow.end()).c_str(),
                          value.empty() ? nullptr : value.c_str());
}

void test::setDocumentsFolder(const std::filesystem::path& folder) {
  const std::wstring& path = folder.native();
  RegSetKeyValueW(HKEY_CURRENT_USER,
                  L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders", L"Personal",
                  REG_EXPAND_SZ, path.c_str(), static_cast<DWORD>((path.size() + 1) * sizeof(wchar_t)));
}

namespace {

PROCESS_MEMORY_COUNTERS_EX memoryCounters() {
  PROCESS_MEMORY_COUNTERS_EX memory{};
  GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&memory),
                       sizeof memory);
  return memory;
}

} // namespace

test::Holdings test::holdings() {
  DWORD handles = 0;
  GetProcessHandleCount(GetCurrentProcess(), &handles);
  return {handles, memoryCounters().PrivateUsage};
}

std::size_t test::peakMemory(const std::function<void()>& call) {
  const PROCESS_MEMORY_COUNTERS_EX before = memoryCounters();
  call();
  const std::size_t height = memoryCounters().PeakWorkingSetSize;
  return height > before.PeakWorkingSetSize ? height - before.WorkingSetSize : 0;
}
