#pragma once
#include "command_object.h"

namespace frame {

/// Registers a command with the host when it is constructed: a static object for each command. Without a host
/// that has a command factory nothing happens. A registration is never taken back.
class CommandRegistration {
public:
  CommandRegistration(const char* name, CmdCreator creator);
  /// Registers the command in a group of the host's.
  CommandRegistration(const char* name, CmdCreator creator, const OdChar* group, int flags);
};

} // namespace frame
