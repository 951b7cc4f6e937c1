#pragma once
// Pictures of drawings.
#include "DbDatabase.h"
#include "request.h"
#include <vector>

namespace picture {

/// Draws a space of the drawing into a file, which appears whole or not at all. Returns sentences about what
/// the picture does not show. Throws OdError: eInvalidInput for a request that cannot be met (format, name of
/// a layout), eInvalidExtents when there is nothing to draw, eFileWriteError with the name of the file when
/// it cannot be written.
std::vector<std::string> write(OdDbDatabase& database, const Request& request);

} // namespace picture
