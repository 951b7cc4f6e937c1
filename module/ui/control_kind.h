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
/// Edits and rich edits.
bool holdsText(ControlKind kind);
/// Whether a combo box lets its text be typed.
bool isEditable(const res::ControlTemplate& source, ControlKind kind);
/// Whether the dialog is told when it loses the focus.
bool tellsLeave(ControlKind kind);

/// A mistake of the dialog's class: throws std::logic_error, which names dialog and control.
[[noreturn]] void refuseControl(unsigned dialog, unsigned control, const std::string& why);

/// The template of a page that cannot stand in a dialog, for its styles or for a control whose number the
/// dialog has: throws std::logic_error.
void refuseUnfitPage(const res::DialogTemplate& page, unsigned number, const res::DialogTemplate& dialog);
/// Where a control of a page stands in the dialog, by its place on the page and the place of the tabs.
ControlPlace onTabs(const ControlPlace& place, const res::Rect& tabs);

/// An index of no item, row or column: throws std::out_of_range.
[[noreturn]] void refuseIndex(int index);

} // namespace ui
