// Runs the program by the system.
#include "program.h"
#include <stdexcept>
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace fs = std::filesystem;

namespace {

/// Quotes an argument for the rules by which programs split their line: backslashes count before quotes only.
std::wstring quoted(const std::wstring& argument) {
  std::wstring text = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t c : argument) {
    if (c == L'"') text.append(backslashes + 1, L'\\');
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    text += c;
  }
  return text.append(backslashes, L'\\') + L'"';
}

HANDLE openStream(const fs::path& file, bool forWriting) {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  return CreateFileW(file.c_str(), forWriting ? GENERIC_WRITE : GENERIC_READ, FILE_SHARE_READ, &inherited,
                     forWriting ? CREATE_ALWAYS : OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
}

DWORD runAndWait(std::wstring line, const fs::path& folder, const fs::path& streams) {
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = openStream(streams / "in", false);
  start.hStdOutput = openStream(streams / "out", true);
  start.hStdError = openStream(streams / "err", true);
  PROCESS_INFORMATION process{};
  const BOOL isStarted = CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                        folder.c_str(), &start, &process);
  for (const HANDLE handle : {start.hStdInput, start.hStdOutput, start.hStdError}) CloseHandle(handle);
  if (!isStarted) throw std::runtime_error("the program cannot be started");
  DWORD status = 0;
  WaitForSingleObject(process.hProcess, INFINITE);
  GetExitCodeProcess(process.hProcess, &status);
  CloseHandle(process.hProcess);
  CloseHandle(process.hThread);
  return status;
}

} // namespace

Outcome Workplace::hbhost(const std::vector<std::string>& arguments, const std::string& input) const {
  write(".streams/in", input);
  // What one test stores must not reach the next.
  test::setEnvironment("HBHOST_PROFILE", path(".profile.json"));
  std::wstring line = quoted(fs::path(HBHOST).wstring());
  for (const std::string& argument : arguments) line += L" " + quoted(fs::path(argument).wstring());
  const DWORD status = runAndWait(line, m_folder, path(".streams"));
  return {static_cast<int>(status), read(".streams/out"), read(".streams/err")};
}
