#include "control_tree.h"
#include "placement.h"
#include "res/styles.h"
#include "ui/control_kind.h"
#include <algorithm>

namespace ui::text {
namespace {

Control makeControl(unsigned dialog, const res::ControlTemplate& source) {
  Control control;
  control.id = static_cast<int>(source.id);
  control.kind = kindOf(dialog, source);
  control.text = source.text;
  control.enabled = !(source.style & WS_DISABLED);
  control.shown = (source.style & WS_VISIBLE) != 0;
  control.tabStop = (source.style & WS_TABSTOP) != 0;
  control.startsGroup = (source.style & WS_GROUP) != 0;
  control.isDefault = control.kind == ControlKind::button && (source.style & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
  control.editable = isEditable(source, control.kind);
  control.place = source.rect;
  control.area = pixels(source.rect);
  return control;
}

} // namespace

const OdChar* Control::shownText() const {
  const OdChar* item = holdsItems(kind) ? items.textAt(items.selection()) : nullptr;
  return item ? item : text.c_str();
}

ControlTree::ControlTree(const res::DialogTemplate& source, unsigned number) : m_number(number) {
  for (const res::ControlTemplate& control : source.controls)
    m_controls.push_back(makeControl(number, control));
}

Control* ControlTree::find(int id) {
  const auto found = std::ranges::find(m_controls, id, &Control::id);
  return found == m_controls.end() ? nullptr : &*found;
}

Control& ControlTree::at(int id) {
  if (Control* control = find(id)) return *control;
  refuseControl(m_number, static_cast<unsigned>(id), "there is no such control");
}

ControlTree::Range ControlTree::groupOf(const Control& control) const {
  const auto index = static_cast<std::size_t>(&control - m_controls.data());
  Range range{index, index + 1};
  while (range.begin > 0 && !m_controls[range.begin].startsGroup) --range.begin;
  while (range.end < m_controls.size() && !m_controls[range.end].startsGroup) ++range.end;
  return range;
}

void ControlTree::check(Control& control, bool on) {
  if (on && control.kind == ControlKind::radioButton) {
    const Range group = groupOf(control);
    for (std::size_t i = group.begin; i < group.end; ++i)
      if (m_controls[i].kind == ControlKind::radioButton) m_controls[i].checked = false;
  }
  control.checked = on;
}

/// In a group of radio buttons Tab stops at the checked one, or at the marked one while none is checked.
bool ControlTree::stopsTab(const Control& control) const {
  if (!control.shown || !control.enabled || !takesFocus(control.kind)) return false;
  if (control.kind != ControlKind::radioButton) return control.tabStop;
  const Range group = groupOf(control);
  const auto first = m_controls.begin();
  const bool anyChecked = std::any_of(
      first + static_cast<std::ptrdiff_t>(group.begin), first + static_cast<std::ptrdiff_t>(group.end),
      [](const Control& c) { return c.kind == ControlKind::radioButton && c.checked; });
  return anyChecked ? control.checked : control.tabStop;
}

const Control* ControlTree::defaultButton() const {
  const auto found = std::ranges::find(m_controls, true, &Control::isDefault);
  return found == m_controls.end() ? nullptr : &*found;
}

} // namespace ui::text
