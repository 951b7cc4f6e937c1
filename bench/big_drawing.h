#pragma once
#include <iosfwd>
#include <string>
#include <vector>

/// What a generated drawing holds. The same description gives the same bytes.
struct BigDrawing {
  enum class Release { r2000, r2018 };
  int references = 1000;
  int definitions = 50;
  int attributes = 8; ///< of each reference, at most kMostAttributes
  Release release = Release::r2018;

  static constexpr int kMostAttributes = 16;
};

/// Writes a drawing: model space is a grid of block references (turned, scaled, mirrored, arrayed), each with
/// its attributes (plain, centred, invisible, multi-line, preset, locked, not ASCII, long), among lines,
/// circles and polylines on sixteen layers. Every twentieth reference is out of date: it has a tag that its
/// block does not know.
void writeBigDrawing(const BigDrawing& description, std::ostream& out);
/// The same as text.
std::string bigDrawing(const BigDrawing& description);
/// Every tag that attributes of the drawing have.
std::vector<std::string> bigDrawingTags(const BigDrawing& description);
