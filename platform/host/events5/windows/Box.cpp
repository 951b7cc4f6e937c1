#include "events5/Box.h"
#include <windows.h>

/// The numbers of styles and buttons are the system's.
std::optional<int> host::showBox(void* window, const wchar_t* text, const wchar_t* caption,
                                 unsigned int style) {
  const int button = MessageBoxW(static_cast<HWND>(window), text, caption, style);
  return button ? std::optional(button) : std::nullopt;
}
