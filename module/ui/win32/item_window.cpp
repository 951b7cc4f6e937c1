#include "item_window.h"
#include "control_windows.h"
#include "ui/control_kind.h"
#include <string>

namespace ui::win32 {

/// The messages by which combo boxes and lists do the same things.
struct ItemWindow::Messages {
  UINT selection, select, add, removeAll, length, text;

  static const Messages& of(ControlKind kind) {
    static constexpr Messages combo{CB_GETCURSEL,    CB_SETCURSEL,    CB_ADDSTRING,
                                    CB_RESETCONTENT, CB_GETLBTEXTLEN, CB_GETLBTEXT};
    static constexpr Messages list{LB_GETCURSEL,    LB_SETCURSEL,  LB_ADDSTRING,
                                   LB_RESETCONTENT, LB_GETTEXTLEN, LB_GETTEXT};
    return kind == ControlKind::comboBox ? combo : list;
  }
};

ItemWindow::ItemWindow(HWND window, ControlKind kind) : m_window(window), m_messages(Messages::of(kind)) {}

int ItemWindow::send(UINT Messages::*message, WPARAM wParam, LPARAM lParam) const {
  return static_cast<int>(SendMessageW(m_window, m_messages.*message, wParam, lParam));
}

const ItemWindow::Item& ItemWindow::at(int index) const {
  if (index < 0 || index >= count()) refuseIndex(index);
  return m_items[static_cast<std::size_t>(index)];
}

int ItemWindow::add(const OdString& text, std::intptr_t data, std::optional<Color> swatch) {
  if (send(&Messages::add, 0, reinterpret_cast<LPARAM>(text.c_str())) != count())
    throw std::bad_alloc(); // the window has no room
  m_items.push_back({data, swatch});
  return count() - 1;
}

void ItemWindow::clear() {
  send(&Messages::removeAll);
  m_items.clear();
}

OdString ItemWindow::text(int index) const {
  at(index);
  const auto item = static_cast<WPARAM>(index);
  std::wstring text(static_cast<std::size_t>(send(&Messages::length, item)), L'\0');
  send(&Messages::text, item, reinterpret_cast<LPARAM>(text.data()));
  return OdString(std::move(text));
}

int ItemWindow::selection() const { return m_typed ? -1 : send(&Messages::selection); }

void ItemWindow::select(int index) {
  if (index >= 0) at(index);
  send(&Messages::select, static_cast<WPARAM>(index));
  m_typed = false;
}

void ItemWindow::draw(const DRAWITEMSTRUCT& request) const {
  const bool selected = (request.itemState & ODS_SELECTED) != 0;
  const bool disabled = (request.itemState & ODS_DISABLED) != 0;
  FillRect(request.hDC, &request.rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  const int index = static_cast<int>(request.itemID);
  if (index >= 0 && index < count()) {
    RECT place = request.rcItem;
    InflateRect(&place, -2, -2);
    if (const std::optional<Color> color = swatch(index)) {
      RECT square = place;
      square.right = square.left + (square.bottom - square.top);
      HBRUSH const brush = CreateSolidBrush(toColorRef(*color));
      FillRect(request.hDC, &square, brush);
      DeleteObject(brush);
      FrameRect(request.hDC, &square, GetSysColorBrush(COLOR_WINDOWTEXT));
      place.left = square.right + 4;
    }
    SetBkMode(request.hDC, TRANSPARENT);
    SetTextColor(request.hDC, GetSysColor(disabled   ? COLOR_GRAYTEXT
                                          : selected ? COLOR_HIGHLIGHTTEXT
                                                     : COLOR_WINDOWTEXT));
    DrawTextW(request.hDC, text(index).c_str(), -1, &place, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
  }
  if (request.itemState & ODS_FOCUS) DrawFocusRect(request.hDC, &request.rcItem);
}

} // namespace ui::win32
