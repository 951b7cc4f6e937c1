#include "control_windows.h"
#include "ui/control_kind.h"
#include <algorithm>
#include <stdexcept>

namespace ui::win32 {
namespace {

/// The messages by which combo boxes and lists do the same things.
struct ListMessages {
  UINT count, selection, select, add, removeAll, length, text;
};

constexpr ListMessages comboMessages{CB_GETCOUNT,     CB_GETCURSEL,    CB_SETCURSEL, CB_ADDSTRING,
                                     CB_RESETCONTENT, CB_GETLBTEXTLEN, CB_GETLBTEXT};
constexpr ListMessages listMessages{LB_GETCOUNT,     LB_GETCURSEL,  LB_SETCURSEL, LB_ADDSTRING,
                                    LB_RESETCONTENT, LB_GETTEXTLEN, LB_GETTEXT};

const ListMessages& messagesOf(const ControlWindow& control) {
  return control.kind == ControlKind::comboBox ? comboMessages : listMessages;
}

int send(const ControlWindow& control, UINT ListMessages::*message, WPARAM wParam = 0, LPARAM lParam = 0) {
  return static_cast<int>(SendMessageW(control.window, messagesOf(control).*message, wParam, lParam));
}

LPARAM toParameter(const OdChar* text) { return reinterpret_cast<LPARAM>(text); }

} // namespace

OdString windowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
  text.resize(
      static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1)));
  return OdString(std::move(text));
}

OdString ControlWindow::text() const {
  return holdsItems(kind) && selection() >= 0 ? itemText(selection()) : windowText(window);
}

int ControlWindow::itemCount() const { return send(*this, &ListMessages::count); }

int ControlWindow::selection() const { return send(*this, &ListMessages::selection); }

void ControlWindow::select(int index) const {
  send(*this, &ListMessages::select, static_cast<WPARAM>(index));
}

int ControlWindow::addItem(const OdString& text) const {
  return send(*this, &ListMessages::add, 0, toParameter(text.c_str()));
}

void ControlWindow::removeItems() const { send(*this, &ListMessages::removeAll); }

OdString ControlWindow::itemText(int index) const {
  const int length = send(*this, &ListMessages::length, static_cast<WPARAM>(index));
  if (index < 0 || length < 0) throw std::out_of_range("item " + std::to_string(index));
  std::wstring text(static_cast<std::size_t>(length), L'\0');
  send(*this, &ListMessages::text, static_cast<WPARAM>(index), toParameter(text.data()));
  return OdString(std::move(text));
}

ControlWindows::ControlWindows(const res::DialogTemplate& source, unsigned number) : m_number(number) {
  for (const res::ControlTemplate& control : source.controls) {
    const ControlKind kind = kindOf(number, control);
    const bool isDefault = kind == ControlKind::button && (control.style & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
    m_controls.push_back({static_cast<int>(control.id), kind, isDefault, (control.style & WS_GROUP) != 0,
                          control.rect, nullptr});
  }
}

/// A dialog's windows are made in the order of the template.
void ControlWindows::bind(HWND dialog) {
  HWND window = GetWindow(dialog, GW_CHILD);
  for (ControlWindow& control : m_controls) {
    control.window = window;
    window = GetWindow(window, GW_HWNDNEXT);
  }
}

const ControlWindow* ControlWindows::find(int id) const {
  const auto found = std::ranges::find(m_controls, id, &ControlWindow::id);
  return found == m_controls.end() ? nullptr : &*found;
}

const ControlWindow* ControlWindows::holding(HWND window) const {
  const auto found = std::ranges::find_if(
      m_controls, [&](const ControlWindow& c) { return c.window == window || IsChild(c.window, window); });
  return window && found != m_controls.end() ? &*found : nullptr;
}

const ControlWindow& ControlWindows::at(int id) const {
  if (const ControlWindow* control = find(id)) return *control;
  refuseControl(m_number, static_cast<unsigned>(id), "there is no such control");
}

const ControlWindow& ControlWindows::listAt(int id) const {
  const ControlWindow& control = at(id);
  if (!holdsItems(control.kind)) refuseControl(m_number, static_cast<unsigned>(id), "it holds no items");
  return control;
}

const ControlWindow* ControlWindows::defaultButton() const {
  const auto found = std::ranges::find(m_controls, true, &ControlWindow::isDefault);
  return found == m_controls.end() ? nullptr : &*found;
}

void ControlWindows::check(const ControlWindow& control, bool on) const {
  const auto set = [](const ControlWindow& c, bool checked) {
    SendMessageW(c.window, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
  };
  if (on && control.kind == ControlKind::radioButton) {
    const auto index = static_cast<std::size_t>(&control - m_controls.data());
    std::size_t begin = index, end = index + 1;
    while (begin > 0 && !m_controls[begin].startsGroup) --begin;
    while (end < m_controls.size() && !m_controls[end].startsGroup) ++end;
    for (std::size_t i = begin; i < end; ++i)
      if (m_controls[i].kind == ControlKind::radioButton && i != index) set(m_controls[i], false);
  }
  set(control, on);
}

} // namespace ui::win32
