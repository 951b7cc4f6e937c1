#pragma once
#include "ICmdProcess.h"
#include "OdString.h"
#include <functional>
#include <string>
#include <vector>

namespace host {

/// A command that users can call by its name: one of a module's, made by its creator, or one of the program's
/// own.
struct Command {
  std::string name;
  OdString group;
  int flags = 0;
  CmdCreator creator = nullptr;
  std::function<CMD_RUNSTATUS()> own;
  /// Whether the command is a step of the undo log; those that work on the log itself are not.
  bool undoable = true;
};

/// Commands by name. Names are compared without regard to case.
class CommandTable {
public:
  /// A command of the same name is replaced.
  void add(Command command);
  const std::vector<Command>& commands() const { return m_commands; }

  /// The command that a typed name means, which may be shortened as long as it stays unique and may have a
  /// leading underscore; null, with a sentence in `complaint`, when there is none.
  const Command* find(const OdString& typed, OdString& complaint) const;

private:
  std::vector<Command> m_commands;
};

/// The commands that loaded modules have registered.
CommandTable& registeredCommands();

} // namespace host
