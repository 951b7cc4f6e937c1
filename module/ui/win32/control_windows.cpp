#include "control_windows.h"
#include "ui/control_kind.h"
#include <algorithm>

namespace ui::win32 {

OdString windowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
  text.resize(
      static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1)));
  return OdString(std::move(text));
}

OdString ControlWindow::text() const {
  if (fields) return fields->text().text();
  return items && items->selection() >= 0 ? items->text(items->selection()) : windowText(window);
}

ControlWindows::ControlWindows(const res::DialogTemplate& source, unsigned number) : m_number(number) {
  for (const res::ControlTemplate& from : source.controls) {
    ControlWindow& control = m_controls.emplace_back();
    control.id = static_cast<int>(from.id);
    control.kind = kindOf(number, from);
    control.isDefault = control.kind == ControlKind::button && (from.style & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
    control.startsGroup = (from.style & WS_GROUP) != 0;
    control.editable = isEditable(from, control.kind);
    control.place = from.rect;
  }
}

/// A dialog's windows are made in the order of the template.
void ControlWindows::bind(HWND dialog) {
  HWND window = GetWindow(dialog, GW_CHILD);
  for (ControlWindow& control : m_controls) {
    control.window = window;
    window = GetWindow(window, GW_HWNDNEXT);
    if (holdsItems(control.kind)) control.items = std::make_unique<ItemWindow>(control.window, control.kind);
    if (control.kind == ControlKind::listView) control.rows = std::make_unique<ListWindow>(control.window);
    if (control.kind == ControlKind::richEdit) control.fields = std::make_unique<FieldWindow>(control.window);
  }
}

ControlWindow* ControlWindows::find(int id) {
  const auto found = std::ranges::find(m_controls, id, &ControlWindow::id);
  return found == m_controls.end() ? nullptr : &*found;
}

ControlWindow* ControlWindows::holding(HWND window) {
  const auto found = std::ranges::find_if(
      m_controls, [&](const ControlWindow& c) { return c.window == window || IsChild(c.window, window); });
  return window && found != m_controls.end() ? &*found : nullptr;
}

ControlWindow& ControlWindows::at(int id) {
  if (ControlWindow* control = find(id)) return *control;
  refuseControl(m_number, static_cast<unsigned>(id), "there is no such control");
}

const ControlWindow* ControlWindows::defaultButton() const {
  const auto found = std::ranges::find(m_controls, true, &ControlWindow::isDefault);
  return found == m_controls.end() ? nullptr : &*found;
}

void ControlWindows::noteChecked(ControlWindow& radioButton, bool alsoInWindows) {
  const auto index = static_cast<std::size_t>(&radioButton - m_controls.data());
  std::size_t begin = index, end = index + 1;
  while (begin > 0 && !m_controls[begin].startsGroup) --begin;
  while (end < m_controls.size() && !m_controls[end].startsGroup) ++end;
  for (std::size_t i = begin; i < end; ++i) {
    ControlWindow& other = m_controls[i];
    if (other.kind != ControlKind::radioButton || i == index) continue;
    other.wasChecked = false;
    if (alsoInWindows) SendMessageW(other.window, BM_SETCHECK, BST_UNCHECKED, 0);
  }
  radioButton.wasChecked = true;
}

void ControlWindows::check(ControlWindow& control, bool on) {
  if (control.kind == ControlKind::radioButton) {
    if (on)
      noteChecked(control, true);
    else
      control.wasChecked = false;
  }
  SendMessageW(control.window, BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED, 0);
}

bool ControlWindows::takeClick(ControlWindow& radioButton) {
  if (radioButton.wasChecked) return false;
  noteChecked(radioButton, false);
  return true;
}

} // namespace ui::win32
