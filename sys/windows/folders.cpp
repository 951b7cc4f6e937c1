#include "sys/folders.h"
#include "sys/windows/system.h"
#include <knownfolders.h>
#include <memory>
#include <shlobj.h>

namespace fs = std::filesystem;

namespace sys {

namespace {

constexpr char kOwnFolder[] = "hbhost";

fs::path knownFolder(REFKNOWNFOLDERID id) {
  wchar_t* text = nullptr;
  const bool isKnown = SUCCEEDED(SHGetKnownFolderPath(id, KF_FLAG_DONT_VERIFY, nullptr, &text));
  const std::unique_ptr<wchar_t, decltype(&CoTaskMemFree)> owner(text, &CoTaskMemFree);
  return isKnown ? fs::path(text) : fs::path();
}

fs::path ownFolder(const fs::path& parent) { return parent.empty() ? parent : parent / kOwnFolder; }

} // namespace

fs::path configFolder() { return ownFolder(knownFolder(FOLDERID_RoamingAppData)); }

fs::path stateFolder() { return ownFolder(knownFolder(FOLDERID_LocalAppData)); }

fs::path documentsFolder() {
  fs::path documents = knownFolder(FOLDERID_Documents);
  std::error_code ignored;
  return fs::is_directory(documents, ignored) ? documents : fs::path();
}

fs::path programFolder() {
  constexpr DWORD kLongestPath = 32768;
  std::wstring program(kLongestPath, L'\0');
  const DWORD length = GetModuleFileNameW(nullptr, program.data(), kLongestPath);
  program.resize(length);
  return fs::path(program).parent_path();
}

fs::path environmentPath(const char* variable) {
  const std::wstring name(variable, variable + std::string_view(variable).size());
  const DWORD size = GetEnvironmentVariableW(name.c_str(), nullptr, 0);
  if (size == 0) return {};
  std::wstring value(size, L'\0');
  value.resize(GetEnvironmentVariableW(name.c_str(), value.data(), size));
  return value;
}

} // namespace sys
