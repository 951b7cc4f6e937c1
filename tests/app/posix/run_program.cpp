// Runs the program by the shell.
#include "program.h"
#include <cstdlib>
#include <sys/wait.h>

namespace fs = std::filesystem;

namespace {

std::string quoted(const std::string& argument) {
  std::string text = "'";
  for (const char c : argument) text += c == '\'' ? "'\\''" : std::string(1, c);
  return text + "'";
}

} // namespace

Outcome Workplace::run(const std::string& line) const {
  const std::string program = fs::path(HBHOST).parent_path().string();
  const std::string command = "cd " + quoted(m_folder.string()) + " && HOME=$PWD PATH=" + quoted(program) +
                              ":$PATH && " + "unset XDG_CONFIG_HOME XDG_STATE_HOME HBHOST_PROFILE && { " +
                              line + "\n} <.streams/in >.streams/out 2>.streams/err";
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, read(".streams/out"), read(".streams/err")};
}

Outcome Workplace::hbhost(const std::vector<std::string>& arguments, const std::string& input) const {
  write(".streams/in", input);
  std::string line = "hbhost";
  for (const std::string& argument : arguments) line += " " + quoted(argument);
  return run(line);
}

Outcome Workplace::shell(const std::string& line) const {
  write(".streams/in", "");
  return run("{ " + line + "\n} 2>&1");
}
