#pragma once
#include "hbview/Console.h"
#include <functional>
#include <memory>
#include <vector>

namespace app {

/// A person at a terminal: lines can be edited, earlier ones come back with the arrow keys (also in later
/// sessions), and the Tab key completes command names. Ctrl+C is Esc, Ctrl+D the end of input.
class TerminalConsole final : public host::Console {
public:
  /// `commandPrompt` is the prompt at which Tab completes.
  explicit TerminalConsole(std::string commandPrompt);
  ~TerminalConsole() override;
  TerminalConsole(const TerminalConsole&) = delete;
  TerminalConsole& operator=(const TerminalConsole&) = delete;

  /// Where the names for Tab come from.
  void setNames(std::function<std::vector<std::string>()> names);

  std::optional<std::string> readLine(const std::string& prompt) override;
  void print(const std::string& line) override;
  std::string place() const override { return "terminal"; }
  bool isTerminal() const override { return true; }

private:
  class Editor;
  std::unique_ptr<Editor> m_editor;
};

} // namespace app
