#pragma once
#include <optional>

namespace host {

/// Shows a message box of the system over a dialog's window and returns the button. Nothing where the system
/// has no windows, or no box could be shown. `style` is that of IEventService::Message.
std::optional<int> showBox(void* window, const wchar_t* text, const wchar_t* caption, unsigned int style);

} // namespace host
