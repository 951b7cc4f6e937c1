#pragma once
#include "item_list.h"
#include "res/dialog_template.h"
#include "row_list.h"
#include "ui/area.h"
#include "ui/dialog_user.h"
#include "ui/field_text.h"
#include <vector>

namespace ui::text {

/// The state of one control.
struct Control {
  int id = 0;
  ControlKind kind = ControlKind::staticText;
  OdString text;
  OdString tip;
  bool enabled = true;
  bool shown = true;
  bool checked = false;
  bool tabStop = false;
  bool startsGroup = false;
  bool isDefault = false;
  bool editable = false;
  res::Rect place;
  Area area;
  Anchor anchor;
  /// Edits and rich edits; a rich edit's text is that of its fields.
  bool modified = false;
  int textLimit = wholeText;
  TextRange selection{0, 0};
  FieldText fields;
  /// Combo boxes and lists.
  ItemList items;
  /// List views.
  RowList rows;

  /// As its user sees it: with an item chosen, that one.
  const OdChar* shownText() const;
};

/// The controls of one dialog or page in tab order, made from its template.
class ControlTree {
public:
  /// A control of a window class or style that this face cannot show throws std::logic_error.
  ControlTree(const res::DialogTemplate& source, unsigned number);

  std::vector<Control>& all() { return m_controls; }
  const std::vector<Control>& all() const { return m_controls; }
  /// Null when there is none of that number.
  Control* find(int id);
  const Control* find(int id) const { return const_cast<ControlTree*>(this)->find(id); }
  /// As find, for a caller that must know its controls: throws std::logic_error.
  Control& at(int id);
  const Control& at(int id) const { return const_cast<ControlTree*>(this)->at(id); }

  /// A checked radio button clears the others of its group: the controls from the last group start up to it
  /// to the next one behind it.
  void check(Control& control, bool on);
  bool stopsTab(const Control& control) const;
  const Control* defaultButton() const;

private:
  struct Range {
    std::size_t begin, end;
  };
  Range groupOf(const Control& control) const;

  unsigned m_number;
  std::vector<Control> m_controls;
};

} // namespace ui::text
