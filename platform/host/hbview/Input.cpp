#include "Input.h"

namespace host {

namespace {

constexpr wchar_t kEscapeLine[] = L"^C";

bool isComment(const std::string& line) {
  const std::size_t start = line.find_first_not_of(" \t");
  return start != std::string::npos && line[start] == ';';
}

} // namespace

ScriptEnded::ScriptEnded(const std::string& place, const std::string& prompt)
    : std::runtime_error(place + ": the script ends at the prompt \"" + prompt +
                         "\", which needs an answer.") {}

std::optional<OdString> Input::nextCommand(const OdString& prompt) {
  for (;;) {
    const std::optional<std::string> line = m_console->readLine(prompt.toUtf8());
    if (!line) return std::nullopt;
    if (!isComment(*line)) return OdString::fromUtf8(*line);
  }
}

OdString Input::nextAnswer(const OdString& prompt) {
  if (std::optional<OdString> line = nextCommand(prompt)) return *std::move(line);
  if (m_console->isTerminal()) return kEscapeLine;
  throw ScriptEnded(m_console->place(), OdString(prompt).trimRight().toUtf8());
}

bool Input::isEscape(const OdString& line) {
  constexpr wchar_t kControlC = 3;
  OdString text = line;
  return text.trimLeft().trimRight().iCompare(kEscapeLine) == 0 || line.find(kControlC) >= 0;
}

void Input::print(const OdString& text) const { m_console->print(text.toUtf8()); }

void Input::complain(const OdString& text) const {
  report(text);
  m_console->lineRefused();
}

void Input::report(const OdString& text) const {
  print(m_console->isTerminal() ? text : OdString::fromUtf8(m_console->place()) + L": " + text);
}

} // namespace host
