#include "win32_face.h"
#include "res/strings.h"
#include "system_boxes.h"
#include "ui/control_kind.h"
#include "ui/questions.h"
#include "visual_styles.h"
#include <algorithm>
#include <commctrl.h>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace ui::win32 {
namespace {

/// So that a radio button does not press itself when it merely gets the focus; older headers lack the name.
constexpr UINT setDontClick = 0x00F8;

class Flag {
public:
  explicit Flag(bool& flag) : m_flag(flag), m_before(std::exchange(flag, true)) {}
  ~Flag() { m_flag = m_before; }
  Flag(const Flag&) = delete;
  Flag& operator=(const Flag&) = delete;

private:
  bool& m_flag;
  bool m_before;
};

bool isClickable(ControlKind kind) {
  return kind == ControlKind::button || kind == ControlKind::checkBox || kind == ControlKind::radioButton;
}

} // namespace

Win32Face::Win32Face(unsigned number, std::span<const std::uint8_t> source, DialogEvents& events,
                     DialogUser* user)
    : WorkedDialog(number), m_source(source), m_events(events), m_user(user),
      m_template(res::parseDialog(source, number)), m_controls(m_template, number) {}

int Win32Face::run() {
  const VisualStyles styles;
  const auto* source = reinterpret_cast<const DLGTEMPLATE*>(m_source.data());
  SetLastError(ERROR_SUCCESS);
  DialogBoxIndirectParamW(GetModuleHandleW(nullptr), source, GetActiveWindow(), &dialogProcedure,
                          reinterpret_cast<LPARAM>(this));
  const DWORD error = GetLastError();
  if (m_error) std::rethrow_exception(m_error);
  if (!m_window)
    throw DialogError(
        OdString().format(res::loadString(IDS_WINDOW_NOT_MADE), m_template.caption.c_str(), unsigned(error)));
  // The program may be ending, which closes its windows without asking them.
  return hasEnded() ? m_result : static_cast<int>(MessageAnswer::cancel);
}

void Win32Face::end(int code) {
  m_result = code;
  if (hasEnded()) return;
  markEnded();
  tellLeft(std::exchange(m_focus, 0));
  EndDialog(m_window, 0);
}

template <class Action>
void Win32Face::guarded(Action action) {
  try {
    action();
  } catch (...) {
    if (!m_error) m_error = std::current_exception();
    markEnded();
    m_focus = 0;
    EndDialog(m_window, 0);
  }
}

void Win32Face::rethrow() const {
  if (m_error) std::rethrow_exception(m_error);
}

INT_PTR CALLBACK Win32Face::dialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(window, DWLP_USER, lParam);
    reinterpret_cast<Win32Face*>(lParam)->m_window = window;
  }
  auto* const face = reinterpret_cast<Win32Face*>(GetWindowLongPtrW(window, DWLP_USER));
  INT_PTR handled = FALSE;
  if (face) face->guarded([&] { handled = face->handle(message, wParam, lParam); });
  return handled;
}

INT_PTR Win32Face::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
  case WM_INITDIALOG: return initialise(), FALSE;
  case WM_COMMAND: return command(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam)), TRUE;
  case WM_HELP:
    if (!hasEnded()) m_events.onHelp();
    return TRUE;
  case turnMessage: return takeTurn(wParam != 0), TRUE;
  default: return FALSE;
  }
}

void Win32Face::initialise() {
  m_controls.bind(m_window);
  for (const ControlWindow& control : m_controls.all()) {
    SetWindowSubclass(control.window, &controlProcedure, 0, reinterpret_cast<DWORD_PTR>(this));
    if (control.kind == ControlKind::radioButton) SendMessageW(control.window, setDontClick, TRUE, 0);
  }
  m_events.onOpen();
  m_events.onInit();
  if (hasEnded()) return;
  if (m_focus == 0) setFocus(nextTabStop());
  if (m_user) PostMessageW(m_window, turnMessage, TRUE, 0); // the first turn
}

