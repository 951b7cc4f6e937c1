#pragma once
#include "field_window.h"
#include "item_window.h"
#include "list_window.h"
#include "res/dialog_template.h"
#include "ui/dialog_user.h"
#include <memory>
#include <vector>
#include <windows.h>

namespace ui::win32 {

/// One control: what its template says, its window, and what the window does not know.
struct ControlWindow {
  int id = 0;
  ControlKind kind = ControlKind::staticText;
  bool isDefault = false;
  bool startsGroup = false;
  bool editable = false;
  res::Rect place;
  HWND window = nullptr;
  OdString tip;
  HICON icon = nullptr;
  /// A radio button as it was told last: a click on a checked one is none.
  bool wasChecked = false;
  std::unique_ptr<ItemWindow> items;
  std::unique_ptr<ListWindow> rows;
  std::unique_ptr<FieldWindow> fields;

  bool hasStyle(LONG_PTR style) const { return (GetWindowLongPtrW(window, GWL_STYLE) & style) != 0; }
  bool isChecked() const { return SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED; }
  /// The caption or contents; of a combo box or list, the chosen item, which the window may not show yet.
  OdString text() const;
};

/// The controls of one dialog or page in tab order. The windows belong to its window.
class ControlWindows {
public:
  /// A control that no face can show throws std::logic_error.
  ControlWindows(const res::DialogTemplate& source, unsigned number);

  /// The dialog or page has made its windows.
  void bind(HWND dialog);

  std::vector<ControlWindow>& all() { return m_controls; }
  const std::vector<ControlWindow>& all() const { return m_controls; }
  /// Null when there is none of that number.
  ControlWindow* find(int id);
  /// The control that a window is, or is a part of; null for others.
  ControlWindow* holding(HWND window);
  /// As find, for a caller that must know its controls: throws std::logic_error.
  ControlWindow& at(int id);
  const ControlWindow& at(int id) const { return const_cast<ControlWindows*>(this)->at(id); }
  const ControlWindow* defaultButton() const;

  /// Checking a radio button clears the others of its group.
  void check(ControlWindow& control, bool on);
  /// A radio button was clicked; false when it was checked already.
  bool takeClick(ControlWindow& radioButton);

private:
  /// Notes which radio button of a group is checked.
  void noteChecked(ControlWindow& radioButton, bool alsoInWindows);

  unsigned m_number;
  std::vector<ControlWindow> m_controls;
};

OdString windowText(HWND window);

constexpr COLORREF toColorRef(Color color) {
  return RGB(color >> 16 & 0xFF, color >> 8 & 0xFF, color & 0xFF);
}

} // namespace ui::win32
