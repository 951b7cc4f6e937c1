#include "sys/windows/console.h"
#include "sys/windows/system.h"

namespace sys {

namespace {

constexpr wchar_t kControlC = 3, kControlZ = 26;

/// Lets Ctrl+C be a key like any other while a line is typed; at other times it ends the program.
class LineMode {
public:
  explicit LineMode(HANDLE input) : m_input(input) {
    if (GetConsoleMode(m_input, &m_before))
      SetConsoleMode(m_input, m_before & ~DWORD{ENABLE_PROCESSED_INPUT});
  }
  ~LineMode() { SetConsoleMode(m_input, m_before); }
  LineMode(const LineMode&) = delete;
  LineMode& operator=(const LineMode&) = delete;

private:
  HANDLE m_input;
  DWORD m_before = 0;
};

} // namespace

std::optional<std::string> readConsoleLine() {
  const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
  const LineMode mode(input);
  CONSOLE_READCONSOLE_CONTROL control{sizeof control, 0, 1u << kControlC | 1u << kControlZ, 0};
  std::wstring line;
  while (!line.ends_with(L'\n')) {
    wchar_t piece[1024];
    DWORD count = 0;
    if (!ReadConsoleW(input, piece, static_cast<DWORD>(std::size(piece)), &count, &control) || count == 0)
      return std::nullopt;
    line.append(piece, count);
    if (line.find(kControlC) != std::wstring::npos) return "^C";
    if (line.find(kControlZ) != std::wstring::npos) break;
  }
  if (line.starts_with(kControlZ)) return std::nullopt;
  return utf8(std::wstring_view(line).substr(0, line.find_first_of(L"\r\n\x1A")));
}

} // namespace sys
