#include "field_window.h"
#include "control_windows.h"
#include "flag.h"
#include <algorithm>
#include <richedit.h>
#include <utility>

namespace ui::win32 {

FieldWindow::FieldWindow(HWND window) : m_window(window) {
  send(EM_SETEVENTMASK, 0, ENM_CHANGE | ENM_SELCHANGE);
  send(EM_SETUNDOLIMIT, 0); // fields would come back as plain text
}

LRESULT FieldWindow::send(UINT message, WPARAM wParam, LPARAM lParam) const {
  return SendMessageW(m_window, message, wParam, lParam);
}

TextRange FieldWindow::selection() const {
  CHARRANGE range{};
  send(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
  return {static_cast<int>(range.cpMin), static_cast<int>(range.cpMax)};
}

void FieldWindow::setSelection(TextRange range) const {
  CHARRANGE native{range.begin, range.end};
  send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&native));
}

void FieldWindow::select(TextRange range) {
  const Flag working(m_working);
  setSelection(m_text.widened(range));
}

void FieldWindow::setRuns(const std::vector<TextRun>& runs) {
  m_text = FieldText(runs);
  write();
  select({0, 0});
  send(EM_SETMODIFY, FALSE);
}

void FieldWindow::insert(const TextRun& run) {
  const int end = m_text.replace(selection(), run);
  write();
  select({end, end});
  send(EM_SETMODIFY, TRUE);
}

/// By replacing a selection: a text that is set may be taken for formatted text.
void FieldWindow::write() {
  const Flag working(m_working);
  setSelection({0, -1});
  send(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(m_text.text().c_str()));
  paint();
}

void FieldWindow::paint() {
  const Flag working(m_working);
  const TextRange selected = selection();
  const LRESULT modified = send(EM_GETMODIFY);
  // Drawing that is switched on again would show a hidden window.
  const bool isShown = (GetWindowLongPtrW(m_window, GWL_STYLE) & WS_VISIBLE) != 0;
  if (isShown) send(WM_SETREDRAW, FALSE);
  CHARFORMAT2W format{};
  format.cbSize = sizeof format;
  send(EM_GETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format));
  format.dwMask |= CFM_BACKCOLOR;
  format.dwEffects |= CFE_AUTOBACKCOLOR;
  send(EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&format));
  format.dwMask = CFM_BACKCOLOR;
  format.dwEffects = 0;
  format.crBackColor = GetSysColor(COLOR_3DLIGHT);
  for (const TextRange& field : m_text.fields()) {
    setSelection(field);
    send(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  }
  setSelection(selected);
  send(EM_SETMODIFY, static_cast<WPARAM>(modified));
  if (isShown) send(WM_SETREDRAW, TRUE);
  InvalidateRect(m_window, nullptr, TRUE);
}

void FieldWindow::splice(const Splice& change) {
  const TextRange range = m_text.widened(change.range);
  const auto limit = static_cast<int>(std::min<LRESULT>(send(EM_GETLIMITTEXT), wholeText));
  const int room = limit - m_text.text().getLength() + range.end - range.begin;
  select(range);
  send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(change.text.left(std::max(0, room)).c_str()));
}

bool FieldWindow::followChange() {
  if (m_working) return m_selectionBefore.reset(), false;
  const OdString now = windowText(m_window);
  const Splice change = difference(m_text.text(), now, std::exchange(m_selectionBefore, std::nullopt));
  const int end = m_text.replace(change.range, {change.text, 0});
  if (m_text.text() != now) {
    write(); // a part of a field was left
    select({end, end});
  } else {
    paint();
  }
  send(EM_SETMODIFY, TRUE);
  return true;
}

void FieldWindow::eraseBack() {
  TextRange range = selection();
  if (range.begin == range.end) --range.begin;
  if (range.end > 0) splice({range, {}});
}

bool FieldWindow::moveCaret(bool right) {
  const TextRange selected = selection();
  if (selected.begin == selected.end) return false;
  const int end = right ? selected.end : selected.begin;
  select({end, end});
  return true;
}

void FieldWindow::followSelection() {
  // A key that changes the text moves the caret first, in a text that is not known yet.
  if (m_working || windowText(m_window) != m_text.text()) return;
  const TextRange selected = selection();
  const TextRange whole = m_text.widened(selected);
  if (whole.begin != selected.begin || whole.end != selected.end) select(selected);
}

bool FieldWindow::can(EditCommand command) const {
  switch (command) {
  case EditCommand::cut:
  case EditCommand::copy:
  case EditCommand::clear: return selection().begin != selection().end;
  case EditCommand::paste: return IsClipboardFormatAvailable(CF_UNICODETEXT) != FALSE;
  case EditCommand::selectAll: return true;
  }
  return false;
}

void FieldWindow::perform(EditCommand command) {
  if (!can(command)) return;
  switch (command) {
  case EditCommand::cut: send(WM_CUT); return;
  case EditCommand::copy: send(WM_COPY); return;
  case EditCommand::clear: send(WM_CLEAR); return;
  case EditCommand::paste: send(EM_PASTESPECIAL, CF_UNICODETEXT); return;
  case EditCommand::selectAll: return select({0, wholeText});
  }
}

void FieldWindow::showEnabled(bool on) const {
  send(EM_SETBKGNDCOLOR, on, static_cast<LPARAM>(GetSysColor(COLOR_3DFACE)));
}

} // namespace ui::win32
