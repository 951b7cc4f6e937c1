#include "worked_dialog.h"
#include "dialog.h"
#include "questions.h"
#include "res/strings.h"
#include <algorithm>

namespace ui {
namespace {

/// A user that does nothing so many times running would go on forever.
constexpr int mostVainTurns = 100;

constexpr std::initializer_list<ControlKind> focusable = {
    ControlKind::button,   ControlKind::checkBox, ControlKind::radioButton,
    ControlKind::edit,     ControlKind::comboBox, ControlKind::listBox,
    ControlKind::richEdit, ControlKind::listView, ControlKind::tabs};

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
  if (!info.shown || !isVisible()) return Outcome::hidden;
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

Outcome WorkedDialog::act(int id, Kinds kinds, const std::function<Outcome()>& action) {
  return perform([&] {
    if (const Outcome refused = refusal(id, kinds); refused != Outcome::done) return refused;
    moveTo(id);
    // The control that was left may have reacted: refused its value, disabled this control, ended the dialog.
    if (m_ended) return Outcome::ended;
    if (focus() != id) return Outcome::focusKept;
    const Outcome outcome = refusal(id, kinds);
    return outcome == Outcome::done ? action() : outcome;
  });
}

Outcome WorkedDialog::type(int id, const wchar_t* text) {
  ControlInfo info;
  if (control(id, info) && info.kind == ControlKind::comboBox && !info.editable) return Outcome::wrongKind;
  return act(id, {ControlKind::edit, ControlKind::richEdit, ControlKind::comboBox}, [&] {
    ControlInfo now;
    if (control(id, now) && OdString(now.text) != text) replaceText(id, text);
    return Outcome::done;
  });
}

Outcome WorkedDialog::tick(int id, bool on) {
  const auto toggle = [&] {
    ControlInfo info;
    if (control(id, info) && info.checked != on) clickOn(id);
    return Outcome::done;
  };
  if (on) return act(id, {ControlKind::checkBox, ControlKind::radioButton}, toggle);
  return act(id, {ControlKind::checkBox}, toggle);
}

Outcome WorkedDialog::choose(int id, int item) {
  static constexpr Kinds lists = {ControlKind::comboBox, ControlKind::listBox, ControlKind::listView};
  ControlInfo info;
  if (!control(id, info)) return Outcome::noSuchControl;
  const bool isTabs = info.kind == ControlKind::tabs;
  if (!isTabs && std::ranges::find(lists, info.kind) == lists.end()) return Outcome::wrongKind;
  if (!this->item(id, item)) return Outcome::noSuchItem;
  if (isTabs) return turn(id, item);
  return act(id, lists, [&] {
    // Leaving the previous control may have shortened the list.
    if (this->item(id, item)) chooseItem(id, item);
    return Outcome::done;
  });
}

/// The open page is told before its control loses the focus, so the tabs do not take it first.
Outcome WorkedDialog::turn(int id, int page) {
  return perform([&] {
    if (const Outcome refused = refusal(id, {ControlKind::tabs}); refused != Outcome::done) return refused;
    turnTo(id, page);
    if (m_ended) return Outcome::ended;
    ControlInfo info;
    return control(id, info) && info.selectedItem == page ? Outcome::done : Outcome::focusKept;
  });
}

Outcome WorkedDialog::press(int id) {
  return act(id, {ControlKind::button}, [&] { return clickOn(id), Outcome::done; });
}

Outcome WorkedDialog::selectText(int id, TextRange range) {
  return act(id, {ControlKind::edit, ControlKind::richEdit},
             [&] { return selectRange(id, range), Outcome::done; });
}

Outcome WorkedDialog::doubleClick(int id) {
  ControlInfo info;
  if (control(id, info) && info.kind == ControlKind::listView && info.selectedItem < 0)
    return Outcome::noSuchItem;
  return act(id, {ControlKind::listView, ControlKind::richEdit},
             [&] { return clickTwice(id), Outcome::done; });
}

const wchar_t* WorkedDialog::menuItem(int id, int index) {
  ControlInfo info;
  if (m_ended || !control(id, info)) return nullptr;
  if (index <= 0) m_shownMenu = menuOf(id);
  if (index < 0 || index >= static_cast<int>(m_shownMenu.size())) return nullptr;
  return m_shownMenu[static_cast<std::size_t>(index)].text.c_str();
}

Outcome WorkedDialog::pickMenuItem(int id, int item) {
  return act(id, focusable, [&] {
    const Menu menu = menuOf(id);
    if (menu.empty()) return Outcome::wrongKind;
    const auto index = static_cast<std::size_t>(item);
    if (item < 0 || index >= menu.size() || menu[index].command == 0) return Outcome::noSuchItem;
    if (!menu[index].enabled) return Outcome::disabled;
    return chooseCommand(id, menu[index].command), Outcome::done;
  });
}

Outcome WorkedDialog::moveFocus(int id) {
  return act(id, focusable, [] { return Outcome::done; });
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
