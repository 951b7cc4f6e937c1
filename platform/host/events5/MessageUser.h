#pragma once

namespace host {

/// Who reads messages and answers questions.
class MessageUser {
public:
  virtual ~MessageUser() = default;
  /// Shows a message and returns the button: one that `style` offers (IEventService.h).
  virtual int answer(const wchar_t* text, const wchar_t* caption, unsigned int style) = 0;
};

/// Sets the user and returns the one before; it stays the caller's. Null, as at the start: messages are
/// printed and questions answered with their default button.
MessageUser* setMessageUser(MessageUser* user);

/// From now on messages without a user are boxes of the system, where it has some: whoever works windows by
/// hand looks at them and not at the console.
void useBoxes();

} // namespace host
