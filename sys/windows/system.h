#pragma once
// The system's own header without its macros, and what the files of this folder share.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
#undef ERROR
#include <string>
#include <string_view>

namespace sys {

/// UTF-8 of the system's text; surrogates without a partner are written like any other code point.
std::string utf8(std::wstring_view text);

/// The sentence that tells this error number of the system, worded as on the other systems where they know
/// it.
std::string reasonOf(DWORD error);

/// A handle that closes itself.
class Handle {
public:
  explicit Handle(HANDLE handle) : m_handle(handle) {}
  ~Handle() {
    if (isOpen()) CloseHandle(m_handle);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  bool isOpen() const { return m_handle && m_handle != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return m_handle; }

private:
  HANDLE m_handle;
};

} // namespace sys
