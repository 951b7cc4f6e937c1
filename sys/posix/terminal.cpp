#include "sys/terminal.h"
#include <sys/ioctl.h>
#include <unistd.h>

namespace sys {

namespace {

int descriptor(Stream stream) {
  switch (stream) {
  case Stream::in: return STDIN_FILENO;
  case Stream::out: return STDOUT_FILENO;
  case Stream::error: return STDERR_FILENO;
  }
  return -1;
}

} // namespace

bool isTerminal(Stream stream) { return isatty(descriptor(stream)) == 1; }

int terminalWidth(Stream stream) {
  constexpr int kUsual = 80;
  winsize size{};
  return ioctl(descriptor(stream), TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : kUsual;
}

} // namespace sys
