#include "HostSession.h"
#include "Editor.h"
#include "QkAcApp/QkAcApp.h"
#include "sys/library.h"
#include <algorithm>
#include <utility>

namespace host {

namespace {

HostSession* g_current = nullptr;

struct CommandRelease {
  void operator()(ICmdProcess* command) const { command->Release(); }
};
using CommandObject = std::unique_ptr<ICmdProcess, CommandRelease>;

/// Creates the command object, runs it, asks for its status and releases it.
CMD_RUNSTATUS runObject(CmdCreator creator) {
  ICmdProcess* made = nullptr;
  creator(&made);
  if (!made) throw std::runtime_error("there is no memory for the command");
  const CommandObject object(made);
  object->Run();
  return object->Status();
}

OdString oneLine(const std::string& text) {
  OdString line = OdString::fromUtf8(text);
  line.replace(L"\r\n", L" ");
  line.replace(L"\n", L" ");
  return line.trimRight();
}

void takeBack(OdDbDatabase* database) {
  if (!database) return;
  while (database->numActiveTransactions() > 0) database->abortTransaction();
  database->cancelUndoRecord();
}

} // namespace

class HostSession::Document final : public HostDocument {
public:
  Document(HostSession& session, Input& input) : m_session(session), m_editor(input, session.m_database) {}
  OdDbDatabase* Database() override { return m_session.database(); }
  HostEdInput* Editor() override { return &m_editor; }
  const OdChar* FilePath() override { return m_session.drawingPath().c_str(); }

private:
  HostSession& m_session;
  host::Editor m_editor;
};

HostSession::HostSession(Console& console) : m_input(console) {
  if (g_current) throw std::logic_error("a process has one session at a time");
  g_current = this;
  m_outputBefore = setOutput([this](const std::string& line) { m_input.console().print(line); });
  setMainModule(sys::libraryHolding(reinterpret_cast<const void*>(&HostSession::current)));
  addCommand(
      "U", [this] { return undo(1); }, false);
  addCommand(
      "UNDO", [this] { return askAndUndo(); }, false);
  addCommand(
      "REDO", [this] { return redo(); }, false);
}

HostSession::~HostSession() {
  setMainModule(nullptr);
  setOutput(std::move(m_outputBefore));
  g_current = nullptr;
}

HostSession* HostSession::current() { return g_current; }

void HostSession::setDrawing(OdDbDatabasePtr database, const OdString& path) {
  m_document.reset();
  m_database = std::move(database);
  m_path = path;
  if (!m_database.isNull()) m_document = std::make_unique<Document>(*this, m_input);
}

HostDocument* HostSession::document() const { return m_document.get(); }

HostEdInput* HostSession::editor() const { return m_document ? m_document->Editor() : nullptr; }

// --- commands ---

void HostSession::addCommand(const std::string& name, std::function<CMD_RUNSTATUS()> run, bool undoable) {
  Command command;
  command.name = name;
  command.own = std::move(run);
  command.undoable = undoable;
  m_own.add(std::move(command));
}

CommandTable HostSession::allCommands() const {
  CommandTable all = m_own;
  for (const Command& command : registeredCommands().commands()) all.add(command);
  return all;
}

RunResult HostSession::execute(const OdString& line) {
  if (m_input.runPromptCommand(line)) return RunResult::completed;
  OdString name = line;
  if (name.trimLeft().trimRight().isEmpty()) name = m_lastLine;
  if (name.isEmpty()) return RunResult::completed;
  const CommandTable all = allCommands();
  OdString complaint;
  const Command* command = all.find(name, complaint);
  if (!command) {
    m_input.complain(complaint);
    return RunResult::unknown;
  }
  m_lastLine = name;
  return run(*command);
}

RunResult HostSession::run(const Command& command) {
  const OdString name = OdString::fromUtf8(command.name);
  if (command.creator && m_database.isNull()) {
    m_input.report(name + L" needs an open drawing.");
    return RunResult::failed;
  }
  // The command may exchange the drawing; what it did until then stays with the one it began with.
  const OdDbDatabasePtr database = command.undoable ? m_database : OdDbDatabasePtr();
  if (!database.isNull()) database->startUndoRecord();
  OdString failure;
  try {
    const CMD_RUNSTATUS status = command.creator ? runObject(command.creator) : command.own();
    return status == kCmdCompleted ? RunResult::completed : RunResult::cancelled;
  } catch (const ScriptEnded&) {
    takeBack(database.get());
    throw;
  } catch (const std::exception& error) {
    failure = oneLine(error.what());
  } catch (...) {
    failure = L"unknown error";
  }
  takeBack(database.get());
  m_input.report(name + L" failed: " + failure);
  return RunResult::failed;
}

CMD_RUNSTATUS HostSession::undo(int count) {
  int undone = 0;
  while (!m_database.isNull() && undone < count && m_database->undo()) ++undone;
  if (undone == 0) {
    m_input.report(L"There is nothing to undo.");
    return kCmdCancelled;
  }
  OdString text;
  text.format(undone == 1 ? L"The last command was undone." : L"The last %d commands were undone.", undone);
  m_input.print(text);
  return kCmdCompleted;
}

CMD_RUNSTATUS HostSession::askAndUndo() {
  int count = 1;
  if (!editor()) return undo(count);
  const int code = editor()->GetInteger(count, L"Number of commands to undo <1>", nullptr,
                                        kHostEdNoZero | kHostEdNoNegative, nullptr);
  return code == kHostEdCancel ? kCmdCancelled : undo(count);
}

CMD_RUNSTATUS HostSession::redo() {
  if (m_database.isNull() || !m_database->redo()) {
    m_input.report(L"There is nothing to redo.");
    return kCmdCancelled;
  }
  m_input.print(L"The command was done again.");
  return kCmdCompleted;
}

} // namespace host
