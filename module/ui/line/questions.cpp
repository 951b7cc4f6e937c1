// Message boxes and file questions, asked and answered as lines.
#include "names.h"
#include "ui/line_user.h"
#include "words.h"
#include <algorithm>

namespace ui {
namespace {

using namespace line;

struct Button {
  const wchar_t* label;
  MessageAnswer answer;
};

std::vector<Button> buttonsOf(MessageButtons buttons) {
  const Button ok{L"OK", MessageAnswer::ok}, cancel{L"Cancel", MessageAnswer::cancel},
      yes{L"Yes", MessageAnswer::yes}, no{L"No", MessageAnswer::no};
  switch (buttons) {
  case MessageButtons::ok: return {ok};
  case MessageButtons::okCancel: return {ok, cancel};
  case MessageButtons::yesNo: return {yes, no};
  case MessageButtons::yesNoCancel: return {yes, no, cancel};
  }
  return {ok};
}

OdString iconWord(MessageIcon icon) {
  switch (icon) {
  case MessageIcon::error: return L" (error)";
  case MessageIcon::question: return L" (question)";
  case MessageIcon::warning: return L" (warning)";
  case MessageIcon::information:
  case MessageIcon::none: break;
  }
  return {};
}

/// What `^C` presses: Cancel, or OK where it is alone.
const Button* escapeButton(const std::vector<Button>& buttons) {
  const auto cancel = std::ranges::find(buttons, MessageAnswer::cancel, &Button::answer);
  if (cancel != buttons.end()) return &*cancel;
  return buttons.size() == 1 ? &buttons.front() : nullptr;
}

const Button* buttonTyped(const std::vector<Button>& buttons, const OdString& line) {
  const Words words = splitFirst(line);
  const OdString name = words.first.iCompare(L"press") == 0 ? words.rest : trimmed(line);
  if (name.isEmpty()) return &buttons.front();
  if (name == L"^C") return escapeButton(buttons);
  std::vector<OdString> labels;
  labels.reserve(buttons.size());
  for (const Button& button : buttons) labels.emplace_back(button.label);
  const std::vector<std::size_t> found = matches(labels, name);
  return found.size() == 1 ? &buttons[found.front()] : nullptr;
}

/// "A (*.a)|*.a|All (*.*)|*.*||" as "A (*.a), All (*.*)".
OdString filterNames(const OdString& filter) {
  OdString names;
  int start = 0;
  for (bool isName = true; start < filter.getLength(); isName = !isName) {
    const int bar = filter.find(L'|', start);
    const int end = bar < 0 ? filter.getLength() : bar;
    if (isName && end > start)
      names += (names.isEmpty() ? OdString() : OdString(L", ")) + filter.mid(start, end - start);
    start = end + 1;
  }
  return names;
}

bool isPattern(const OdString& name) {
  return name.isEmpty() || name.find(L'*') >= 0 || name.find(L'?') >= 0;
}

/// The path that a line gives: the offered one for Enter and the button, else what is typed.
OdString pathTyped(const OdString& line, const OdString& offered) {
  const Words words = splitFirst(line);
  const bool accept = words.first.isEmpty() || words.first.iCompare(L"press") == 0;
  if (accept) return isPattern(offered) ? OdString() : offered;
  const int equals = words.rest.find(L'=');
  const bool set = words.first.iCompare(L"set") == 0 && equals >= 0 &&
                   trimmed(words.rest.left(equals)).iCompare(L"file") == 0;
  return unquoted(set ? trimmed(words.rest.mid(equals + 1)) : trimmed(line));
}

bool isCancel(const OdString& line) {
  const Words words = splitFirst(line);
  return trimmed(line) == L"^C" ||
         (words.first.iCompare(L"press") == 0 && words.rest.iCompare(L"cancel") == 0);
}

std::vector<OdString> linesOf(const OdString& text) {
  std::vector<OdString> lines;
  for (int start = 0; start <= text.getLength();) {
    const int feed = text.find(L'\n', start);
    const int end = feed < 0 ? text.getLength() : feed;
    lines.push_back(text.mid(start, end - start).trimRight());
    start = end + 1;
  }
  return lines;
}

} // namespace

MessageAnswer LineUser::answerMessage(const MessageQuestion& question) {
  const std::vector<Button> buttons = buttonsOf(question.buttons);
  OdString offered;
  for (const Button& button : buttons)
    offered += OdString(offered.isEmpty() ? L"[" : L"  [") + button.label + L"]";
  m_print(OdString(question.caption) + iconWord(question.icon));
  for (const OdString& text : linesOf(question.text)) m_print(L"  " + text);
  m_print(L"  " + offered);
  for (;;) {
    const OdString typed = m_nextLine(OdString(question.caption) + L"> ");
    if (const Button* button = buttonTyped(buttons, typed)) return button->answer;
    complain(quoted(trimmed(typed)) + L" is no button of this message: " + offered);
  }
}

const wchar_t* LineUser::answerFile(const FileQuestion& question) {
  const OdString offered = question.initialPath[0] ? question.initialPath : question.defaultName;
  m_print((question.save ? L"Save to a file: " : L"Open a file: ") + filterNames(question.filter));
  m_print(L"  file = " + offered);
  for (;;) {
    const OdString typed = m_nextLine(L"file> ");
    if (isCancel(typed)) return nullptr;
    m_path = pathTyped(typed, offered);
    if (!m_path.isEmpty()) return m_path.c_str();
    complain(L"A path is needed; ^C cancels.");
  }
}

} // namespace ui
