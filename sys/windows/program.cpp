#include "sys/program.h"
#include "sys/windows/system.h"
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <memory>
#include <shellapi.h>

namespace sys {

std::vector<std::string> programArguments(int, const char* const*) {
  // The narrow arguments have lost what the system's code page does not have.
  int count = 0;
  const std::unique_ptr<wchar_t*, decltype(&LocalFree)> line(CommandLineToArgvW(GetCommandLineW(), &count),
                                                             &LocalFree);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(utf8(line.get()[i]));
  return arguments;
}

StandardStreams::StandardStreams() : m_codePage(GetConsoleOutputCP()) {
  for (std::FILE* stream : {stdin, stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
  const HANDLE error = GetStdHandle(STD_ERROR_HANDLE);
  DWORD mode = 0;
  if (GetConsoleMode(error, &mode)) SetConsoleMode(error, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

StandardStreams::~StandardStreams() {
  if (m_codePage != 0) SetConsoleOutputCP(m_codePage);
}

} // namespace sys
