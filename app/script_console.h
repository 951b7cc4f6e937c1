#pragma once
#include "hbview/Console.h"
#include <istream>
#include <vector>

namespace app {

/// A session's lines out of --command arguments and a stream. What is printed goes to standard error.
class ScriptConsole final : public host::Console {
public:
  /// The commands come first. `stream` may be null; `name` stands for it in messages. With `echo`, prompts
  /// and answers are printed as a terminal would show them.
  ScriptConsole(std::vector<std::string> commands, std::istream* stream, std::string name, bool echo);

  std::optional<std::string> readLine(const std::string& prompt) override;
  void print(const std::string& line) override;
  void lineRefused() override { m_refused = true; }
  std::string place() const override;
  bool isTerminal() const override { return false; }
  /// Whether any line was no answer to its prompt, or no command.
  bool hasRefusedLine() const { return m_refused; }

private:
  std::optional<std::string> nextLine();

  std::vector<std::string> m_commands;
  std::istream* m_stream;
  std::string m_name;
  bool m_echo;
  bool m_refused = false;
  std::size_t m_commandsRead = 0;
  std::size_t m_linesRead = 0;
};

} // namespace app
