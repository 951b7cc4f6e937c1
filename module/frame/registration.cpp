#include "registration.h"
#include "host_lookup.h"

namespace frame {

CommandRegistration::CommandRegistration(const char* name, CmdCreator creator) {
  if (const auto factory = commandFactory()) factory->Register(name, creator);
}

CommandRegistration::CommandRegistration(const char* name, CmdCreator creator, const OdChar* group,
                                         int flags) {
  if (const auto factory = commandFactory()) factory->RegisterInGroup(name, creator, group, flags);
}

} // namespace frame
