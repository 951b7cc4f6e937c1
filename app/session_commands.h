#pragma once
#include "exit_status.h"
#include "workspace.h"

namespace app {

inline constexpr char kCommandPrompt[] = "Command: ";

/// The program's own commands: open and save drawings, draw pictures, help, and quit. A picture can be had at
/// every prompt that wants no text, by "picture FILE".
class SessionCommands {
public:
  SessionCommands(host::HostSession& session, Workspace& workspace);
  ~SessionCommands();
  SessionCommands(const SessionCommands&) = delete;
  SessionCommands& operator=(const SessionCommands&) = delete;

  bool hasQuit() const { return m_quit; }
  /// Ends the session unless unsaved changes would be lost that the person at the terminal wants to keep.
  CMD_RUNSTATUS quit();
  /// The worst that happened to a file.
  ExitStatus fileStatus() const { return m_fileStatus; }

private:
  struct Entry {
    const char* name;
    CMD_RUNSTATUS (SessionCommands::*run)();
    const char* about;
  };
  static const Entry kEntries[];

  CMD_RUNSTATUS list();
  CMD_RUNSTATUS help();
  CMD_RUNSTATUS create();
  CMD_RUNSTATUS open();
  CMD_RUNSTATUS save();
  CMD_RUNSTATUS saveAs();

  CMD_RUNSTATUS picture();

  /// Draws the current space with what is highlighted and previewed.
  CMD_RUNSTATUS drawPictureTo(const OdString& file);
  /// Tells why a file could not be read or written.
  CMD_RUNSTATUS failed(ExitStatus status, const OdError& error);
  CMD_RUNSTATUS saveTo(const std::filesystem::path& file);
  /// False: the question was cancelled, or saving failed.
  bool mayLoseDrawing();
  bool mayReplace(const std::filesystem::path& file);
  enum class Reply { yes, no, cancel };
  Reply askYesNo(const OdString& question, Reply byDefault);
  /// The text typed at a prompt, which may be empty; false: cancelled.
  bool ask(const OdString& prompt, OdString& answer);
  void print(const std::string& line) const { m_session.input().print(OdString::fromUtf8(line)); }
  std::string moduleCommands() const;

  host::HostSession& m_session;
  Workspace& m_workspace;
  ExitStatus m_fileStatus = kAllRan;
  bool m_quit = false;
};

} // namespace app
