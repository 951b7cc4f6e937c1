// The side of the Windows face that its user works: what can be seen of the controls, and the moves.
#include "ui/control_kind.h"
#include "win32_face.h"

namespace ui::win32 {

/// Posted again and again, so that the window's own messages come between the turns.
void Win32Face::takeTurn(bool isFirst) {
  if (hasEnded()) return;
  if (isFirst) m_user->opened(*this);
  RedrawWindow(m_window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  giveTurn(*m_user, titleText());
  if (!hasEnded()) PostMessageW(m_window, turnMessage, 0, 0);
}

const wchar_t* Win32Face::title() const {
  m_said = titleText();
  return m_said.c_str();
}

ControlInfo Win32Face::describe(const ControlWindow& control) const {
  m_said = control.text();
  const res::Rect& place = control.place;
  const bool list = holdsItems(control.kind);
  return {control.id,
          control.kind,
          m_said.c_str(),
          !control.hasStyle(WS_DISABLED),
          control.hasStyle(WS_VISIBLE),
          control.isChecked(),
          control.isDefault,
          list ? control.itemCount() : 0,
          list ? control.selection() : -1,
          {place.x, place.y, place.width, place.height}};
}

bool Win32Face::controlAt(int index, ControlInfo& info) const {
  if (index < 0 || index >= controlCount()) return false;
  info = describe(m_controls.all()[static_cast<std::size_t>(index)]);
  return true;
}

bool Win32Face::control(int id, ControlInfo& info) const {
  const ControlWindow* found = m_controls.find(id);
  if (found) info = describe(*found);
  return found != nullptr;
}

const wchar_t* Win32Face::item(int id, int index) const {
  const ControlWindow* found = m_controls.find(id);
  if (!found || !holdsItems(found->kind) || index < 0 || index >= found->itemCount()) return nullptr;
  m_said = found->itemText(index);
  return m_said.c_str();
}

void Win32Face::moveTo(int id) { setFocus(id); }

void Win32Face::replaceText(int id, const OdString& text) {
  HWND const edit = m_controls.at(id).window;
  SendMessageW(edit, EM_SETSEL, 0, -1);
  SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
  rethrow();
}

void Win32Face::clickOn(int id) {
  HWND const button = m_controls.at(id).window;
  RECT area;
  GetClientRect(button, &area);
  const LPARAM middle = MAKELPARAM(area.right / 2, area.bottom / 2);
  SendMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, middle);
  SendMessageW(button, WM_LBUTTONUP, 0, middle);
  rethrow();
}

/// Combo boxes and lists send no notice for a message, so it is sent in their place.
void Win32Face::chooseItem(int id, int item) {
  const ControlWindow& list = m_controls.at(id);
  list.select(item);
  const int notice = list.kind == ControlKind::comboBox ? CBN_SELCHANGE : LBN_SELCHANGE;
  SendMessageW(m_window, WM_COMMAND, MAKEWPARAM(id, notice), reinterpret_cast<LPARAM>(list.window));
  rethrow();
}

void Win32Face::strike(Key key) {
  const ControlWindow* focused = m_controls.find(m_focus);
  HWND const target = focused ? focused->window : m_window;
  if (key == Key::help) {
    HELPINFO info{};
    info.cbSize = sizeof info;
    info.iContextType = HELPINFO_WINDOW;
    info.iCtrlId = m_focus;
    info.hItemHandle = target;
    SendMessageW(target, WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
  } else {
    MSG message{};
    message.hwnd = target;
    message.message = WM_KEYDOWN;
    message.wParam = key == Key::enter ? VK_RETURN : VK_ESCAPE;
    IsDialogMessageW(m_window, &message);
  }
  rethrow();
}

int Win32Face::nextTabStop() const {
  const ControlWindow* focused = m_controls.find(m_focus);
  HWND const next = GetNextDlgTabItem(m_window, focused ? focused->window : nullptr, FALSE);
  const ControlWindow* control = m_controls.holding(next);
  return control ? control->id : 0;
}

int Win32Face::defaultButton() const {
  const ControlWindow* button = m_controls.defaultButton();
  return button ? button->id : 0;
}

} // namespace ui::win32
