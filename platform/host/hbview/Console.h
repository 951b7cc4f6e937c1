#pragma once
#include <optional>
#include <string>

namespace host {

/// Where a session's lines come from and go to: a terminal, a script, a pipe. All texts are UTF-8 without
/// line ends.
class Console {
public:
  virtual ~Console() = default;
  /// Shows the prompt and gives the next line; nothing when there are no more.
  virtual std::optional<std::string> readLine(const std::string& prompt) = 0;
  virtual void print(const std::string& line) = 0;
  /// Called when the last line was no answer to its prompt, or no command; the user has been told.
  virtual void lineRefused() {}
  /// Where the last line stood, such as "plan.scr:12".
  virtual std::string place() const = 0;
  /// Whether a person types. The end of input then means Esc; elsewhere it leaves a prompt without an answer,
  /// which is an error.
  virtual bool isTerminal() const = 0;
};

} // namespace host
