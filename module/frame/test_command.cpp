#include "test_command.h"
#include "input.h"
#include "res/strings.h"

CMD_RUNSTATUS TestCmd::Run() {
  return perform([](frame::Session& session) {
    OdString text;
    if (!session.input().GetString(text)) return kCmdCancelled;
    frame::printMessage(session.input(), OdString().format(res::loadString(IDS_INPUTED_TEXT), text.c_str()));
    return kCmdCompleted;
  });
}
