#include "stand_in.h"
#include <utility>

namespace ui::win32 {
namespace {

constexpr UINT tickMilliseconds = USER_TIMER_MINIMUM;
constexpr int mostTicksAfterAnswer = 300;

struct Search {
  HWND owner;
  HWND found;

  static BOOL CALLBACK look(HWND window, LPARAM data) {
    auto& search = *reinterpret_cast<Search*>(data);
    if (GetWindow(window, GW_OWNER) != search.owner || !IsWindowVisible(window) || !IsWindowEnabled(window))
      return TRUE;
    search.found = window;
    return FALSE;
  }
};

/// The window that keeps `owner` from being used, or null.
HWND windowOver(HWND owner) {
  Search search{owner, nullptr};
  EnumThreadWindows(GetCurrentThreadId(), &Search::look, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

void dismiss(HWND box) {
  if (HWND over = windowOver(box)) dismiss(over);
  for (const int id : {IDCANCEL, IDNO, IDOK})
    if (pressButton(box, id)) return;
}

} // namespace

bool pressButton(HWND box, int id) {
  HWND button = GetDlgItem(box, id);
  if (!button || !IsWindowEnabled(button)) return false;
  PostMessageW(box, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
  return true;
}

StandIn::StandIn(HWND owner, std::function<void(HWND)> answer) : m_owner(owner), m_answer(std::move(answer)) {
  SetTimer(m_owner, reinterpret_cast<UINT_PTR>(this), tickMilliseconds, &StandIn::tick);
}

StandIn::~StandIn() { KillTimer(m_owner, reinterpret_cast<UINT_PTR>(this)); }

void StandIn::rethrow() const {
  if (m_error) std::rethrow_exception(m_error);
}

void CALLBACK StandIn::tick(HWND, UINT, UINT_PTR self, DWORD) { reinterpret_cast<StandIn*>(self)->look(); }

void StandIn::look() {
  HWND box = windowOver(m_owner);
  if (!box) return;
  if (m_answer) {
    const std::function<void(HWND)> answer = std::exchange(m_answer, nullptr);
    try {
      answer(box);
    } catch (...) {
      m_error = std::current_exception();
      m_ticksAfterAnswer = mostTicksAfterAnswer;
    }
  }
  if (++m_ticksAfterAnswer < mostTicksAfterAnswer) return;
  m_dismissed = true;
  dismiss(box);
}

} // namespace ui::win32
