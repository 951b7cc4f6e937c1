// What the controls of a form tell, and what is done before they get their messages.
#include "form_window.h"
#include "ui/control_kind.h"
#include <algorithm>
#include <commctrl.h>
#include <richedit.h>
#include <utility>
#include <windowsx.h>

namespace ui::win32 {
namespace {

bool isClickable(ControlKind kind) {
  return kind == ControlKind::button || kind == ControlKind::checkBox || kind == ControlKind::radioButton;
}

HMENU makeMenu(const Menu& menu) {
  HMENU const popup = CreatePopupMenu();
  for (const MenuItem& item : menu) {
    const UINT flags = (item.enabled ? 0u : UINT{MF_GRAYED}) | (item.checked ? UINT{MF_CHECKED} : 0u);
    if (item.command)
      AppendMenuW(popup, MF_STRING | flags, static_cast<UINT_PTR>(item.command), item.text.c_str());
    else
      AppendMenuW(popup, MF_SEPARATOR, 0, nullptr);
  }
  return popup;
}

/// Where a menu opens that was asked for by the keyboard: inside the control, or under its selected row.
POINT menuPlace(const ControlWindow& control) {
  POINT at{8, 8};
  if (control.rows && control.rows->selection() >= 0) {
    RECT row{LVIR_LABEL, 0, 0, 0};
    SendMessageW(control.window, LVM_GETITEMRECT, static_cast<WPARAM>(control.rows->selection()),
                 reinterpret_cast<LPARAM>(&row));
    at = {row.left, row.bottom};
  }
  ClientToScreen(control.window, &at);
  return at;
}

/// The characters of keys that are done by us: Ctrl+V, Backspace, and this one with Ctrl.
constexpr WPARAM takenKeys[] = {0x16, 0x08, 0x7F};

bool isHeld(int modifier) { return GetKeyState(modifier) < 0; }

bool isPasteKey(WPARAM key) {
  return (key == 'V' && isHeld(VK_CONTROL)) || (key == VK_INSERT && isHeld(VK_SHIFT));
}

bool isPlainArrow(WPARAM key) {
  return (key == VK_LEFT || key == VK_RIGHT) && !isHeld(VK_SHIFT) && !isHeld(VK_CONTROL);
}

} // namespace

bool FormWindow::handle(UINT message, WPARAM wParam, LPARAM lParam, INT_PTR& result) {
  result = TRUE;
  switch (message) {
  case WM_NOTIFY: {
    const LRESULT answer = notify(*reinterpret_cast<const NMHDR*>(lParam));
    SetWindowLongPtrW(m_window, DWLP_MSGRESULT, answer);
    return true;
  }
  case WM_DRAWITEM: {
    const auto& request = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
    const ControlWindow* control = m_controls.holding(request.hwndItem);
    if (control && control->items) control->items->draw(request);
    return true;
  }
  case selectionMessage:
    if (ControlWindow* list = m_controls.find(static_cast<int>(wParam))) tellSelection(*list);
    return true;
  case WM_SIZE:
    if (wParam != SIZE_MINIMIZED && m_window) resize(LOWORD(lParam), HIWORD(lParam));
    result = FALSE;
    return true;
  default: return false;
  }
}

void FormWindow::noticeFrom(ControlWindow& control, unsigned notice) {
  if (m_silent) return;
  switch (control.kind) {
  case ControlKind::radioButton:
    if (notice == BN_CLICKED && m_controls.takeClick(control)) m_keeper.pressed(*this, control.id);
    return;
  case ControlKind::button:
  case ControlKind::checkBox:
    if (notice == BN_CLICKED) m_keeper.pressed(*this, control.id);
    return;
  case ControlKind::edit:
    if (notice == EN_CHANGE) m_events.onChange(control.id);
    return;
  case ControlKind::richEdit:
    if (notice == EN_CHANGE && control.fields->followChange()) m_events.onChange(control.id);
    return;
  case ControlKind::comboBox:
    if (notice == CBN_SETFOCUS) m_keeper.focusArrived({this, control.id});
    if (notice != CBN_SELCHANGE && notice != CBN_EDITCHANGE) return;
    control.items->noteTyped(notice == CBN_EDITCHANGE);
    m_events.onChange(control.id);
    return;
  case ControlKind::listBox:
    if (notice == LBN_SELCHANGE) m_events.onChange(control.id);
    return;
  case ControlKind::listView:
  case ControlKind::tabs:
  case ControlKind::staticText:
  case ControlKind::group: return;
  }
}

INT_PTR FormWindow::notify(const NMHDR& notice) {
  ControlWindow* const control = m_controls.holding(notice.hwndFrom);
  if (!control || control->window != notice.hwndFrom || m_keeper.isOver()) return 0;
  switch (notice.code) {
  case LVN_ITEMCHANGED: {
    const auto& change = reinterpret_cast<const NMLISTVIEW&>(notice);
    const bool selects = ((change.uNewState ^ change.uOldState) & LVIS_SELECTED) != 0;
    // One click deselects a row and selects another: two notices for one change.
    if ((change.uChanged & LVIF_STATE) && selects)
      PostMessageW(m_window, selectionMessage, static_cast<WPARAM>(control->id), 0);
    return 0;
  }
  case NM_DBLCLK:
    if (control->rows && reinterpret_cast<const NMITEMACTIVATE&>(notice).iItem >= 0) {
      tellSelection(*control);
      m_events.onDoubleClick(control->id);
    }
    return 0;
  case NM_CUSTOMDRAW:
    return control->rows ? drawRow(reinterpret_cast<const NMLVCUSTOMDRAW&>(notice), control->id)
                         : CDRF_DODEFAULT;
  case TCN_SELCHANGING: return !std::exchange(m_pageLeft, false) && !m_keeper.leavePage();
  case TCN_SELCHANGE: return m_keeper.pageTurned(), 0;
  case EN_SELCHANGE:
    if (control->fields) control->fields->followSelection();
    return 0;
  default: return 0;
  }
}

void FormWindow::tellSelection(ControlWindow& list) {
  if (!m_keeper.isOver() && list.rows && list.rows->takeSelection()) m_events.onChange(list.id);
}

LRESULT FormWindow::drawRow(const NMLVCUSTOMDRAW& request, int id) {
  if (request.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  if (request.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
  const RowLook look = m_events.rowLook(id, static_cast<int>(request.nmcd.dwItemSpec));
  auto& answer = const_cast<NMLVCUSTOMDRAW&>(request);
  if (look.textColor >= 0) answer.clrText = toColorRef(static_cast<Color>(look.textColor));
  if (look.background >= 0) answer.clrTextBk = toColorRef(static_cast<Color>(look.background));
  if (!look.bold) return CDRF_DODEFAULT;
  if (!m_boldFont) {
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(m_window, WM_GETFONT, 0, 0)), sizeof font, &font);
    font.lfWeight = FW_BOLD;
    m_boldFont = CreateFontIndirectW(&font);
  }
  SelectObject(request.nmcd.hdc, m_boldFont);
  return CDRF_NEWFONT;
}

LRESULT CALLBACK FormWindow::controlProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                              UINT_PTR subclass, DWORD_PTR self) {
  auto& form = *reinterpret_cast<FormWindow*>(self);
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, &controlProcedure, subclass);
  ControlWindow* const control = form.m_controls.holding(window);
  LRESULT result = 0;
  bool settled = false;
  if (control)
    form.m_keeper.guard([&] { settled = form.intercept(*control, message, wParam, lParam, result); });
  return settled ? result : DefSubclassProc(window, message, wParam, lParam);
}

