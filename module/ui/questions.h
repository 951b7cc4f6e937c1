#pragma once
#include "dialog.h"
#include <functional>

namespace ui {

/// How message boxes are shown; the answer is one of the question's buttons.
using ShowMessage = std::function<MessageAnswer(const MessageQuestion&)>;

/// A sentence of the string table with `value` in its place.
OdString sentence(unsigned number, const OdString& value);

/// The user's answer to a message box of the dialog of that title. Throws DialogError when the box does not
/// offer it.
MessageAnswer askForAnswer(DialogUser& user, const MessageQuestion& question, const OdString& title);

/// The path that the user gives, or nothing after Cancel. Paths that break a rule of the request are refused
/// by a message, as the system's own file dialogs do, and asked for again; throws DialogError when there is
/// no end to it.
std::optional<OdString> askForPath(DialogUser& user, const FileRequest& request, const OdString& title,
                                   const ShowMessage& show);

} // namespace ui
