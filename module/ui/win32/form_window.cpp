#include "form_window.h"
#include "flag.h"
#include "res/icon.h"
#include "ui/control_kind.h"
#include <commctrl.h>
#include <richedit.h>
#include <utility>

namespace ui::win32 {
namespace {

/// So that a radio button does not press itself when it merely gets the focus; older headers lack the name.
constexpr UINT setDontClick = 0x00F8;
constexpr DWORD iconVersion = 0x00030000;
constexpr int iconSize = 16;

} // namespace

FormWindow::FormWindow(unsigned number, const res::DialogTemplate& source, FormEvents& events,
                       WindowKeeper& keeper)
    : m_number(number), m_events(events), m_keeper(keeper), m_controls(source, number),
      m_anchors(source.controls.size()) {}

FormWindow::~FormWindow() {
  for (const ControlWindow& control : m_controls.all())
    if (control.icon) DestroyIcon(control.icon);
  if (m_boldFont) DeleteObject(m_boldFont);
  if (m_tips && IsWindow(m_tips)) DestroyWindow(m_tips);
}

void FormWindow::bind(HWND window) {
  m_window = window;
  m_controls.bind(window);
  RECT client;
  GetClientRect(window, &client);
  m_size = {client.right, client.bottom};
  for (const ControlWindow& control : m_controls.all()) {
    SetWindowSubclass(control.window, &controlProcedure, 0, reinterpret_cast<DWORD_PTR>(this));
    if (control.kind == ControlKind::radioButton) SendMessageW(control.window, setDontClick, TRUE, 0);
  }
}

void FormWindow::setText(int id, const OdString& text) {
  ControlWindow& control = m_controls.at(id);
  const Flag silence(m_silent);
  if (control.fields) return control.fields->setRuns({{text, 0}});
  if (control.items) control.items->select(-1);
  SetWindowTextW(control.window, text.c_str());
}

/// The focus would stay on a control that cannot be used, and the keyboard be dead.
void FormWindow::passOn(const ControlWindow& control) {
  if (m_keeper.focused() == Focus{this, control.id}) m_keeper.passFocusOn();
}

void FormWindow::enable(int id, bool on) {
  const ControlWindow& control = m_controls.at(id);
  if (!on) passOn(control);
  EnableWindow(control.window, on);
  if (control.fields) control.fields->showEnabled(on);
}

void FormWindow::show(int id, bool on) {
  const ControlWindow& control = m_controls.at(id);
  if (!on) passOn(control);
  ShowWindow(control.window, on ? SW_SHOW : SW_HIDE);
}

ControlWindow& FormWindow::edit(int id) const {
  ControlWindow& control = m_controls.at(id);
  if (!holdsText(control.kind)) refuseControl(m_number, static_cast<unsigned>(id), "it is no edit");
  return control;
}

void FormWindow::setTextLimit(int id, int most) {
  const ControlWindow& control = edit(id);
  if (control.fields)
    SendMessageW(control.window, EM_EXLIMITTEXT, 0, most);
  else
    SendMessageW(control.window, EM_SETLIMITTEXT, static_cast<WPARAM>(most), 0);
}

bool FormWindow::isModified(int id) const { return SendMessageW(edit(id).window, EM_GETMODIFY, 0, 0) != 0; }

void FormWindow::setModified(int id, bool on) { SendMessageW(edit(id).window, EM_SETMODIFY, on, 0); }

void FormWindow::selectText(int id, TextRange range) {
  const ControlWindow& control = edit(id);
  if (control.fields) return control.fields->select(range);
  SendMessageW(control.window, EM_SETSEL, static_cast<WPARAM>(range.begin), range.end);
}

Items& FormWindow::items(int id) {
  const ControlWindow& control = m_controls.at(id);
  if (!control.items) refuseControl(m_number, static_cast<unsigned>(id), "it holds no items");
  return *control.items;
}

ListView& FormWindow::list(int id) {
  const ControlWindow& control = m_controls.at(id);
  if (!control.rows) refuseControl(m_number, static_cast<unsigned>(id), "it is no list view");
  return *control.rows;
}

FieldEdit& FormWindow::fieldEdit(int id) {
  const ControlWindow& control = m_controls.at(id);
  if (!control.fields) refuseControl(m_number, static_cast<unsigned>(id), "it holds no fields");
  return *control.fields;
}

void FormWindow::setTip(int id, const OdString& tip) {
  ControlWindow& control = m_controls.at(id);
  if (!m_tips)
    m_tips = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                             0, 0, 0, 0, m_window, nullptr, nullptr, nullptr);
  control.tip = tip;
  TTTOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = m_window;
  tool.uId = reinterpret_cast<UINT_PTR>(control.window);
  tool.lpszText = const_cast<wchar_t*>(control.tip.c_str());
  SendMessageW(m_tips, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  if (!tip.isEmpty()) SendMessageW(m_tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void FormWindow::setIcon(int id, unsigned icon) {
  ControlWindow& control = m_controls.at(id);
  if (control.kind != ControlKind::button)
    refuseControl(m_number, static_cast<unsigned>(id), "it is no button");
  const std::span<const std::uint8_t> picture = res::loadIcon(icon);
  if (control.icon) DestroyIcon(control.icon);
  control.icon =
      CreateIconFromResourceEx(const_cast<BYTE*>(picture.data()), static_cast<DWORD>(picture.size()), TRUE,
                               iconVersion, iconSize, iconSize, LR_DEFAULTCOLOR);
  SetWindowLongPtrW(control.window, GWL_STYLE, GetWindowLongPtrW(control.window, GWL_STYLE) | BS_ICON);
  SendMessageW(control.window, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(control.icon));
}

Area FormWindow::area(int id) const {
  RECT area;
  GetWindowRect(m_controls.at(id).window, &area);
  MapWindowPoints(nullptr, m_window, reinterpret_cast<POINT*>(&area), 2);
  return {area.left, area.top, area.right, area.bottom};
}

/// The height of a combo box is that of its open list.
void FormWindow::setArea(int id, const Area& area) {
  const ControlWindow& control = m_controls.at(id);
  int height = area.height();
  if (control.kind == ControlKind::comboBox) {
    RECT open;
    SendMessageW(control.window, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&open));
    height = open.bottom - open.top;
  }
  SetWindowPos(control.window, nullptr, area.left, area.top, area.width(), height,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::anchor(int id, const Anchor& anchor) {
  const ControlWindow& control = m_controls.at(id);
  Anchor& kept = m_anchors[static_cast<std::size_t>(&control - m_controls.all().data())];
  const Area atFirst = anchored(area(id), kept, -m_across, -m_down);
  kept = anchor;
  setArea(id, anchored(atFirst, anchor, m_across, m_down));
}

void FormWindow::resize(int width, int height) {
  const int across = width - m_size.cx - m_across, down = height - m_size.cy - m_down;
  if (across == 0 && down == 0) return;
  for (std::size_t i = 0; i < m_anchors.size(); ++i) {
    const int id = m_controls.all()[i].id;
    const Area before = area(id), after = anchored(before, m_anchors[i], across, down);
    if (after != before) setArea(id, after);
  }
  m_across += across;
  m_down += down;
  InvalidateRect(m_window, nullptr, TRUE);
}

void FormWindow::setFocus(int id) {
  if (id) m_keeper.focusOn({this, m_controls.at(id).id});
}

int FormWindow::focusedControl() const {
  const Focus focus = m_keeper.focused();
  return focus.form == this ? focus.id : 0;
}

} // namespace ui::win32
