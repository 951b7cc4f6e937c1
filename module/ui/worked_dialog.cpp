#include "worked_dialog.h"
#include "dialog.h"
#include "questions.h"
#include "res/strings.h"
#include <algorithm>

namespace ui {
namespace {

/// A user that does nothing so many times running would go on forever.
constexpr int mostVainTurns = 100;

} // namespace

void WorkedDialog::giveTurn(DialogUser& user, const OdString& title) {
  m_acted = false;
  user.drive(*this);
  m_vainTurns = m_acted ? 0 : m_vainTurns + 1;
  if (!m_ended && m_vainTurns == mostVainTurns) throw DialogError(sentence(IDS_DIALOG_USER_IDLE, title));
}

Outcome WorkedDialog::refusal(int id, Kinds kinds) const {
  ControlInfo info;
  if (!control(id, info)) return Outcome::noSuchControl;
  if (std::ranges::find(kinds, info.kind) == kinds.end()) return Outcome::wrongKind;
  if (!info.shown) return Outcome::hidden;
  return info.enabled ? Outcome::done : Outcome::disabled;
}

/// While the dialog reacts to an action it stands behind whatever it opened.
Outcome WorkedDialog::perform(const std::function<Outcome()>& action) {
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

Outcome WorkedDialog::act(int id, Kinds kinds, const std::function<void()>& action) {
  return perform([&] {
    if (const Outcome refused = refusal(id, kinds); refused != Outcome::done) return refused;
    moveTo(id);
    // The control that was left may have reacted: refused its value, disabled this control, ended the dialog.
    if (m_ended) return Outcome::ended;
    if (focus() != id) return Outcome::focusKept;
    const Outcome outcome = refusal(id, kinds);
    if (outcome == Outcome::done) action();
    return outcome;
  });
}

Outcome WorkedDialog::type(int id, const wchar_t* text) {
  return act(id, {ControlKind::edit}, [&] {
    ControlInfo info;
    if (control(id, info) && OdString(info.text) != text) replaceText(id, text);
  });
}

Outcome WorkedDialog::tick(int id, bool on) {
  const auto toggle = [&] {
    ControlInfo info;
    if (control(id, info) && info.checked != on) clickOn(id);
  };
  if (on) return act(id, {ControlKind::checkBox, ControlKind::radioButton}, toggle);
  return act(id, {ControlKind::checkBox}, toggle);
}

Outcome WorkedDialog::choose(int id, int item) {
  ControlInfo info;
  const bool holdsItems =
      control(id, info) && (info.kind == ControlKind::comboBox || info.kind == ControlKind::listBox);
  if (holdsItems && !this->item(id, item)) return Outcome::noSuchItem;
  return act(id, {ControlKind::comboBox, ControlKind::listBox}, [&] {
    // Leaving the previous control may have shortened the list.
    if (this->item(id, item)) chooseItem(id, item);
  });
}

Outcome WorkedDialog::press(int id) {
  return act(id, {ControlKind::button}, [&] { clickOn(id); });
}

/// No kind of control has a context menu.
Outcome WorkedDialog::pickMenuItem(int id, const wchar_t*) {
  ControlInfo info;
  return control(id, info) ? Outcome::wrongKind : Outcome::noSuchControl;
}

Outcome WorkedDialog::moveFocus(int id) {
  return act(id,
             {ControlKind::button, ControlKind::checkBox, ControlKind::radioButton, ControlKind::edit,
              ControlKind::comboBox, ControlKind::listBox},
             [] {});
}

Outcome WorkedDialog::leave() {
  const int next = nextTabStop();
  return next ? moveFocus(next) : Outcome::noSuchControl;
}

bool WorkedDialog::isButton(int id) const {
  ControlInfo info;
  return control(id, info) && info.kind == ControlKind::button;
}

/// A key does not move the focus: the control that has it is left only when the dialog ends.
Outcome WorkedDialog::enter() {
  return perform([&] {
    const int button = isButton(focus()) ? focus() : defaultButton();
    if (button)
      if (const Outcome refused = refusal(button, {ControlKind::button}); refused != Outcome::done)
        return refused;
    strike(Key::enter);
    return Outcome::done;
  });
}

Outcome WorkedDialog::escape() {
  return perform([&] {
    ControlInfo cancel;
    if (control(IDCANCEL, cancel) && !cancel.enabled) return Outcome::disabled;
    strike(Key::escape);
    return Outcome::done;
  });
}

Outcome WorkedDialog::help() {
  return perform([&] {
    strike(Key::help);
    return Outcome::done;
  });
}

} // namespace ui
