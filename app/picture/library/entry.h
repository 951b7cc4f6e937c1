#pragma once
// What the library for pictures exports.
#include "DbDatabase.h"
#include "picture/request.h"
#include <vector>

namespace picture {

/// See picture::write; `notes` takes its sentences.
using Write = void(OdDbDatabase& database, const Request& request, std::vector<std::string>& notes);
constexpr char kWriteSymbol[] = "hbpictureWrite";

} // namespace picture
