#pragma once
#include "program.h"
#include <sys/types.h>

/// hbhost at a terminal of its own.
class Terminal {
public:
  Terminal(const Workplace& workplace, const std::vector<std::string>& arguments);
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  /// Waits until the screen shows this text behind what was waited for before; false after some seconds.
  bool shows(const std::string& text);
  void type(const std::string& keys) const;
  /// The exit status, or -1 when the program does not end within some seconds.
  int end();
  /// Everything that was shown.
  const std::string& screen() const { return m_screen; }

private:
  /// Takes what comes within a moment.
  void listen();

  pid_t m_process = -1;
  int m_terminal = -1;
  std::string m_screen;
  std::size_t m_seen = 0;
};
