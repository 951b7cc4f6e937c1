// The side of the Windows face that its user works: what can be seen of the controls, and the moves.
#include "ui/control_kind.h"
#include "win32_face.h"
#include <algorithm>
#include <commctrl.h>

namespace ui::win32 {

/// Posted again and again, so that the window's own messages come between the turns.
void Win32Face::takeTurn(bool isFirst) {
  if (hasEnded()) return;
  if (isFirst) m_user->opened(*this);
  RedrawWindow(m_frame.window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  giveTurn(*m_user, titleText());
  if (!hasEnded()) PostMessageW(m_frame.window(), turnMessage, 0, 0);
}

std::vector<Win32Face::Place> Win32Face::places() const {
  std::vector<Place> result;
  for (ControlWindow& control : m_frame.controls().all()) {
    result.push_back({&m_frame, &control});
    const OpenPage* page = control.id == m_tabs && control.hasStyle(WS_VISIBLE) ? openPage() : nullptr;
    if (!page) continue;
    for (ControlWindow& onPage : page->form->controls().all()) result.push_back({page->form.get(), &onPage});
  }
  return result;
}

Win32Face::Place Win32Face::find(int id) const {
  if (ControlWindow* control = m_frame.controls().find(id)) return {&m_frame, control};
  const OpenPage* page = openPage();
  return page ? Place{page->form.get(), page->form->controls().find(id)} : Place{};
}

Win32Face::Place Win32Face::holding(HWND window) const {
  if (ControlWindow* control = m_frame.controls().holding(window)) return {&m_frame, control};
  for (const OpenPage& page : m_pages)
    if (ControlWindow* control = page.form->controls().holding(window)) return {page.form.get(), control};
  return {};
}

const wchar_t* Win32Face::say(OdString text) const {
  m_said = std::move(text);
  return m_said.c_str();
}

const wchar_t* Win32Face::title() const { return say(titleText()); }

ControlInfo Win32Face::describe(const ControlWindow& control) const {
  ControlInfo info{};
  info.id = control.id;
  info.kind = control.kind;
  info.text = say(control.text());
  info.tip = control.tip.c_str();
  info.enabled = !control.hasStyle(WS_DISABLED);
  info.shown = control.hasStyle(WS_VISIBLE);
  info.checked = control.isChecked();
  info.isDefault = control.isDefault;
  info.editable = control.editable;
  info.selectedItem = -1;
  info.place = {control.place.x, control.place.y, control.place.width, control.place.height};
  if (control.items) {
    info.itemCount = control.items->count();
    info.selectedItem = control.items->selection();
  } else if (control.rows) {
    info.itemCount = control.rows->rowCount();
    info.selectedItem = control.rows->selection();
    info.columnCount = control.rows->columnCount();
  } else if (control.kind == ControlKind::tabs) {
    info.itemCount = static_cast<int>(m_pages.size());
    info.selectedItem = m_activePage;
  } else if (control.fields) {
    info.fieldCount = static_cast<int>(control.fields->text().fields().size());
  }
  return info;
}

bool Win32Face::controlAt(int index, ControlInfo& info) const {
  const std::vector<Place> all = places();
  if (index < 0 || index >= static_cast<int>(all.size())) return false;
  const Place& place = all[static_cast<std::size_t>(index)];
  info = describe(*place.control);
  if (place.form != &m_frame) info.place = onTabs(info.place, m_frame.controls().at(m_tabs).place);
  return true;
}

bool Win32Face::control(int id, ControlInfo& info) const {
  const ControlWindow* found = find(id).control;
  if (found) info = describe(*found);
  return found != nullptr;
}

const wchar_t* Win32Face::item(int id, int index) const {
  const ControlWindow* found = find(id).control;
  if (!found || index < 0) return nullptr;
  if (found->rows) return cell(id, index, 0);
  if (found->items) return index < found->items->count() ? say(found->items->text(index)) : nullptr;
  const bool isPage = found->kind == ControlKind::tabs && index < static_cast<int>(m_pages.size());
  return isPage ? m_pages[static_cast<std::size_t>(index)].title.c_str() : nullptr;
}

int Win32Face::swatch(int id, int index) const {
  const ControlWindow* found = find(id).control;
  if (!found || !found->items || index < 0 || index >= found->items->count()) return -1;
  const std::optional<Color> color = found->items->swatch(index);
  return color ? static_cast<int>(*color) : -1;
}

const wchar_t* Win32Face::cell(int id, int row, int column) const {
  const ControlWindow* found = find(id).control;
  if (!found || !found->rows) return nullptr;
  const ListWindow& rows = *found->rows;
  if (row < -1 || row >= rows.rowCount() || column < 0 || column >= rows.columnCount()) return nullptr;
  return say(row < 0 ? rows.columnTitle(column) : rows.text(row, column));
}

RowLook Win32Face::rowLook(int id, int row) const {
  return cell(id, row, 0) && row >= 0 ? find(id).form->events().rowLook(id, row) : RowLook{};
}

TextRange Win32Face::field(int id, int index) const {
  const ControlWindow* found = find(id).control;
  if (!found || !found->fields) return {0, 0};
  const std::vector<TextRange> fields = found->fields->text().fields();
  return index >= 0 && index < static_cast<int>(fields.size()) ? fields[static_cast<std::size_t>(index)]
                                                               : TextRange{0, 0};
}

TextRange Win32Face::selection(int id) const {
  const ControlWindow* found = find(id).control;
  if (!found || !holdsText(found->kind)) return {0, 0};
  if (found->fields) return found->fields->selection();
  DWORD begin = 0, end = 0;
  SendMessageW(found->window, EM_GETSEL, reinterpret_cast<WPARAM>(&begin), reinterpret_cast<LPARAM>(&end));
  return {static_cast<int>(begin), static_cast<int>(end)};
}

void Win32Face::moveTo(int id) { find(id).form->setFocus(id); }

void Win32Face::replaceText(int id, const OdString& text) {
  const ControlWindow& control = *find(id).control;
  if (control.fields) {
    control.fields->splice(difference(control.fields->text().text(), text));
  } else {
    HWND edit = control.window;
    if (control.items) {
      COMBOBOXINFO info{};
      info.cbSize = sizeof info;
      GetComboBoxInfo(control.window, &info);
      edit = info.hwndItem;
    }
    const auto limit = std::min<LRESULT>(SendMessageW(edit, EM_GETLIMITTEXT, 0, 0), text.getLength());
    SendMessageW(edit, EM_SETSEL, 0, -1);
    SendMessageW(edit, EM_REPLACESEL, TRUE,
                 reinterpret_cast<LPARAM>(text.left(static_cast<int>(limit)).c_str()));
  }
  rethrow();
}

void Win32Face::clickOn(int id) {
  HWND const button = find(id).control->window;
  RECT area;
  GetClientRect(button, &area);
  const LPARAM middle = MAKELPARAM(area.right / 2, area.bottom / 2);
  SendMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, middle);
  SendMessageW(button, WM_LBUTTONUP, 0, middle);
  rethrow();
}

/// Combo boxes and lists send no notice for a message, so it is sent in their place.
void Win32Face::chooseItem(int id, int item) {
  const auto [form, control] = find(id);
  if (control->rows) {
    control->rows->click(item);
    form->tellSelection(*control);
  } else {
    control->items->select(item);
    const int notice = control->kind == ControlKind::comboBox ? CBN_SELCHANGE : LBN_SELCHANGE;
    SendMessageW(form->window(), WM_COMMAND, MAKEWPARAM(id, notice),
                 reinterpret_cast<LPARAM>(control->window));
  }
  rethrow();
}

void Win32Face::selectRange(int id, TextRange range) { find(id).form->selectText(id, range); }

void Win32Face::clickTwice(int id) {
  const auto [form, control] = find(id);
  if (control->rows) {
    NMITEMACTIVATE notice{};
    notice.hdr = {control->window, static_cast<UINT_PTR>(id), static_cast<UINT>(NM_DBLCLK)};
    notice.iItem = control->rows->selection();
    SendMessageW(form->window(), WM_NOTIFY, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&notice));
  } else {
    form->events().onDoubleClick(id);
  }
  rethrow();
}

