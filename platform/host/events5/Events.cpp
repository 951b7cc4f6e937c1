#include "Box.h"
#include "IEventService.h"
#include "MessageUser.h"
#include "OdString.h"
#include "common/Unknown.h"
#include "qkcore/Output.h"
#include <utility>
#include <vector>

namespace host {

namespace {

MessageUser* g_user = nullptr;
bool g_boxes = false;

struct Button {
  int id;
  const char* name;
};

std::vector<Button> buttons(unsigned int style) {
  constexpr unsigned int kButtonsMask = 0xF;
  constexpr Button kOk{kHostIdOk, "OK"}, kCancel{kHostIdCancel, "Cancel"}, kYes{kHostIdYes, "Yes"},
      kNo{kHostIdNo, "No"};
  switch (style & kButtonsMask) {
  case kHostOkCancel: return {kOk, kCancel};
  case kHostYesNoCancel: return {kYes, kNo, kCancel};
  case kHostYesNo: return {kYes, kNo};
  default: return {kOk};
  }
}

Button defaultButton(unsigned int style) {
  const std::vector<Button> offered = buttons(style);
  const std::size_t index = (style & (kHostSecondIsDefault | kHostThirdIsDefault)) / kHostSecondIsDefault;
  return index < offered.size() ? offered[index] : offered.front();
}

int printAndAnswer(const wchar_t* text, unsigned int style) {
  const Button answer = defaultButton(style);
  std::string line = OdString(text).toUtf8();
  if (answer.id != kHostIdOk) line.append(" ").append(answer.name);
  printLine(line);
  return answer.id;
}

class EventService final : public Unknown<EventService, IEventService> {
public:
  int Message(const wchar_t* text, const wchar_t* caption, unsigned int style, void* window) override {
    return hostMessageBox(window, text, caption, style);
  }
};

} // namespace

MessageUser* setMessageUser(MessageUser* user) { return std::exchange(g_user, user); }

void useBoxes() { g_boxes = true; }

} // namespace host

IEventService* Get_IEventService() { return new host::EventService; }

int hostMessageBox(void* window, const wchar_t* text, const wchar_t* caption, unsigned int style) {
  if (host::g_user) return host::g_user->answer(text ? text : L"", caption ? caption : L"", style);
  if (host::g_boxes)
    if (const auto answer =
            host::showBox(window, text ? text : L"", caption && *caption ? caption : L"hbhost", style))
      return *answer;
  return host::printAndAnswer(text, style);
}
