#include "list_window.h"
#include "ui/control_kind.h"
#include <commctrl.h>
#include <string>

namespace ui::win32 {
namespace {

wchar_t* toBuffer(const OdString& text) { return const_cast<wchar_t*>(text.c_str()); }

} // namespace

ListWindow::ListWindow(HWND window) : m_window(window) {
  constexpr DWORD styles = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP;
  send(LVM_SETEXTENDEDLISTVIEWSTYLE, styles, styles);
}

LRESULT ListWindow::send(UINT message, WPARAM wParam, LPARAM lParam) const {
  return SendMessageW(m_window, message, wParam, lParam);
}

WPARAM ListWindow::rowIndex(int row) const {
  if (row < 0 || row >= rowCount()) refuseIndex(row);
  return static_cast<WPARAM>(row);
}

WPARAM ListWindow::columnIndex(int column) const {
  if (column < 0 || column >= columnCount()) refuseIndex(column);
  return static_cast<WPARAM>(column);
}

void ListWindow::addColumn(const OdString& title, int width) {
  LVCOLUMNW column{};
  column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
  column.pszText = toBuffer(title);
  column.cx = width;
  column.iSubItem = columnCount();
  send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(columnCount()), reinterpret_cast<LPARAM>(&column));
}

void ListWindow::clearColumns() {
  clearRows();
  while (columnCount() > 0) send(LVM_DELETECOLUMN, 0);
}

int ListWindow::columnCount() const {
  HWND const header = reinterpret_cast<HWND>(send(LVM_GETHEADER));
  return static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
}

int ListWindow::columnWidth(int column) const {
  return static_cast<int>(send(LVM_GETCOLUMNWIDTH, columnIndex(column)));
}

void ListWindow::setColumnWidth(int column, int width) {
  send(LVM_SETCOLUMNWIDTH, columnIndex(column), MAKELPARAM(width, 0));
}

OdString ListWindow::columnTitle(int column) const {
  wchar_t title[260] = L""; // as long as the header shows
  LVCOLUMNW request{};
  request.mask = LVCF_TEXT;
  request.pszText = title;
  request.cchTextMax = static_cast<int>(std::size(title));
  send(LVM_GETCOLUMNW, columnIndex(column), reinterpret_cast<LPARAM>(&request));
  return title;
}

int ListWindow::addRow(int row, std::intptr_t data) {
  if (row < 0) row = rowCount();
  if (row > rowCount()) refuseIndex(row);
  wchar_t empty[] = L"";
  LVITEMW item{};
  item.mask = LVIF_PARAM | LVIF_TEXT;
  item.iItem = row;
  item.lParam = data;
  item.pszText = empty;
  const auto index = static_cast<int>(send(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
  m_toldSelection = selection();
  return index;
}

void ListWindow::removeRow(int row) {
  send(LVM_DELETEITEM, rowIndex(row));
  m_toldSelection = selection();
}

void ListWindow::clearRows() {
  send(LVM_DELETEALLITEMS);
  m_toldSelection = -1;
}

int ListWindow::rowCount() const { return static_cast<int>(send(LVM_GETITEMCOUNT)); }

OdString ListWindow::text(int row, int column) const {
  const WPARAM index = rowIndex(row);
  columnIndex(column);
  std::wstring text(256, L'\0');
  LVITEMW request{};
  request.iSubItem = column;
  for (;;) {
    request.pszText = text.data();
    request.cchTextMax = static_cast<int>(text.size());
    const auto length =
        static_cast<std::size_t>(send(LVM_GETITEMTEXTW, index, reinterpret_cast<LPARAM>(&request)));
    if (length + 1 < text.size()) return OdString(std::wstring(request.pszText, length));
    text.resize(2 * text.size());
  }
}

void ListWindow::setText(int row, int column, const OdString& text) {
  columnIndex(column);
  LVITEMW request{};
  request.iSubItem = column;
  request.pszText = toBuffer(text);
  send(LVM_SETITEMTEXTW, rowIndex(row), reinterpret_cast<LPARAM>(&request));
}

std::intptr_t ListWindow::data(int row) const {
  LVITEMW request{};
  request.mask = LVIF_PARAM;
  request.iItem = static_cast<int>(rowIndex(row));
  send(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&request));
  return request.lParam;
}

void ListWindow::setData(int row, std::intptr_t data) {
  LVITEMW request{};
  request.mask = LVIF_PARAM;
  request.iItem = static_cast<int>(rowIndex(row));
  request.lParam = data;
  send(LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&request));
}

int ListWindow::selection() const {
  return static_cast<int>(send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), MAKELPARAM(LVNI_SELECTED, 0)));
}

void ListWindow::select(int row) {
  if (row >= 0) rowIndex(row);
  click(row);
  m_toldSelection = selection();
}

void ListWindow::click(int row) {
  LVITEMW state{};
  state.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  state.state = row < 0 ? 0 : state.stateMask;
  const WPARAM which = row < 0 ? static_cast<WPARAM>(-1) : static_cast<WPARAM>(row);
  send(LVM_SETITEMSTATE, which, reinterpret_cast<LPARAM>(&state));
  if (row >= 0) send(LVM_ENSUREVISIBLE, which, FALSE);
}

bool ListWindow::takeSelection() {
  const int now = selection();
  const bool changed = now != m_toldSelection;
  m_toldSelection = now;
  return changed;
}

void ListWindow::redraw() { InvalidateRect(m_window, nullptr, FALSE); }

} // namespace ui::win32