void Win32Face::turnTo(int id, int page) {
  if (page == m_activePage) return moveTo(id);
  HWND const tabs = find(id).control->window;
  RECT tab{};
  SendMessageW(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(page), reinterpret_cast<LPARAM>(&tab));
  const LPARAM middle = MAKELPARAM((tab.left + tab.right) / 2, (tab.top + tab.bottom) / 2);
  SendMessageW(tabs, WM_LBUTTONDOWN, MK_LBUTTON, middle);
  SendMessageW(tabs, WM_LBUTTONUP, 0, middle);
  rethrow();
}

Menu Win32Face::menuOf(int id) { return find(id).form->events().contextMenu(id); }

void Win32Face::chooseCommand(int id, int command) { find(id).form->events().onMenu(id, command); }

void Win32Face::strike(Key key) {
  const ControlWindow* focused = m_focus.form ? m_focus.form->controls().find(m_focus.id) : nullptr;
  HWND const target = focused ? focused->window : m_frame.window();
  if (key == Key::help) {
    HELPINFO info{};
    info.cbSize = sizeof info;
    info.iContextType = HELPINFO_WINDOW;
    info.iCtrlId = m_focus.id;
    info.hItemHandle = target;
    SendMessageW(target, WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
  } else {
    MSG message{};
    message.hwnd = target;
    message.message = WM_KEYDOWN;
    message.wParam = key == Key::enter ? VK_RETURN : VK_ESCAPE;
    IsDialogMessageW(m_frame.window(), &message);
    // An edit of several lines takes Esc itself and posts that the dialog is to close.
    while (PeekMessageW(&message, m_frame.window(), WM_CLOSE, WM_CLOSE, PM_REMOVE))
      DispatchMessageW(&message);
  }
  rethrow();
}

int Win32Face::nextTabStop() const {
  const ControlWindow* focused = m_focus.form ? m_focus.form->controls().find(m_focus.id) : nullptr;
  const ControlWindow* control =
      holding(GetNextDlgTabItem(m_frame.window(), focused ? focused->window : nullptr, FALSE)).control;
  return control ? control->id : 0;
}

int Win32Face::defaultButton() const {
  const ControlWindow* button = m_frame.controls().defaultButton();
  return button ? button->id : 0;
}

} // namespace ui::win32
