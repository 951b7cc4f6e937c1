#include "terminal.h"
#include <csignal>
#include <cstdlib>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int kMoments = 600, kMomentMilliseconds = 50;

[[noreturn]] void becomeProgram(const Workplace& workplace, const std::vector<std::string>& arguments) {
  const std::string home = workplace.path("").string();
  if (chdir(home.c_str()) != 0) std::_Exit(126);
  setenv("HOME", home.c_str(), 1);
  setenv("TERM", "xterm", 1);
  for (const char* variable : {"XDG_CONFIG_HOME", "XDG_STATE_HOME", "HBHOST_PROFILE"}) unsetenv(variable);
  std::vector<char*> pointers = {const_cast<char*>(HBHOST)};
  for (const std::string& argument : arguments) pointers.push_back(const_cast<char*>(argument.c_str()));
  pointers.push_back(nullptr);
  execv(HBHOST, pointers.data());
  std::_Exit(127);
}

} // namespace

Terminal::Terminal(const Workplace& workplace, const std::vector<std::string>& arguments) {
  m_process = forkpty(&m_terminal, nullptr, nullptr, nullptr);
  if (m_process == 0) becomeProgram(workplace, arguments);
}

Terminal::~Terminal() {
  if (m_process > 0) {
    kill(m_process, SIGKILL);
    waitpid(m_process, nullptr, 0);
  }
  close(m_terminal);
}

void Terminal::listen() {
  pollfd watched{m_terminal, POLLIN, 0};
  if (poll(&watched, 1, kMomentMilliseconds) <= 0) return;
  char buffer[4096];
  const ssize_t count = read(m_terminal, buffer, sizeof buffer);
  if (count > 0)
    m_screen.append(buffer, static_cast<std::size_t>(count));
  else
    usleep(kMomentMilliseconds * 1000); // the program has hung up and will end soon
}

bool Terminal::shows(const std::string& text) {
  for (int moment = 0; moment < kMoments; ++moment) {
    const std::size_t at = m_screen.find(text, m_seen);
    if (at != std::string::npos) {
      m_seen = at + text.size();
      return true;
    }
    listen();
  }
  return false;
}

void Terminal::type(const std::string& keys) const {
  for (std::size_t sent = 0; sent < keys.size();) {
    const ssize_t count = write(m_terminal, keys.data() + sent, keys.size() - sent);
    if (count <= 0) return;
    sent += static_cast<std::size_t>(count);
  }
}

int Terminal::end() {
  for (int moment = 0; moment < kMoments; ++moment) {
    listen();
    int status = 0;
    if (waitpid(m_process, &status, WNOHANG) != m_process) continue;
    m_process = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  return -1;
}
