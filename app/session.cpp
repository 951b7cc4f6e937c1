#include "session.h"
#include "dialog_line_user.h"
#include "drawing_file.h"
#include "module_loader.h"
#include "picture_loader.h"
#include "script_console.h"
#include "session_commands.h"
#include "sys/terminal.h"
#include "terminal_console.h"
#include <fstream>
#include <iostream>

namespace fs = std::filesystem;

namespace app {

namespace {

ExitStatus complain(const std::string& sentence, ExitStatus status) {
  std::cerr << "hbhost: " << sentence << '\n';
  return status;
}

/// Runs the lines of a console on one drawing.
class SessionRun {
public:
  SessionRun(const SessionOptions& options, host::Console& console)
      : m_options(options), m_session(console), m_workspace(m_session, options.encoding, options.saving),
        m_commands(m_session, m_workspace),
        m_dialogUser(m_session.input(), console.isTerminal() || options.echo) {
    m_session.setDialogUser(static_cast<ui::DialogUser*>(&m_dialogUser));
  }

  const host::HostSession& session() const { return m_session; }
  ExitStatus openDrawing();
  /// Runs every line up to the end, or up to one that cannot be made out.
  ExitStatus runLines();
  ExitStatus saveAtEnd();
  ExitStatus drawAtEnd();

private:
  /// False ends the session.
  bool runLine(const OdString& line);
  bool isTerminal() { return m_session.input().console().isTerminal(); }
  void greet(const std::string& opened);

  const SessionOptions& m_options;
  host::HostSession m_session;
  Workspace m_workspace;
  SessionCommands m_commands;
  DialogLineUser m_dialogUser;
  ExitStatus m_status = kAllRan;
};

void SessionRun::greet(const std::string& opened) {
  if (isTerminal()) m_session.input().print(OdString::fromUtf8(opened) + L" Type ? for the commands.");
}

ExitStatus SessionRun::openDrawing() {
  if (m_options.drawing.empty()) {
    m_workspace.create();
    greet("A new drawing.");
    return kAllRan;
  }
  try {
    m_workspace.open(m_options.drawing, m_options.recover ? Door::recovering : Door::strict);
    greet(m_workspace.name() + " is open.");
    return kAllRan;
  } catch (const OdError& error) {
    return complain(error.what(), kNotRead);
  }
}

bool SessionRun::runLine(const OdString& line) {
  if (host::Input::isEscape(line)) return true;
  const host::RunResult result = m_session.execute(line);
  // A person sees what went wrong and goes on; in a script, the lines behind an unknown command were meant
  // for it.
  if (isTerminal()) return !m_commands.hasQuit();
  if (result == host::RunResult::unknown) {
    m_status = kWrongUsage;
    return false;
  }
  if (result != host::RunResult::completed) m_status = worse(m_status, kCommandFailed);
  return !m_commands.hasQuit();
}

ExitStatus SessionRun::runLines() {
  bool goesOn = true;
  bool askedAtEnd = false;
  while (goesOn) {
    if (const std::optional<OdString> line = m_session.input().nextCommand(kCommandPrompt)) {
      goesOn = runLine(*line);
      askedAtEnd = false;
    } else {
      // Whoever hangs up cannot answer whether changes are to be saved, so the second end is the end.
      goesOn = isTerminal() && !askedAtEnd && m_commands.quit() != kCmdCompleted;
      askedAtEnd = true;
    }
  }
  return isTerminal() ? kAllRan : worse(m_status, m_commands.fileStatus());
}

ExitStatus SessionRun::saveAtEnd() {
  const std::string& target = m_options.saveAs.empty() ? m_options.drawing : m_options.saveAs;
  if (!m_options.save && m_options.saveAs.empty()) return kAllRan;
  try {
    m_workspace.save(target);
    return kAllRan;
  } catch (const OdError& error) {
    return complain(error.what(), kNotWritten);
  }
}

ExitStatus SessionRun::drawAtEnd() {
  if (m_options.picture.file.empty()) return kAllRan;
  try {
    for (const std::string& note : drawPicture(*m_session.database(), m_options.picture))
      complain(note + ".", kAllRan);
    return kAllRan;
  } catch (const OdError& error) {
    return complain(error.what(), error.code() == eInvalidInput ? kWrongUsage : kNotWritten);
  }
}

ExitStatus run(SessionRun& session) {
  if (const ExitStatus status = session.openDrawing(); status != kAllRan) return status;
  ExitStatus status = kAllRan;
  try {
    status = session.runLines();
  } catch (const host::ScriptEnded& end) {
    status = complain(end.what(), kWrongUsage);
  }
  return status;
}

/// Saving what a wrong script has made could spoil the drawing.
ExitStatus finish(SessionRun& session, const SessionOptions& options, ExitStatus status) {
  if (status < kWrongUsage) return worse(worse(status, session.saveAtEnd()), session.drawAtEnd());
  if (options.save || !options.saveAs.empty()) complain("the drawing was not saved because of that.", status);
  return status;
}

ExitStatus runScript(const SessionOptions& options, std::istream* stream, const std::string& name) {
  ScriptConsole console(options.commands, stream, name, options.echo);
  SessionRun session(options, console);
  ExitStatus status = run(session);
  if (console.hasRefusedLine()) status = worse(status, kWrongUsage);
  return finish(session, options, status);
}

ExitStatus runTerminal(const SessionOptions& options) {
  TerminalConsole console(kCommandPrompt);
  SessionRun session(options, console);
  console.setNames([&session] {
    std::vector<std::string> names;
    for (const host::Command& command : session.session().commands()) names.push_back(command.name);
    return names;
  });
  return finish(session, options, run(session));
}

} // namespace

ExitStatus runSession(const SessionOptions& options) {
  std::string error;
  if (!loadModule(error)) return complain("the module cannot be loaded: " + error, kCommandFailed);
  const bool isAllGiven = !options.commands.empty() || !options.picture.file.empty();
  if (options.script.empty() && isAllGiven) return runScript(options, nullptr, "");
  if (options.script.empty() && sys::isTerminal(sys::Stream::in)) return runTerminal(options);
  if (options.script.empty() || options.script == "-") return runScript(options, &std::cin, "standard input");
  std::error_code ignored;
  if (fs::is_directory(options.script, ignored))
    return complain(options.script + ": Is a directory", kWrongUsage);
  std::ifstream file(options.script, std::ios::binary);
  if (!file) return complain(options.script + ": " + std::generic_category().message(errno), kWrongUsage);
  return runScript(options, &file, options.script);
}

} // namespace app
