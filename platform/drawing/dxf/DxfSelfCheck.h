#pragma once
// What a drawing must hold to before it is saved.
#include "DbDatabase.h"
#include <string>
#include <vector>

/// Looks over what was changed or made since the drawing was read. Returns a sentence for each name and
/// reference in it that leads nowhere; the drawing can be saved with those. Throws OdError_FileException,
/// whose sentence begins with `file`, for what would make the file a damaged one: attributes or vertices
/// without an end mark behind them, and a handle that is not below the seed. Takes one pass over the records,
/// and looks into changed ones only.
std::vector<std::string> dxfSelfCheck(OdDbDatabase& database, const OdString& file);
