#pragma once
#include "IQkUnknown.h"

/// Shows help topics.
class IHelpService : public IQkUnknown {
public:
  /// Slot 3. Shows a topic such as "IDH_AttDef", or the contents for null. `window` is the dialog that asks,
  /// or null. False, after telling the user, when there is no such topic.
  virtual bool ShowTopic(const wchar_t* topic, void* window) = 0;

protected:
  ~IHelpService() = default;
};
