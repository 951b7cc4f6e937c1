// Lines typed in the system's console window, which has an editor, history and completion of file names of its own.
#include "terminal_console.h"
#include "sys/windows/console.h"
#include <iostream>

namespace app {

class TerminalConsole::Editor {};

TerminalConsole::TerminalConsole(std::string) {}

TerminalConsole::~TerminalConsole() = default;

void TerminalConsole::setNames(std::function<std::vector<std::string>()>) {}

std::optional<std::string> TerminalConsole::readLine(const std::string& prompt) {
  std::cerr << prompt << std::flush;
  std::optional<std::string> line = sys::readConsoleLine();
  if (!line) std::cerr << std::endl;
  return line;
}

void TerminalConsole::print(const std::string& line) { std::cerr << line << std::endl; }

} // namespace app
