#pragma once
#include <exception>
#include <functional>
#include <windows.h>

namespace ui::win32 {

/// Works a modal window of the system's, a message box or a file dialog, in place of a person: waits until
/// one stands over `owner`, then calls `answer` with it, once, from inside the window's own message loop. To
/// be made before the window is opened.
class StandIn {
public:
  StandIn(HWND owner, std::function<void(HWND box)> answer);
  ~StandIn();
  StandIn(const StandIn&) = delete;
  StandIn& operator=(const StandIn&) = delete;

  /// To be called when the window has closed: throws what `answer` threw. A window whose answer threw, or had
  /// no effect for some seconds, was dismissed.
  void rethrow() const;
  bool wasDismissed() const { return m_dismissed; }

private:
  static void CALLBACK tick(HWND owner, UINT message, UINT_PTR self, DWORD time);
  void look();

  HWND m_owner;
  std::function<void(HWND)> m_answer;
  std::exception_ptr m_error;
  int m_ticksAfterAnswer = -1;
  bool m_dismissed = false;
};

/// Presses the button of that number; false when the window has none.
bool pressButton(HWND box, int id);

} // namespace ui::win32
