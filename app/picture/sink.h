#pragma once
// What a picture is made of, and who takes it. Everything here lies in the plane of the picture: x to the
// right, y up, in the units of the space that is drawn.
#include "DbObject.h"
#include "Ge/GePoint2d.h"
#include <functional>
#include <string>
#include <tuple>
#include <vector>

namespace picture {

using Point = OdGePoint2d;
using Path = std::vector<Point>;

struct Color {
  OdUInt8 red = 0;
  OdUInt8 green = 0;
  OdUInt8 blue = 0;
  OdUInt8 alpha = 255; ///< 255 is opaque
  friend bool operator==(const Color&, const Color&) = default;
};
inline constexpr Color kPaper{255, 255, 255};

/// How a line is drawn.
struct Pen {
  Color color;
  double width = 0;           ///< in picture units; 0: the lineweight counts
  double weight = 0.25;       ///< lineweight in millimetres of paper; 0: as thin as possible
  std::vector<double> dashes; ///< picture units: dash, gap, dash...; 0 is a dot; empty: continuous
};

/// A font of the machine, and how wide the letters of the font are that it stands for.
struct Font {
  enum class Widths {
    own,       ///< those of the machine's font
    grotesque, ///< of the common sans serif fonts
    line,      ///< of fonts whose letters are single lines
  };
  std::string family = "sans";
  bool bold = false;
  bool italic = false;
  Widths widths = Widths::own;
  friend bool operator<(const Font& a, const Font& b) {
    return std::tie(a.family, a.bold, a.italic, a.widths) < std::tie(b.family, b.bold, b.italic, b.widths);
  }
};

/// A change from one colour to another, along a line or from a point outwards.
struct Shading {
  Color from;
  Color to;
  Point start;
  OdGeVector2d way;        ///< to the point that has the second colour
  bool isRadial = false;   ///< in circles around the start
  bool isMirrored = false; ///< and back to the first colour, over as long a way
};

/// Characters on one base line. The unit of the text's own coordinates is the height of its capital letters.
struct TextRun {
  std::string text; ///< UTF-8
  Font font;
  Color color;
  Point origin;       ///< start of the base line
  OdGeVector2d along; ///< one unit along the base line
  OdGeVector2d up;    ///< one unit upwards; not at a right angle to `along` in slanted text
  double width = 0;   ///< in units
};

/// The width of a text (UTF-8), in heights of its capital letters.
using MeasureText = std::function<double(const std::string& text, const Font& font)>;

enum class FillRule { evenOdd, winding };

/// Takes the parts of a picture in the order in which they cover each other.
class Sink {
public:
  Sink() = default;
  virtual ~Sink() = default;
  Sink(const Sink&) = delete;
  Sink& operator=(const Sink&) = delete;

  /// A line through at least one point; a single point is a dot.
  virtual void stroke(const Pen& pen, const Path& path) = 0;
  virtual void fill(const Color& color, const std::vector<Path>& loops, FillRule rule) = 0;
  virtual void shade(const Shading& shading, const std::vector<Path>& loops) {
    fill(shading.from, loops, FillRule::evenOdd);
  }
  virtual void text(const TextRun& run) = 0;
  /// What follows, up to the popClip that belongs to it, shows inside the polygon only.
  virtual void pushClip(const Path& polygon) = 0;
  virtual void popClip() = 0;
};

/// A box along the axes of the picture; begins empty.
struct Box {
  Point low{1e300, 1e300};
  Point high{-1e300, -1e300};

  bool isEmpty() const { return !(low.x <= high.x && low.y <= high.y); }
  double width() const { return high.x - low.x; }
  double height() const { return high.y - low.y; }
  Point center() const { return {(low.x + high.x) / 2, (low.y + high.y) / 2}; }
  void add(const Point& point);
  void add(const Box& other);
  bool touches(const Box& other) const;
  Box grown(double by) const { return {{low.x - by, low.y - by}, {high.x + by, high.y + by}}; }
  Path corners() const { return {low, {high.x, low.y}, high, {low.x, high.y}}; }
};

/// The part of a segment inside a box; false when there is none.
bool cutSegment(const Box& box, Point& from, Point& to);

} // namespace picture
