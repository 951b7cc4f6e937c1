#pragma once
// What somebody asks of a picture.
#include <string>

namespace picture {

struct Request {
  std::string file;   ///< .svg, .png or .pdf
  std::string layout; ///< its name in UTF-8; empty or "Model": model space
  int width = 0;      ///< pixels, of which there are 96 on an inch; 0: as wide and high as suits the contents
  int height = 0;
};

enum class Format { unknown, svg, png, pdf };

/// The format that the extension of the file tells.
Format formatOf(const std::string& file);
/// Reads "800x600"; false for anything else, and for sizes that no picture can have.
bool parseSize(const std::string& text, int& width, int& height);

} // namespace picture
