#pragma once
// What somebody asks of a picture.
#include "DbEntity.h"
#include <string>
#include <vector>

namespace picture {

struct Request {
  std::string file;   ///< .svg, .png or .pdf
  std::string layout; ///< its name in UTF-8; empty or "Model": model space
  int width = 0;      ///< pixels, of which there are 96 on an inch; 0: as wide and high as suits the contents
  int height = 0;
  std::vector<OdDbObjectId> highlighted; ///< objects to be shown so, in a colour of their own and thicker
  std::vector<OdDbEntityPtr> preview;    ///< shown over the space; they need not be in a drawing
};

enum class Format { unknown, svg, png, pdf };

/// The format that the extension of the file tells.
Format formatOf(const std::string& file);
/// Reads "800x600"; false for anything else, and for sizes that no picture can have.
bool parseSize(const std::string& text, int& width, int& height);

} // namespace picture
