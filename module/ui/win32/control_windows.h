#pragma once
#include "OdString.h"
#include "res/dialog_template.h"
#include "ui/dialog_user.h"
#include <vector>
#include <windows.h>

namespace ui::win32 {

/// One control: what its template says, and its window.
struct ControlWindow {
  int id = 0;
  ControlKind kind = ControlKind::staticText;
  bool isDefault = false;
  bool startsGroup = false;
  res::Rect place;
  HWND window = nullptr;

  bool hasStyle(LONG_PTR style) const { return (GetWindowLongPtrW(window, GWL_STYLE) & style) != 0; }
  bool isChecked() const { return SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED; }
  /// The caption or contents; of a combo box or list, the chosen item.
  OdString text() const;

  /// Combo boxes and lists.
  int itemCount() const;
  int selection() const;
  void select(int index) const;
  /// -1 when there is no room.
  int addItem(const OdString& text) const;
  void removeItems() const;
  /// Throws std::out_of_range for an item that does not exist.
  OdString itemText(int index) const;
};

/// The controls of one dialog in tab order. The windows belong to the dialog's window.
class ControlWindows {
public:
  /// A control that no face can show throws std::logic_error.
  ControlWindows(const res::DialogTemplate& source, unsigned number);

  /// The dialog has made its windows.
  void bind(HWND dialog);

  const std::vector<ControlWindow>& all() const { return m_controls; }
  /// Null when there is none of that number.
  const ControlWindow* find(int id) const;
  /// The control that a window is, or is a part of; null for others.
  const ControlWindow* holding(HWND window) const;
  /// As find, for a caller that must know its controls: throws std::logic_error.
  const ControlWindow& at(int id) const;
  /// As at, for a combo box or list.
  const ControlWindow& listAt(int id) const;
  const ControlWindow* defaultButton() const;

  /// Checking a radio button clears the others of its group.
  void check(const ControlWindow& control, bool on) const;

private:
  unsigned m_number;
  std::vector<ControlWindow> m_controls;
};

OdString windowText(HWND window);

} // namespace ui::win32
