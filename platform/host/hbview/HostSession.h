#pragma once
// The program's side of the main host module.
#include "CommandTable.h"
#include "DbDatabase.h"
#include "HostDocument.h"
#include "HostEdInput.h"
#include "Input.h"
#include "qkcore/Output.h"
#include <functional>
#include <memory>

namespace host {

/// How the running of a command ended.
enum class RunResult {
  completed,
  cancelled, ///< by the user, or the command says that it failed
  failed,    ///< an error escaped the command; what it had done was taken back
  unknown,   ///< there is no such command
};

/// One user's session: a console, the current drawing, and the commands. There is at most one in a process at
/// a time; while it lives, modules reach it through the exports of the main host module, and what the host
/// libraries print goes to its console.
class HostSession {
public:
  /// `console` must outlive the session.
  explicit HostSession(Console& console);
  ~HostSession();
  HostSession(const HostSession&) = delete;
  HostSession& operator=(const HostSession&) = delete;
  /// The session of this process, or null.
  static HostSession* current();

  /// Makes a drawing the current one; `path` is what commands are told as its file. Null closes the current
  /// drawing. Not to be called while a command that works on the drawing is running.
  void setDrawing(OdDbDatabasePtr database, const OdString& path);
  /// Null while no drawing is open.
  OdDbDatabase* database() const { return m_database.get(); }
  const OdString& drawingPath() const { return m_path; }
  void setDrawingPath(const OdString& path) { m_path = path; }
  /// The editor of the current drawing; null while none is open.
  HostEdInput* editor() const;

  /// The lines that commands, dialogs and the program itself take from the console, in turn.
  Input& input() { return m_input; }

  /// Who works dialogs for the module: what the export GetDialogUser gives. It stays the program's.
  void setDialogUser(void* user) { m_dialogUser = user; }
  void* dialogUser() const { return m_dialogUser; }

  /// Adds a command of the program's own, such as one that saves. `undoable` false: it is no step of the undo
  /// log.
  void addCommand(const std::string& name, std::function<CMD_RUNSTATUS()> run, bool undoable = true);
  /// All commands: the session's (U, UNDO, REDO), the program's, and those that modules registered.
  std::vector<Command> commands() const { return allCommands().commands(); }

  /// Runs what was typed at the command prompt: a command by its name, which may be shortened; an empty line
  /// repeats the last command; what the input's prompt command takes is done. What goes wrong is printed in
  /// one line. One command is one step for undo. Throws ScriptEnded, with what the command did taken back,
  /// when the input ends at one of its prompts.
  RunResult execute(const OdString& line);

  /// What service 2 leads to; null while no drawing is open.
  HostDocument* document() const;

private:
  class Document;
  CommandTable allCommands() const;
  RunResult run(const Command& command);
  CMD_RUNSTATUS undo(int count);
  CMD_RUNSTATUS askAndUndo();
  CMD_RUNSTATUS redo();

  Input m_input;
  Output m_outputBefore;
  OdDbDatabasePtr m_database;
  OdString m_path;
  std::unique_ptr<Document> m_document;
  void* m_dialogUser = nullptr;
  CommandTable m_own;
  OdString m_lastLine;
};

} // namespace host
