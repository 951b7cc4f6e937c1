#pragma once
#include "ICmdProcess.h"

/// The host's command factory: where modules register their commands.
class ICmdFactory : public IQkUnknown {
public:
  virtual void Reserved3() {}
  virtual void Reserved4() {}
  virtual void Reserved5() {}
  virtual void Reserved6() {}
  /// Slot 7. Registers a command in a group. Of two registrations of one name the later one counts.
  virtual bool RegisterInGroup(const char* name, CmdCreator creator, const wchar_t* group, int flags) = 0;
  /// Slot 8. Registers a command without a group.
  virtual bool Register(const char* name, CmdCreator creator) = 0;

protected:
  ~ICmdFactory() = default;
};

/// Type of the main host module's export "new_ICmdFactory": stores the factory, with a reference, and returns
/// true.
using NewCmdFactory = bool (*)(ICmdFactory** out);
