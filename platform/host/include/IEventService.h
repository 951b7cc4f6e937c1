#pragma once
#include "IQkUnknown.h"

/// Buttons and icon of a message box, combined by addition, and the numbers of the buttons.
enum HostMessageStyle : unsigned int {
  kHostOk = 0,
  kHostOkCancel = 1,
  kHostYesNoCancel = 3,
  kHostYesNo = 4,
  kHostIconError = 0x10,
  kHostIconQuestion = 0x20,
  kHostIconWarning = 0x30,
  kHostIconInformation = 0x40,
  kHostSecondIsDefault = 0x100,
  kHostThirdIsDefault = 0x200,
};
enum HostMessageButton : int { kHostIdOk = 1, kHostIdCancel = 2, kHostIdYes = 6, kHostIdNo = 7 };

/// Tells the user messages and asks questions.
class IEventService : public IQkUnknown {
public:
  /// Slot 3. Shows a message and waits for the answer, one of HostMessageButton. `style` combines
  /// HostMessageStyle; `window` is the dialog that asks, or null; a null caption is the host's name.
  virtual int Message(const wchar_t* text, const wchar_t* caption, unsigned int style, void* window) = 0;

protected:
  ~IEventService() = default;
};

/// Export of the library events5: the event service, with a reference.
IEventService* Get_IEventService();
/// Export of the library events5: IEventService::Message in one call.
int hostMessageBox(void* window, const wchar_t* text, const wchar_t* caption, unsigned int style);
