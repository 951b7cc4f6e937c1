#include "dialog_line_user.h"
#include "IEventService.h"

namespace app {

namespace {

ui::MessageButtons buttonsOf(unsigned int style) {
  constexpr unsigned int kButtonsMask = 0xF;
  switch (style & kButtonsMask) {
  case kHostOkCancel: return ui::MessageButtons::okCancel;
  case kHostYesNoCancel: return ui::MessageButtons::yesNoCancel;
  case kHostYesNo: return ui::MessageButtons::yesNo;
  default: return ui::MessageButtons::ok;
  }
}

ui::MessageIcon iconOf(unsigned int style) {
  constexpr unsigned int kIconMask = 0xF0;
  switch (style & kIconMask) {
  case kHostIconError: return ui::MessageIcon::error;
  case kHostIconQuestion: return ui::MessageIcon::question;
  case kHostIconWarning: return ui::MessageIcon::warning;
  case kHostIconInformation: return ui::MessageIcon::information;
  default: return ui::MessageIcon::none;
  }
}

} // namespace

DialogLineUser::DialogLineUser(host::Input& input, bool showDialogs)
    : LineUser([&input](const OdString& line) { input.print(line); },
               [&input](const OdString& prompt) { return input.nextAnswer(prompt); }),
      m_input(input), m_showDialogs(showDialogs), m_before(host::setMessageUser(this)) {}

DialogLineUser::~DialogLineUser() { host::setMessageUser(m_before); }

void DialogLineUser::opened(const ui::OpenDialog& dialog) {
  if (m_showDialogs) show(dialog);
}

int DialogLineUser::answer(const wchar_t* text, const wchar_t* caption, unsigned int style) {
  const wchar_t* title = *caption ? caption : L"hbhost";
  return static_cast<int>(answerMessage({text, title, buttonsOf(style), iconOf(style)}));
}

} // namespace app
