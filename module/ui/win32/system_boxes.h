#pragma once
#include "ui/dialog.h"
#include <windows.h>

namespace ui::win32 {

/// Shows the system's message box over `owner`. With a user, that one presses the button; otherwise a person
/// does. `title` is the dialog's, for errors. Throws DialogError when the box cannot be shown or the user's
/// answer is none of its buttons.
MessageAnswer showMessage(HWND owner, DialogUser* user, const OdString& title,
                          const MessageQuestion& question);

/// Shows the system's file dialog in the same way; nothing after Cancel.
std::optional<OdString> showFileDialog(HWND owner, DialogUser* user, const OdString& title,
                                       const FileRequest& request);

} // namespace ui::win32
