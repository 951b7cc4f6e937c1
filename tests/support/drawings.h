#pragma once
// Drawings in memory.
#include "DbDatabase.h"
#include <string>
#include <string_view>

namespace test {

/// The drawing that this DXF text describes; the text is copied.
OdDbDatabasePtr drawingFromText(std::string_view dxf);
/// The bytes that saving would write.
std::string savedBytes(OdDbDatabase& database);

} // namespace test
