#pragma once
#include "Console.h"
#include "OdString.h"
#include <functional>
#include <stdexcept>

namespace host {

/// A script ended where an answer was needed. The sentence names the place and the prompt.
class ScriptEnded : public std::runtime_error {
public:
  ScriptEnded(const std::string& place, const std::string& prompt);
};

/// The lines of a session's console without its comment lines, which begin with a semicolon.
class Input {
public:
  explicit Input(Console& console) : m_console(&console) {}
  /// Goes on with another console, which must outlive the session.
  void setConsole(Console& console) { m_console = &console; }
  Console& console() const { return *m_console; }

  /// The next line at the command prompt; nothing at the end of the input.
  std::optional<OdString> nextCommand(const OdString& prompt);
  /// The answer to a prompt. Throws ScriptEnded when there is none; at a terminal the end of input is an Esc.
  OdString nextAnswer(const OdString& prompt);
  /// Whether a line stands for Esc: "^C", or the control character itself.
  static bool isEscape(const OdString& line);

  /// Sees to lines that mean the same at every prompt, which waits on: true for such a line. A prompt for a
  /// text takes them as its answer.
  using PromptCommand = std::function<bool(const OdString& line)>;
  void setPromptCommand(PromptCommand command) { m_promptCommand = std::move(command); }
  bool runPromptCommand(const OdString& line) const { return m_promptCommand && m_promptCommand(line); }

  void print(const OdString& text) const;
  /// Prints what is wrong with the last line, after its place where nobody saw it being typed.
  void complain(const OdString& text) const;
  /// Prints, in the same way, what went wrong although the line was right.
  void report(const OdString& text) const;

private:
  Console* m_console;
  PromptCommand m_promptCommand;
};

} // namespace host
