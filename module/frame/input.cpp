#include "input.h"
#include "res/strings.h"

namespace frame {

Answer classifyAnswer(int code) {
  switch (code) {
  case kHostEdCancel: return {AnswerKind::cancel, 0};
  case kHostEdValue: return {AnswerKind::value, 0};
  case kHostEdEmpty: return {AnswerKind::empty, 0};
  default: return {AnswerKind::keyword, code - kHostEdFirstKeyword + 1};
  }
}

CMD_RUNSTATUS statusAfter(int code) { return code == kHostEdCancel ? kCmdCancelled : kCmdCompleted; }

void printMessage(HostEdInput& input, const OdString& message) { input.Print(L"\n%s\n", message.c_str()); }

void printMessage(HostEdInput& input, unsigned number) { printMessage(input, res::loadString(number)); }

} // namespace frame