LRESULT CALLBACK Win32Face::controlProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                             UINT_PTR subclass, DWORD_PTR self) {
  auto& face = *reinterpret_cast<Win32Face*>(self);
  switch (message) {
  case WM_NCDESTROY: RemoveWindowSubclass(window, &controlProcedure, subclass); break;
  case WM_SETFOCUS: {
    const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
    face.guarded([&] { face.focusArrived(window); });
    return result;
  }
  case WM_LBUTTONUP: {
    // A press is lost when the control that it took the focus from has taken it back.
    const ControlWindow* control = face.m_controls.holding(window);
    if (control && isClickable(control->kind) && control->id != face.m_focus)
      return DefSubclassProc(window, message, wParam, MAKELPARAM(-1, -1));
    break;
  }
  default: break;
  }
  return DefSubclassProc(window, message, wParam, lParam);
}

void Win32Face::command(int id, unsigned notice, HWND sender) {
  if (hasEnded() || m_silent) return;
  // The keys Enter and Esc have no sender in a dialog without such buttons.
  if (!sender) return reportPress(m_events, id);
  if (const ControlWindow* control = m_controls.holding(sender)) noticeFrom(*control, notice);
}

void Win32Face::noticeFrom(const ControlWindow& control, unsigned notice) {
  switch (control.kind) {
  case ControlKind::button:
  case ControlKind::checkBox:
  case ControlKind::radioButton:
    if (notice == BN_CLICKED) reportPress(m_events, control.id);
    return;
  case ControlKind::edit:
    if (notice == EN_CHANGE) m_events.onChange(control.id);
    return;
  case ControlKind::comboBox:
    if (notice == CBN_SETFOCUS) focusArrived(control.window);
    if (notice == CBN_SELCHANGE || notice == CBN_EDITCHANGE) m_events.onChange(control.id);
    return;
  case ControlKind::listBox:
    if (notice == LBN_SELCHANGE) m_events.onChange(control.id);
    return;
  case ControlKind::staticText:
  case ControlKind::group: return;
  }
}

void Win32Face::focusArrived(HWND window) {
  const ControlWindow* control = m_controls.holding(window);
  if (hasEnded() || !control || control->id == m_focus) return;
  tellLeft(std::exchange(m_focus, control->id));
}

void Win32Face::tellLeft(int id) {
  const ControlWindow* control = m_controls.find(id);
  if (control && tellsLeave(control->kind)) m_events.onLeave(id);
}

OdString Win32Face::titleText() const { return m_window ? windowText(m_window) : m_template.caption; }

void Win32Face::setTitle(const OdString& title) { SetWindowTextW(m_window, title.c_str()); }

void Win32Face::setText(int id, const OdString& text) {
  const Flag silence(m_silent);
  SetWindowTextW(m_controls.at(id).window, text.c_str());
}

void Win32Face::select(int id, int index) {
  const ControlWindow& list = m_controls.listAt(id);
  if (index >= list.itemCount()) throw std::out_of_range("item " + std::to_string(index));
  list.select(std::max(index, -1));
}

/// The focus would stay on a control that cannot be used, and the keyboard be dead.
void Win32Face::passFocusOn(HWND control) {
  if (m_focus && m_controls.at(m_focus).window == control) setFocus(nextTabStop());
}

void Win32Face::enable(int id, bool on) {
  HWND const control = m_controls.at(id).window;
  if (!on) passFocusOn(control);
  EnableWindow(control, on);
}

void Win32Face::show(int id, bool on) {
  HWND const control = m_controls.at(id).window;
  if (!on) passFocusOn(control);
  ShowWindow(control, on ? SW_SHOW : SW_HIDE);
}

void Win32Face::setFocus(int id) {
  const ControlWindow* control = id ? &m_controls.at(id) : nullptr;
  if (control && !hasEnded())
    SendMessageW(m_window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control->window), TRUE);
  rethrow();
}

Placement Win32Face::placement() const {
  static_assert(sizeof(WINDOWPLACEMENT) == sizeof(Placement));
  WINDOWPLACEMENT native{};
  native.length = sizeof native;
  GetWindowPlacement(m_window, &native);
  Placement placement;
  std::memcpy(placement.data(), &native, sizeof native);
  return placement;
}

void Win32Face::setPlacement(const Placement& placement) {
  WINDOWPLACEMENT native{};
  std::memcpy(&native, placement.data(), sizeof native);
  SetWindowPlacement(m_window, &native);
}

MessageAnswer Win32Face::messageBox(const MessageQuestion& question) {
  return showMessage(m_window, m_user, titleText(), question);
}

std::optional<OdString> Win32Face::askFile(const FileRequest& request) {
  return showFileDialog(m_window, m_user, titleText(), request);
}

} // namespace ui::win32
