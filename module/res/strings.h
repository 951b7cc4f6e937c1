#pragma once
#include "OdString.h"
#include "resource.h"

namespace res {

/// The text of that number (IDS_...) in the module's string table, exactly as stored: placeholders unfilled,
/// blanks kept. A number that has no text throws Error, which names it.
OdString loadString(unsigned number);

} // namespace res
