#include "ui/line_user.h"
#include "controls.h"
#include "listing.h"
#include "names.h"
#include "words.h"
#include <algorithm>
#include <array>
#include <cwchar>

namespace ui {
namespace {

using namespace line;

enum class Verb { show, set, select, tick, untick, choose, row, open, press, menu, leave };

struct Command {
  const wchar_t* word;
  Verb verb;
  const wchar_t* form;
  Deed deed;
};

const std::array<Command, 11>& commands() {
  using enum ControlKind;
  static const std::array<Command, 11> all = {{
      {L"show", Verb::show, L"show", {}},
      {L"set", Verb::set, L"set NAME = VALUE", {L"set", {edit, richEdit, comboBox}}},
      {L"select", Verb::select, L"select NAME = TEXT", {L"selected in", {edit, richEdit}}},
      {L"tick", Verb::tick, L"tick NAME", {L"ticked", {checkBox, radioButton}}},
      {L"untick", Verb::untick, L"untick NAME", {L"unticked", {checkBox}}},
      {L"choose", Verb::choose, L"choose NAME = ITEM", {L"chosen from", {comboBox, listBox, listView, tabs}}},
      {L"row", Verb::row, L"row NAME = N", {L"chosen from", {comboBox, listBox, listView, tabs}}},
      {L"open", Verb::open, L"open NAME", {L"opened", {richEdit, listView}}},
      {L"press", Verb::press, L"press NAME", {L"pressed", {button}}},
      {L"menu",
       Verb::menu,
       L"menu NAME = ITEM",
       {L"asked for a menu",
        {button, checkBox, radioButton, edit, comboBox, listBox, richEdit, listView, tabs}}},
      {L"leave", Verb::leave, L"leave", {}},
  }};
  return all;
}

/// What a line cannot be carried out for; printed, and the next line is taken.
struct Complaint {
  OdString sentence;
};

OdString ambiguous(const OdString& typed, const std::vector<OdString>& names,
                   const std::vector<std::size_t>& found) {
  std::vector<OdString> meant;
  meant.reserve(found.size());
  for (const std::size_t i : found) meant.push_back(names[i]);
  return quoted(typed) + L" may be " + listed(meant) + L".";
}

const Command& commandOf(const OdString& word) {
  std::vector<OdString> words;
  for (const Command& command : commands()) words.emplace_back(command.word);
  const std::vector<std::size_t> found = matches(words, word);
  if (found.size() == 1) return commands()[found.front()];
  if (found.empty())
    throw Complaint{quoted(word) + L" is no command of a dialog. Did you mean " +
                    listed(nearest(words, word)) + L"? Type ? for the commands."};
  throw Complaint{ambiguous(word, words, found)};
}

/// NAME = VALUE
struct Assignment {
  OdString name, value;
};

Assignment assignmentOf(const OdString& text, const Command& command) {
  const int equals = text.find(L'=');
  if (equals < 0) throw Complaint{OdString(L"Write it as: ") + command.form};
  return {trimmed(text.left(equals)), unquoted(trimmed(text.mid(equals + 1)))};
}

NamedControl controlOf(const OpenDialog& dialog, const OdString& name, const Command& command) {
  if (name.isEmpty()) throw Complaint{OdString(L"Write it as: ") + command.form};
  auto found = findControl(dialog, name, command.deed);
  if (const OdString* sentence = std::get_if<OdString>(&found)) throw Complaint{*sentence};
  return std::get<NamedControl>(found);
}

int itemNamed(const std::vector<OdString>& items, const OdString& owner, const OdString& typed) {
  const std::vector<std::size_t> found = matches(items, typed);
  if (found.size() == 1) return static_cast<int>(found.front());
  if (!found.empty()) throw Complaint{ambiguous(typed, items, found)};
  OdString sentence = owner + L" has no item " + quoted(typed) + L".";
  if (!items.empty()) sentence += L" Did you mean " + listed(nearest(items, typed)) + L"?";
  throw Complaint{sentence};
}

int rowNumbered(const OdString& typed) {
  wchar_t* end = nullptr;
  const long row = std::wcstol(typed.c_str(), &end, 10);
  if (typed.isEmpty() || *end != 0 || row < 1 || row > 1'000'000)
    throw Complaint{quoted(typed) + L" is no row number: rows are counted from 1."};
  return static_cast<int>(row - 1);
}

OdString explained(Outcome outcome, const OdString& name) {
  switch (outcome) {
  case Outcome::disabled: return quoted(name) + L" is disabled.";
  case Outcome::hidden: return quoted(name) + L" is not shown.";
  case Outcome::focusKept:
    return quoted(name) + L" was not reached: the dialog went back to another control.";
  case Outcome::noSuchItem: return quoted(name) + L" does not have so many rows.";
  case Outcome::noSuchControl: return name + L" does not exist.";
  case Outcome::wrongKind: return quoted(name) + L" does not take this command.";
  case Outcome::done:
  case Outcome::ended: break;
  }
  return {};
}

void require(Outcome outcome, const OdString& name) {
  const OdString sentence = explained(outcome, name);
  if (!sentence.isEmpty()) throw Complaint{sentence};
}

/// The first place of a text; of no text, the end.
TextRange rangeOf(const NamedControl& control, const OdString& text) {
  const int length = control.text.getLength();
  if (text.isEmpty()) return {length, length};
  const int begin = control.text.find(text);
  if (begin < 0) throw Complaint{quoted(control.name) + L" does not contain " + quoted(text) + L"."};
  return {begin, begin + text.getLength()};
}

void assign(OpenDialog& dialog, const OdString& rest, const Command& command) {
  const Assignment assignment = assignmentOf(rest, command);
  const NamedControl control = controlOf(dialog, assignment.name, command);
  const int id = control.info.id;
  if (command.verb == Verb::set) {
    if (control.info.kind == ControlKind::comboBox && !control.info.editable)
      throw Complaint{quoted(control.name) + L" cannot be set, but chosen from."};
    return require(dialog.type(id, assignment.value), control.name);
  }
  if (command.verb == Verb::select)
    return require(dialog.selectText(id, rangeOf(control, assignment.value)), control.name);
  const int item = command.verb == Verb::row
                       ? rowNumbered(assignment.value)
                       : itemNamed(itemsOf(dialog, id), quoted(control.name), assignment.value);
  require(dialog.choose(id, item), control.name);
}

std::vector<OdString> menuOf(OpenDialog& dialog, int id) {
  std::vector<OdString> items;
  while (const wchar_t* item = dialog.menuItem(id, static_cast<int>(items.size())))
    items.push_back(plainLabel(withoutMnemonics(item)));
  return items;
}

void openMenu(OpenDialog& dialog, const OdString& rest, const Command& command) {
  const Assignment assignment = assignmentOf(rest, command);
  const NamedControl control = controlOf(dialog, assignment.name, command);
  const int id = control.info.id;
  // The menu may depend on where the focus is and on what the way there brings about.
  require(dialog.moveFocus(id), control.name);
  const std::vector<OdString> items = menuOf(dialog, id);
  if (items.empty()) throw Complaint{quoted(control.name) + L" has no context menu."};
  const int item = itemNamed(items, L"The menu of " + quoted(control.name), plainLabel(assignment.value));
  const Outcome outcome = dialog.pickMenuItem(id, item);
  if (outcome == Outcome::disabled)
    throw Complaint{quoted(items[static_cast<std::size_t>(item)]) + L" is disabled in the menu of " +
                    quoted(control.name) + L"."};
  require(outcome, control.name);
}

void open(OpenDialog& dialog, const OdString& name, const Command& command) {
  const NamedControl control = controlOf(dialog, name, command);
  const Outcome outcome = dialog.doubleClick(control.info.id);
  if (outcome == Outcome::noSuchItem) throw Complaint{quoted(control.name) + L" has no row chosen."};
  require(outcome, control.name);
}

void click(OpenDialog& dialog, const OdString& name, const Command& command) {
  const NamedControl control = controlOf(dialog, name, command);
  const int id = control.info.id;
  require(command.verb == Verb::press ? dialog.press(id) : dialog.tick(id, command.verb == Verb::tick),
          control.name);
}

/// Unlike the Enter key whatever button has the focus: the focus cannot be seen in lines.
void pressDefault(OpenDialog& dialog) {
  const std::vector<NamedControl> controls = controlsOf(dialog);
  const auto found =
      std::ranges::find_if(controls, [](const NamedControl& control) { return control.info.isDefault; });
  if (found == controls.end()) return require(dialog.enter(), L"The default button");
  require(dialog.press(found->info.id), found->name);
}

void carryOut(OpenDialog& dialog, const Command& command, const OdString& rest) {
  switch (command.verb) {
  case Verb::set:
  case Verb::select:
  case Verb::choose:
  case Verb::row: return assign(dialog, rest, command);
  case Verb::open: return open(dialog, rest, command);
  case Verb::tick:
  case Verb::untick:
  case Verb::press: return click(dialog, rest, command);
  case Verb::menu: return openMenu(dialog, rest, command);
  case Verb::leave: return require(dialog.leave(), L"The next control");
  case Verb::show: break;
  }
}

} // namespace

void LineUser::show(const OpenDialog& dialog) {
  for (const OdString& text : listing(dialog)) m_print(text);
}

void LineUser::drive(OpenDialog& dialog) {
  const OdString prompt = OdString(dialog.title()) + L"> ";
  for (bool acted = false; !acted && !dialog.hasEnded();) {
    const OdString text = m_nextLine(prompt);
    try {
      acted = obey(dialog, text);
    } catch (const Complaint& complaint) {
      complain(complaint.sentence);
    }
  }
}

bool LineUser::obey(OpenDialog& dialog, const OdString& text) {
  const Words words = splitFirst(text);
  if (words.first == L"?") {
    for (const Command& command : commands()) m_print(OdString(L"  ") + command.form);
    return false;
  }
  if (words.first.isEmpty()) {
    pressDefault(dialog);
  } else if (words.first == L"^C") {
    require(dialog.escape(), L"Cancel");
  } else {
    const Command& command = commandOf(words.first);
    if (command.verb == Verb::show) {
      show(dialog);
      return false;
    }
    carryOut(dialog, command, words.rest);
  }
  return true;
}

} // namespace ui
