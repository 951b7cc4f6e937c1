#pragma once
#include <windows.h>

namespace ui::win32 {

/// While it lives, new windows of this thread get the generation of common controls that the module's
/// manifest asks for. Where the system has none, its older controls stay.
class VisualStyles {
public:
  VisualStyles();
  ~VisualStyles();
  VisualStyles(const VisualStyles&) = delete;
  VisualStyles& operator=(const VisualStyles&) = delete;

private:
  HANDLE m_context;
  ULONG_PTR m_cookie = 0;
  bool m_active = false;
};

} // namespace ui::win32