bool FormWindow::intercept(ControlWindow& control, UINT message, WPARAM wParam, LPARAM lParam,
                           LRESULT& result) {
  switch (message) {
  case WM_SETFOCUS:
    result = DefSubclassProc(control.window, message, wParam, lParam);
    m_keeper.focusArrived({this, control.id});
    return true;
  case WM_LBUTTONUP:
    // A press is lost when the control that it took the focus from has taken it back.
    if (!isClickable(control.kind) || focusedControl() == control.id) return false;
    result = DefSubclassProc(control.window, message, wParam, MAKELPARAM(-1, -1));
    return true;
  case WM_LBUTTONDOWN:
    if (control.kind != ControlKind::tabs) return false;
    return !mayTurn(control, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
  case WM_CONTEXTMENU: {
    const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    return showMenu(control, point.x == -1 && point.y == -1 ? menuPlace(control) : point);
  }
  default: return control.fields && interceptFields(control, message, wParam, lParam, result);
  }
}

/// The tabs take the focus before they ask; but the open page is told before a control of it loses the focus.
bool FormWindow::mayTurn(const ControlWindow& tabs, POINT at) {
  TCHITTESTINFO hit{at, 0};
  const auto tab = SendMessageW(tabs.window, TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  if (tab < 0 || tab == SendMessageW(tabs.window, TCM_GETCURSEL, 0, 0)) return true;
  m_pageLeft = m_keeper.leavePage();
  return m_pageLeft;
}

/// A rich edit neither asks for a menu by itself nor leaves Tab to the dialog, and it would paste formatted
/// text. Coming to it by Tab selects nothing, lest the next key wipes out its fields.
bool FormWindow::interceptFields(ControlWindow& control, UINT message, WPARAM wParam, LPARAM lParam,
                                 LRESULT& result) {
  FieldWindow& fields = *control.fields;
  switch (message) {
  case WM_GETDLGCODE: result = DLGC_WANTCHARS | DLGC_WANTARROWS; return true;
  case WM_RBUTTONUP: {
    SetFocus(control.window);
    POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    POINTL place{point.x, point.y};
    const auto at =
        static_cast<int>(SendMessageW(control.window, EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&place)));
    const TextRange selected = fields.selection();
    if (at < selected.begin || at > selected.end) fields.select({at, at});
    ClientToScreen(control.window, &point);
    showMenu(control, point);
    return true;
  }
  case WM_LBUTTONDBLCLK:
    result = DefSubclassProc(control.window, message, wParam, lParam);
    m_events.onDoubleClick(control.id);
    return true;
  case WM_PASTE: fields.perform(EditCommand::paste); return true;
  case WM_KEYDOWN:
    fields.beforeChange();
    if (isPlainArrow(wParam)) return fields.moveCaret(wParam == VK_RIGHT);
    if (wParam == VK_BACK) return fields.eraseBack(), true;
    if (isPasteKey(wParam)) return fields.perform(EditCommand::paste), true;
    return false;
  case WM_CHAR: fields.beforeChange(); return std::ranges::find(takenKeys, wParam) != std::end(takenKeys);
  case WM_CUT:
  case WM_CLEAR:
  case WM_IME_CHAR:
  case EM_REPLACESEL:
  case EM_PASTESPECIAL: fields.beforeChange(); return false;
  default: return false;
  }
}

bool FormWindow::showMenu(ControlWindow& control, POINT at) {
  if (m_keeper.isOver() || focusedControl() != control.id) return false;
  if (control.rows) tellSelection(control);
  const Menu menu = m_events.contextMenu(control.id);
  if (menu.empty()) return false;
  HMENU const popup = makeMenu(menu);
  const BOOL command =
      TrackPopupMenuEx(popup, TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, m_window, nullptr);
  DestroyMenu(popup);
  if (command && !m_keeper.isOver()) m_events.onMenu(control.id, command);
  return true;
}

} // namespace ui::win32
