#include "res/module_resources.h"
#include <windows.h>

namespace {

/// The module, or the program, that this code was linked into.
HMODULE ownModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(&ownModule), &module);
  return module;
}

} // namespace

std::optional<std::span<const std::uint8_t>> res::moduleResource(ResourceType type, unsigned number) {
  const HMODULE module = ownModule();
  const HRSRC found = number < 0x10000 ? FindResourceW(module, MAKEINTRESOURCEW(number),
                                                       MAKEINTRESOURCEW(static_cast<unsigned>(type)))
                                       : nullptr;
  const void* bytes = found ? LockResource(LoadResource(module, found)) : nullptr;
  if (!bytes) return std::nullopt;
  return std::span(static_cast<const std::uint8_t*>(bytes), SizeofResource(module, found));
}
