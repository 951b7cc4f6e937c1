#include "sys/library.h"
#include "sys/files.h"
#include "sys/folders.h"
#include "sys/windows/system.h"

namespace fs = std::filesystem;

namespace sys {

namespace {

HMODULE moduleOf(Library library) { return static_cast<HMODULE>(library); }

} // namespace

std::string libraryFileName(std::string_view name) {
  const bool hasExtension = pathNamed(name).has_extension();
  return std::string(name) + (hasExtension ? "" : ".dll");
}

Library loadLibrary(std::string_view nameOrPath, std::string& error) {
  fs::path file = pathNamed(libraryFileName(nameOrPath));
  DWORD search = LOAD_LIBRARY_SEARCH_DEFAULT_DIRS;
  std::error_code ignored;
  if (!file.has_parent_path() && fs::exists(programFolder() / file, ignored)) file = programFolder() / file;
  if (file.has_parent_path()) {
    file = fs::absolute(file, ignored);
    search |= LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR;
  }
  const HMODULE library = LoadLibraryExW(file.make_preferred().c_str(), nullptr, search);
  if (!library) error = shownPath(file) + ": " + reasonOf(GetLastError());
  return library;
}

Library findLoadedLibrary(std::string_view nameOrPath) {
  return GetModuleHandleW(pathNamed(libraryFileName(nameOrPath)).make_preferred().c_str());
}

Library libraryHolding(const void* address) {
  HMODULE library = nullptr;
  constexpr DWORD kFlags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  return GetModuleHandleExW(kFlags, static_cast<const wchar_t*>(address), &library) ? library : nullptr;
}

void* librarySymbol(Library library, const char* name) {
  return library ? reinterpret_cast<void*>(GetProcAddress(moduleOf(library), name)) : nullptr;
}

void* programSymbol(const char* name) { return librarySymbol(GetModuleHandleW(nullptr), name); }

void freeLibrary(Library library) {
  if (library) FreeLibrary(moduleOf(library));
}

} // namespace sys
