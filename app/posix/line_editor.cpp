#include "terminal_console.h"
#include "command_names.h"
#include "sys/folders.h"
#include <clocale>
#include <filesystem>
#include <histedit.h>
#include <iostream>

namespace fs = std::filesystem;

namespace app {

namespace {

constexpr int kHistoryLines = 1000;
constexpr char kEscapeLine[] = "^C";

/// Lines typed in earlier sessions; nowhere when the user has no home.
fs::path historyFile() {
  const fs::path folder = sys::stateFolder();
  std::error_code ignored;
  if (!folder.empty()) fs::create_directories(folder, ignored);
  return folder.empty() ? folder : folder / "history";
}

struct CloseEditor {
  void operator()(EditLine* editor) const { el_end(editor); }
};
struct CloseHistory {
  void operator()(History* history) const { history_end(history); }
};

} // namespace

class TerminalConsole::Editor {
public:
  explicit Editor(std::string commandPrompt);
  ~Editor();
  Editor(const Editor&) = delete;
  Editor& operator=(const Editor&) = delete;

  std::optional<std::string> readLine(const std::string& prompt);
  std::function<std::vector<std::string>()> names;

private:
  static Editor& of(EditLine* line);
  static char* promptOf(EditLine* line) { return of(line).m_prompt.data(); }
  static unsigned char escape(EditLine* line, int key);
  static unsigned char complete(EditLine* line, int key);
  unsigned char completeName();
  void remember(const std::string& text);

  std::string m_commandPrompt;
  std::string m_prompt;
  fs::path m_historyFile = historyFile();
  bool m_escaped = false;
  std::unique_ptr<History, CloseHistory> m_history{history_init()};
  std::unique_ptr<EditLine, CloseEditor> m_line;
};

TerminalConsole::Editor::Editor(std::string commandPrompt) : m_commandPrompt(std::move(commandPrompt)) {
  // The line editor tells characters from bytes by the locale; everything here is UTF-8 whatever the user's
  // is.
  std::setlocale(LC_CTYPE, "C.UTF-8");
  m_line.reset(el_init("hbhost", stdin, stderr, stderr));
  EditLine* line = m_line.get();
  el_set(line, EL_CLIENTDATA, this);
  el_set(line, EL_PROMPT, &promptOf);
  el_set(line, EL_EDITOR, "emacs");
  el_set(line, EL_SIGNAL, 1);
  // While a line is edited, Ctrl+C is a key like any other; while a command works, it ends the program.
  el_set(line, EL_SETTY, "-d", "-isig", nullptr);
  // The narrow form of this call copies the names and never gives the copies back.
  el_wset(line, EL_ADDFN, L"hb-escape", L"Answers Esc", &escape);
  el_wset(line, EL_ADDFN, L"hb-complete", L"Completes a command name", &complete);
  el_set(line, EL_BIND, "^C", "hb-escape", nullptr);
  el_set(line, EL_BIND, "^I", "hb-complete", nullptr);
  HistEvent event;
  history(m_history.get(), &event, H_SETSIZE, kHistoryLines);
  history(m_history.get(), &event, H_SETUNIQUE, 1);
  if (!m_historyFile.empty()) history(m_history.get(), &event, H_LOAD, m_historyFile.c_str());
  el_set(line, EL_HIST, history, m_history.get());
  el_source(line, nullptr);
}

TerminalConsole::Editor::~Editor() {
  HistEvent event;
  if (!m_historyFile.empty()) history(m_history.get(), &event, H_SAVE, m_historyFile.c_str());
}

TerminalConsole::Editor& TerminalConsole::Editor::of(EditLine* line) {
  void* editor = nullptr;
  el_get(line, EL_CLIENTDATA, &editor);
  return *static_cast<Editor*>(editor);
}

unsigned char TerminalConsole::Editor::escape(EditLine* line, int) {
  of(line).m_escaped = true;
  return CC_NEWLINE;
}

unsigned char TerminalConsole::Editor::complete(EditLine* line, int) { return of(line).completeName(); }

unsigned char TerminalConsole::Editor::completeName() {
  if (m_prompt != m_commandPrompt || !names) return CC_ERROR;
  const LineInfo* info = el_line(m_line.get());
  const std::string typed(info->buffer, info->cursor);
  const Completion completion = completeCommand(typed, names());
  el_deletestr(m_line.get(), static_cast<int>(typed.size()));
  el_insertstr(m_line.get(), completion.text.c_str());
  if (completion.candidates.size() < 2) return completion.candidates.empty() ? CC_REFRESH_BEEP : CC_REFRESH;
  std::cerr << '\n';
  for (const std::string& name : completion.candidates) std::cerr << name << "  ";
  std::cerr << std::endl;
  return CC_REDISPLAY;
}

void TerminalConsole::Editor::remember(const std::string& text) {
  HistEvent event;
  if (text.find_first_not_of(" \t") != std::string::npos)
    history(m_history.get(), &event, H_ENTER, text.c_str());
}

std::optional<std::string> TerminalConsole::Editor::readLine(const std::string& prompt) {
  m_prompt = prompt;
  m_escaped = false;
  el_resize(m_line.get());
  // The line editor would change the terminal only after showing its prompt; Ctrl+C in between ended hbhost.
  el_set(m_line.get(), EL_PREP_TERM, 1);
  int length = 0;
  const char* read = el_gets(m_line.get(), &length);
  if (m_escaped) {
    std::cerr << kEscapeLine << std::endl;
    return kEscapeLine;
  }
  if (!read || length <= 0) {
    std::cerr << std::endl;
    return std::nullopt;
  }
  std::string text(read, static_cast<std::size_t>(length));
  while (text.ends_with('\n') || text.ends_with('\r')) text.pop_back();
  remember(text);
  return text;
}

TerminalConsole::TerminalConsole(std::string commandPrompt)
    : m_editor(std::make_unique<Editor>(std::move(commandPrompt))) {}

TerminalConsole::~TerminalConsole() = default;

void TerminalConsole::setNames(std::function<std::vector<std::string>()> names) {
  m_editor->names = std::move(names);
}

std::optional<std::string> TerminalConsole::readLine(const std::string& prompt) {
  return m_editor->readLine(prompt);
}

void TerminalConsole::print(const std::string& line) { std::cerr << line << std::endl; }

} // namespace app
