#pragma once
#include "DbDatabase.h"
#include "picture/request.h"
#include <vector>

namespace app {

/// Draws a picture as picture::write does. The first one loads the library for pictures: what that stands on
/// takes longer to load than most drawings to read. Throws OdError, as well when the library cannot be
/// loaded.
std::vector<std::string> drawPicture(OdDbDatabase& database, const picture::Request& request);

} // namespace app
