#include "text_form.h"
#include "placement.h"
#include "res/icon.h"
#include "ui/control_kind.h"
#include <algorithm>

namespace ui::text {

TextForm::TextForm(unsigned number, const res::DialogTemplate& source, FormEvents& events,
                   FocusKeeper& keeper)
    : m_number(number), m_events(events), m_keeper(keeper), m_controls(source, number),
      m_width(pixels(source.rect).width()), m_height(pixels(source.rect).height()) {
  for (Control& control : m_controls.all())
    if (control.kind == ControlKind::richEdit)
      m_lines.try_emplace(control.id, control, [this, id = control.id] { m_events.onChange(id); });
}

FieldLine& TextForm::line(int id) {
  m_controls.at(id);
  const auto found = m_lines.find(id);
  if (found == m_lines.end()) refuseControl(m_number, static_cast<unsigned>(id), "it holds no fields");
  return found->second;
}

Control& TextForm::edit(ControlTree& controls, int id) const {
  Control& control = controls.at(id);
  if (!holdsText(control.kind)) refuseControl(m_number, static_cast<unsigned>(id), "it is no edit");
  return control;
}

void TextForm::setText(int id, const OdString& text) {
  Control& control = m_controls.at(id);
  if (control.kind == ControlKind::richEdit) return line(id).setRuns({{text, 0}});
  control.text = text;
  control.selection = {0, 0};
  control.modified = false;
  if (holdsItems(control.kind)) control.items.select(-1);
}

void TextForm::enable(int id, bool on) {
  m_controls.at(id).enabled = on;
  if (!on && focusedControl() == id) m_keeper.passFocusOn();
}

void TextForm::show(int id, bool on) {
  m_controls.at(id).shown = on;
  if (!on && focusedControl() == id) m_keeper.passFocusOn();
}

void TextForm::selectText(int id, TextRange range) {
  Control& control = edit(id);
  const int length = control.text.getLength();
  const int begin = std::clamp(range.begin, 0, length);
  control.selection = {begin, std::clamp(range.end, begin, length)};
  if (control.kind == ControlKind::richEdit) control.selection = control.fields.widened(control.selection);
}

Items& TextForm::items(int id) {
  Control& control = m_controls.at(id);
  if (!holdsItems(control.kind)) refuseControl(m_number, static_cast<unsigned>(id), "it holds no items");
  return control.items;
}

ListView& TextForm::list(int id) {
  Control& control = m_controls.at(id);
  if (control.kind != ControlKind::listView)
    refuseControl(m_number, static_cast<unsigned>(id), "it is no list view");
  return control.rows;
}

/// It is not shown, but it must exist.
void TextForm::setIcon(int id, unsigned icon) {
  if (m_controls.at(id).kind != ControlKind::button)
    refuseControl(m_number, static_cast<unsigned>(id), "it is no button");
  res::loadIcon(icon);
}

void TextForm::anchor(int id, const Anchor& anchor) {
  Control& control = m_controls.at(id);
  const Area atFirst = anchored(control.area, control.anchor, -m_across, -m_down);
  control.anchor = anchor;
  control.area = anchored(atFirst, anchor, m_across, m_down);
}

void TextForm::resize(int width, int height) {
  const int across = width - m_width - m_across, down = height - m_height - m_down;
  for (Control& control : m_controls.all())
    control.area = anchored(control.area, control.anchor, across, down);
  m_across += across;
  m_down += down;
}

void TextForm::setFocus(int id) {
  if (id) m_controls.at(id);
  m_keeper.focusOn(id ? Focus{this, id} : Focus{});
}

int TextForm::focusedControl() const {
  const Focus focus = m_keeper.focused();
  return focus.form == this ? focus.id : 0;
}

} // namespace ui::text
