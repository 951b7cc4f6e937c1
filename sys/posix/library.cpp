#include "sys/library.h"
#include "sys/folders.h"
#include <dlfcn.h>
#include <filesystem>
#include <link.h>

namespace sys {

namespace {

constexpr std::string_view kSuffix = ".so";

std::string lowerAscii(std::string text) {
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return text;
}

bool isBareName(std::string_view name) { return name.find('/') == std::string_view::npos; }

const link_map* mapOf(const void* symbol) {
  Dl_info info;
  void* map = nullptr;
  if (!symbol || dladdr1(symbol, &info, &map, RTLD_DL_LINKMAP) == 0) return nullptr;
  return static_cast<const link_map*>(map);
}

} // namespace

std::string libraryFileName(std::string_view name) {
  const std::filesystem::path path(name);
  const std::string extension = lowerAscii(path.extension().string());
  if (extension == kSuffix) return std::string(name);
  if (extension == ".dll") return std::string(name.substr(0, name.size() - extension.size())).append(kSuffix);
  return std::string(name).append(kSuffix);
}

Library loadLibrary(std::string_view nameOrPath, std::string& error) {
  std::string file = libraryFileName(nameOrPath);
  if (isBareName(file)) {
    const std::filesystem::path beside = programFolder() / file;
    std::error_code ignored;
    if (std::filesystem::exists(beside, ignored)) file = beside.string();
  }
  Library library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!library) {
    const char* reason = dlerror();
    error = reason ? reason : "cannot load " + file;
  }
  return library;
}

namespace {

/// Looks through the loaded libraries for one whose path, or file name when a bare one is asked for, is this.
struct Search {
  std::string file;
  std::string path;

  static int look(dl_phdr_info* info, std::size_t, void* data) {
    auto& search = *static_cast<Search*>(data);
    const std::string_view path = info->dlpi_name;
    const std::string_view name = isBareName(search.file) ? path.substr(path.rfind('/') + 1) : path;
    if (name != search.file) return 0;
    search.path = path;
    return 1;
  }
};

} // namespace

Library findLoadedLibrary(std::string_view nameOrPath) {
  // dlopen alone would find a library by name only where its search path leads to the same file.
  Search search{libraryFileName(nameOrPath), {}};
  if (!dl_iterate_phdr(&Search::look, &search)) return nullptr;
  Library library = dlopen(search.path.c_str(), RTLD_NOW | RTLD_NOLOAD);
  // The look-up counted as one more load; the library stays, because somebody else holds it.
  freeLibrary(library);
  return library;
}

Library libraryHolding(const void* address) {
  const link_map* map = mapOf(address);
  if (!map) return nullptr;
  Library library = dlopen(*map->l_name ? map->l_name : nullptr, RTLD_NOW | RTLD_NOLOAD);
  freeLibrary(library);
  return library;
}

void* librarySymbol(Library library, const char* name) {
  // The system searches the libraries that this one was linked with too, so the place of the find is checked.
  link_map* own = nullptr;
  if (!library || dlinfo(library, RTLD_DI_LINKMAP, &own) != 0) return nullptr;
  void* symbol = dlsym(library, name);
  return mapOf(symbol) == own ? symbol : nullptr;
}

void* programSymbol(const char* name) {
  Library program = dlopen(nullptr, RTLD_NOW);
  void* symbol = librarySymbol(program, name);
  freeLibrary(program);
  return symbol;
}

void freeLibrary(Library library) {
  if (library) dlclose(library);
}

} // namespace sys
