// The side of the text face that its user works: what can be seen of the controls, and the actions.
#include "res/resource.h"
#include "text_face.h"
#include <algorithm>

namespace ui::text {
namespace {

ControlInfo describe(const Control& control) {
  const bool chosen = control.holdsItems() && control.selected >= 0;
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

Outcome TextFace::refusal(int id, Kinds kinds) const {
  const Control* control = m_controls.find(id);
  if (!control) return Outcome::noSuchControl;
  if (std::ranges::find(kinds, control->kind) == kinds.end()) return Outcome::wrongKind;
  if (!control->shown) return Outcome::hidden;
  return control->enabled ? Outcome::done : Outcome::disabled;
}

/// While the dialog reacts to an action it stands behind whatever it opened, as a real one does.
Outcome TextFace::perform(const std::function<Outcome()>& action) {
  if (m_ended) return Outcome::ended;
  if (m_acting) return Outcome::disabled;
  m_acting = true;
  struct Reset {
    bool& flag;
    ~Reset() { flag = false; }
  } reset{m_acting};
  const Outcome outcome = action();
  if (outcome == Outcome::done) m_acted = true;
  return outcome;
}

Outcome TextFace::act(int id, Kinds kinds, const std::function<void(Control&)>& action) {
  return perform([&] {
    if (const Outcome refused = refusal(id, kinds); refused != Outcome::done) return refused;
    setFocus(id);
    // The control that was left may have reacted: refused its value, disabled this control, ended the dialog.
    if (m_ended) return Outcome::ended;
    if (m_focus != id) return Outcome::focusKept;
    const Outcome outcome = refusal(id, kinds);
    if (outcome == Outcome::done) action(m_controls.at(id));
    return outcome;
  });
}

Outcome TextFace::type(int id, const wchar_t* text) {
  return act(id, {ControlKind::edit}, [&](Control& control) {
    control.text = text;
    m_events.onChange(id);
  });
}

Outcome TextFace::tick(int id, bool on) {
  const auto toggle = [&](Control& control) {
    if (control.checked == on) return;
    m_controls.check(control, on);
    m_events.onPress(id);
  };
  if (on) return act(id, {ControlKind::checkBox, ControlKind::radioButton}, toggle);
  return act(id, {ControlKind::checkBox}, toggle);
}

Outcome TextFace::choose(int id, int item) {
  const Control* found = m_controls.find(id);
  if (found && found->holdsItems() && !this->item(id, item)) return Outcome::noSuchItem;
  return act(id, {ControlKind::comboBox, ControlKind::listBox}, [&](Control& control) {
    // Leaving the previous control may have shortened the list.
    if (item >= static_cast<int>(control.items.size())) return;
    control.selected = item;
    m_events.onChange(id);
  });
}

Outcome TextFace::press(int id) {
  return act(id, {ControlKind::button}, [&](Control&) { reportPress(m_events, id); });
}

/// No kind of control has a context menu.
Outcome TextFace::pickMenuItem(int id, const wchar_t*) {
  return m_controls.find(id) ? Outcome::wrongKind : Outcome::noSuchControl;
}

Outcome TextFace::moveFocus(int id) {
  return act(id,
             {ControlKind::button, ControlKind::checkBox, ControlKind::radioButton, ControlKind::edit,
              ControlKind::comboBox, ControlKind::listBox},
             [](Control&) {});
}

Outcome TextFace::leave() {
  const int next = m_controls.nextTabStop(m_focus);
  return next ? moveFocus(next) : Outcome::noSuchControl;
}

/// A key does not move the focus: the control that has it is left only when the dialog ends.
Outcome TextFace::enter() {
  return perform([&] {
    const Control* focused = m_controls.find(m_focus);
    const Control* button =
        focused && focused->kind == ControlKind::button ? focused : m_controls.defaultButton();
    if (button)
      if (const Outcome refused = refusal(button->id, {ControlKind::button}); refused != Outcome::done)
        return refused;
    reportPress(m_events, button ? button->id : IDOK);
    return Outcome::done;
  });
}

Outcome TextFace::escape() {
  return perform([&] {
    const Control* button = m_controls.find(IDCANCEL);
    if (button && !button->enabled) return Outcome::disabled;
    m_events.onCancel();
    return Outcome::done;
  });
}

Outcome TextFace::help() {
  return perform([&] {
    m_events.onHelp();
    return Outcome::done;
  });
}

} // namespace ui::text
