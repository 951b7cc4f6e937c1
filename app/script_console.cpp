#include "script_console.h"
#include <iostream>

namespace app {

ScriptConsole::ScriptConsole(std::vector<std::string> commands, std::istream* stream, std::string name,
                             bool echo)
    : m_commands(std::move(commands)), m_stream(stream), m_name(std::move(name)), m_echo(echo) {}

std::optional<std::string> ScriptConsole::nextLine() {
  if (m_commandsRead < m_commands.size()) return m_commands[m_commandsRead++];
  std::string line;
  if (!m_stream || !std::getline(*m_stream, line)) return std::nullopt;
  if (++m_linesRead == 1 && line.starts_with("\xEF\xBB\xBF")) line.erase(0, 3);
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

std::optional<std::string> ScriptConsole::readLine(const std::string& prompt) {
  std::optional<std::string> line = nextLine();
  if (m_echo && line) print(prompt + *line);
  return line;
}

void ScriptConsole::print(const std::string& line) { std::cerr << line << '\n'; }

std::string ScriptConsole::place() const {
  if (m_linesRead == 0 && !m_commands.empty()) return "--command " + std::to_string(m_commandsRead);
  return m_name + ":" + std::to_string(m_linesRead);
}

} // namespace app
