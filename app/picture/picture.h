#pragma once
// Pictures of drawings.
#include "DbDatabase.h"
#include <filesystem>
#include <string>
#include <vector>

namespace picture {

struct Request {
  std::string file;   ///< .svg, .png or .pdf
  std::string layout; ///< its name in UTF-8; empty or "Model": model space
  int width = 0;      ///< pixels, of which there are 96 on an inch; 0: as wide and high as suits the contents
  int height = 0;
};

/// Why no picture can be written under this name, as a sentence without a period; empty: one can.
std::string fault(const std::string& file);
/// Reads "800x600"; false for anything else, and for sizes that no picture can have.
bool parseSize(const std::string& text, int& width, int& height);

/// Draws a space of the drawing into a file, which appears whole or not at all. Returns sentences about what
/// the picture does not show. Throws OdError: eInvalidInput for a request that cannot be met (format, name of
/// a layout), eInvalidExtents when there is nothing to draw, eFileWriteError with the name of the file when
/// it cannot be written.
std::vector<std::string> write(OdDbDatabase& database, const Request& request);

} // namespace picture
