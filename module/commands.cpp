// The commands of the module, registered with the host while the module is loaded, and where its dialogs look
// for their user.
#include "HostServices.h"
#include "attext/attext_command.h"
#include "construct/divide_command.h"
#include "construct/ray_command.h"
#include "construct/wipeout_command.h"
#include "construct/xline_command.h"
#include "frame/host_lookup.h"
#include "frame/registration.h"
#include "frame/test_command.h"
#include "ui/dialog.h"

namespace {

using frame::CommandRegistration;
using frame::createCommand;

const CommandRegistration ray{"Ray", &createCommand<CRayCmd>};
const CommandRegistration divide{"Divide", &createCommand<CDivideCmd>};
const CommandRegistration elxTest{"ElxTest", &createCommand<TestCmd>};
const CommandRegistration wipeout{"Wipeout", &createCommand<CWipeoutCmd>};
const CommandRegistration attExt{"AttExt", &createCommand<AttExtCmd>};
const CommandRegistration xline{"XLINE", &createCommand<CXLineCmd>};

/// Whom the host offers to work dialogs in place of a person at a window; mostly nobody.
ui::DialogUser* hostDialogUser() {
  const auto find = reinterpret_cast<GetDialogUserFunction>(frame::hostExport(ui::getDialogUserExport));
  return find ? static_cast<ui::DialogUser*>(find()) : nullptr;
}

const struct DialogUserLink {
  DialogUserLink() { ui::setDialogUserSource(&hostDialogUser); }
} dialogUserLink;

} // namespace
