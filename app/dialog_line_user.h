#pragma once
#include "events5/MessageUser.h"
#include "hbview/Input.h"
#include "ui/line_user.h"

namespace app {

/// Works dialogs and message boxes by lines of the session's console. Registers itself with the message
/// service as long as it lives.
class DialogLineUser final : public ui::LineUser, public host::MessageUser {
public:
  /// `showDialogs`: print a dialog when it opens; otherwise only when a line asks for it.
  DialogLineUser(host::Input& input, bool showDialogs);
  ~DialogLineUser() override;

  void opened(const ui::OpenDialog& dialog) override;
  int answer(const wchar_t* text, const wchar_t* caption, unsigned int style) override;

protected:
  void complain(const OdString& sentence) override { m_input.complain(sentence); }

private:
  host::Input& m_input;
  bool m_showDialogs;
  host::MessageUser* m_before;
};

} // namespace app
