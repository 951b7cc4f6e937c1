#pragma once
#include "OdString.h"
#include "res/dialog_template.h"
#include "ui/dialog_user.h"
#include <vector>

namespace ui::text {

/// The state of one control.
struct Control {
  int id = 0;
  ControlKind kind = ControlKind::staticText;
  OdString text;
  bool enabled = true;
  bool shown = true;
  bool checked = false;
  bool tabStop = false;
  bool startsGroup = false;
  bool isDefault = false;
  std::vector<OdString> items;
  int selected = -1;
  res::Rect place;
};

/// The controls of one dialog in tab order, made from its template.
class ControlTree {
public:
  /// A control of a window class or style that this face cannot show throws std::logic_error.
  ControlTree(const res::DialogTemplate& source, unsigned number);

  const std::vector<Control>& all() const { return m_controls; }
  /// Null when there is none of that number.
  Control* find(int id);
  const Control* find(int id) const { return const_cast<ControlTree*>(this)->find(id); }
  /// As find, for a caller that must know its controls: throws std::logic_error.
  Control& at(int id);
  const Control& at(int id) const { return const_cast<ControlTree*>(this)->at(id); }
  /// As at, for a combo box or list.
  Control& listAt(int id);
  const Control& listAt(int id) const { return const_cast<ControlTree*>(this)->listAt(id); }

  /// A checked radio button clears the others of its group: the controls from the last group start up to it
  /// to the next one behind it.
  void check(Control& control, bool on);
  /// The control that Tab moves to from `id` (0: from the start), or 0 when there is none.
  int nextTabStop(int id) const;
  const Control* defaultButton() const;

private:
  struct Range {
    std::size_t begin, end;
  };
  Range groupOf(const Control& control) const;
  bool stopsTab(const Control& control) const;

  unsigned m_number;
  std::vector<Control> m_controls;
};

} // namespace ui::text
