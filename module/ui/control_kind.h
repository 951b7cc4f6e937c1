#pragma once
#include "dialog_user.h"
#include "res/dialog_template.h"
#include <string>

namespace ui {

/// What a control is, by the window class and style of its template. One that no face can show throws
/// std::logic_error. `dialog` is the number of its dialog, for messages.
ControlKind kindOf(unsigned dialog, const res::ControlTemplate& source);

/// Whether a control can have the focus.
bool takesFocus(ControlKind kind);
bool holdsItems(ControlKind kind);
/// Whether the dialog is told when it loses the focus.
bool tellsLeave(ControlKind kind);

/// A mistake of the dialog's class: throws std::logic_error, which names dialog and control.
[[noreturn]] void refuseControl(unsigned dialog, unsigned control, const std::string& why);

} // namespace ui
