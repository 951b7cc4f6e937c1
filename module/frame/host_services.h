#pragma once
#include "OdString.h"

namespace frame {

/// A text of the string table as dialogs show it: in the user's language where the host has a translation.
OdString dialogText(unsigned number);

/// Shows a help topic ("IDH_AttDef"), or the contents for null. `window` is the dialog that asks, or null.
void showHelp(const OdChar* topic, void* window);

/// Tells the user an error through the host, which words the caption; returns when the user has read it.
void tellError(const OdString& message, void* window);

} // namespace frame
