// The side of the text face that its user works: what can be seen of the controls, and the moves.
#include "res/resource.h"
#include "text_face.h"
#include "ui/control_kind.h"

namespace ui::text {
namespace {

ControlInfo describe(const Control& control) {
  const bool chosen = holdsItems(control.kind) && control.selected >= 0;
  const OdString& text = chosen ? control.items[static_cast<std::size_t>(control.selected)] : control.text;
  const res::Rect& place = control.place;
  return {control.id,        control.kind,
          text.c_str(),      control.enabled,
          control.shown,     control.checked,
          control.isDefault, static_cast<int>(control.items.size()),
          control.selected,  {place.x, place.y, place.width, place.height}};
}

} // namespace

bool TextFace::controlAt(int index, ControlInfo& info) const {
  if (index < 0 || index >= controlCount()) return false;
  info = describe(m_controls.all()[static_cast<std::size_t>(index)]);
  return true;
}

bool TextFace::control(int id, ControlInfo& info) const {
  const Control* found = m_controls.find(id);
  if (found) info = describe(*found);
  return found != nullptr;
}

const wchar_t* TextFace::item(int id, int index) const {
  const Control* found = m_controls.find(id);
  if (!found || index < 0 || index >= static_cast<int>(found->items.size())) return nullptr;
  return found->items[static_cast<std::size_t>(index)].c_str();
}

void TextFace::replaceText(int id, const OdString& text) {
  m_controls.at(id).text = text;
  m_events.onChange(id);
}

void TextFace::clickOn(int id) {
  Control& control = m_controls.at(id);
  if (control.kind != ControlKind::button) m_controls.check(control, !control.checked);
  reportPress(m_events, id);
}

void TextFace::chooseItem(int id, int item) {
  m_controls.at(id).selected = item;
  m_events.onChange(id);
}

void TextFace::strike(Key key) {
  const Control* focused = m_controls.find(m_focus);
  switch (key) {
  case Key::enter:
    if (focused && focused->kind == ControlKind::button) return reportPress(m_events, m_focus);
    return reportPress(m_events, defaultButton() ? defaultButton() : IDOK);
  case Key::escape: return m_events.onCancel();
  case Key::help: return m_events.onHelp();
  }
}

int TextFace::defaultButton() const {
  const Control* button = m_controls.defaultButton();
  return button ? button->id : 0;
}

} // namespace ui::text
