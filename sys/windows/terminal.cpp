#include "sys/terminal.h"
#include "sys/windows/system.h"

namespace sys {

namespace {

HANDLE handleOf(Stream stream) {
  switch (stream) {
  case Stream::in: return GetStdHandle(STD_INPUT_HANDLE);
  case Stream::out: return GetStdHandle(STD_OUTPUT_HANDLE);
  case Stream::error: return GetStdHandle(STD_ERROR_HANDLE);
  }
  return INVALID_HANDLE_VALUE;
}

} // namespace

bool isTerminal(Stream stream) {
  DWORD mode = 0;
  return GetConsoleMode(handleOf(stream), &mode) != 0;
}

int terminalWidth(Stream stream) {
  constexpr int kUsual = 80;
  CONSOLE_SCREEN_BUFFER_INFO info;
  return GetConsoleScreenBufferInfo(handleOf(stream), &info) ? info.srWindow.Right - info.srWindow.Left + 1
                                                             : kUsual;
}

} // namespace sys
