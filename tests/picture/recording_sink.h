#pragma once
#include "picture/drawer.h"
#include "support/drawings.h"
#include <sstream>

namespace test {

/// Writes down what is drawn, one line for each part: "line x,y x,y", "area x,y x,y | x,y", "text x,y
/// CONTENTS". Numbers are rounded to hundredths; lines and areas name their colour unless it is black.
class RecordingSink : public picture::Sink {
public:
  void stroke(const picture::Pen& pen, const picture::Path& path) override {
    pens.push_back(pen);
    add("line" + colorOf(pen.color) + listOf(path));
  }
  void fill(const picture::Color& color, const std::vector<picture::Path>& loops,
            picture::FillRule) override {
    std::string text = "area" + colorOf(color);
    for (std::size_t i = 0; i < loops.size(); ++i) text += (i > 0 ? " |" : "") + listOf(loops[i]);
    add(text);
  }
  void shade(const picture::Shading& shading, const std::vector<picture::Path>& loops) override {
    std::string text = shading.isRadial ? "radial" : "linear";
    text += colorOf(shading.from) + colorOf(shading.to);
    text += listOf({shading.start, shading.start + shading.way}) + " over" + listOf(loops.at(0));
    add(text);
  }
  void text(const picture::TextRun& run) override {
    runs.push_back(run);
    add("text" + colorOf(run.color) + listOf({run.origin}) + " " + run.text);
  }
  void pushClip(const picture::Path& polygon) override { add("clip" + listOf(polygon)); }
  void popClip() override { add("unclip"); }

  std::vector<std::string> parts;
  std::vector<picture::Pen> pens;
  std::vector<picture::TextRun> runs;

private:
  void add(const std::string& part) { parts.push_back(part); }
  static std::string number(double value) {
    std::ostringstream out;
    out << std::round(value * 100) / 100 + 0.0;
    return out.str();
  }
  static std::string listOf(const picture::Path& path) {
    std::string text;
    for (const picture::Point& point : path) text += " " + number(point.x) + "," + number(point.y);
    return text;
  }
  static std::string colorOf(const picture::Color& color) {
    if (color == picture::Color{}) return {};
    return "(" + std::to_string(color.red) + " " + std::to_string(color.green) + " " +
           std::to_string(color.blue) + ")";
  }
};

/// Group lines of a drawing from "code value" pairs, separated by new lines.
inline std::string groups(const std::string& pairs) {
  std::istringstream in(pairs);
  std::string text;
  for (std::string line; std::getline(in, line);) {
    const std::size_t start = line.find_first_not_of(' ');
    if (start == std::string::npos) continue;
    const std::size_t blank = line.find(' ', start);
    text += line.substr(start, blank - start) + "\n" +
            (blank == std::string::npos ? "" : line.substr(blank + 1)) + "\n";
  }
  return text;
}

/// A drawing with these tables, block definitions and entities of model space, all as "code value" pairs. It
/// has the layers 0 (black), RED, OFF (off) and ICE (frozen), and the linetype DASH (2 and a gap of 1).
inline std::string drawing(const std::string& entities, const std::string& blocks = "",
                           const std::string& header = "", const std::string& objects = "") {
  return groups(R"(0 SECTION
    2 HEADER
    9 $ACADVER
    1 AC1015
)" + header + R"(
    0 ENDSEC
    0 SECTION
    2 TABLES
    0 TABLE
    2 LTYPE
    70 1
    0 LTYPE
    2 DASH
    70 0
    3 dashes
    72 65
    73 2
    40 3.0
    49 2.0
    74 0
    49 -1.0
    74 0
    0 ENDTAB
    0 TABLE
    2 LAYER
    70 5
    0 LAYER
    2 0
    70 0
    62 7
    6 Continuous
    0 LAYER
    2 RED
    70 0
    62 1
    6 DASH
    370 50
    0 LAYER
    2 OFF
    70 0
    62 -3
    6 Continuous
    0 LAYER
    2 ICE
    70 1
    62 3
    6 Continuous
    0 ENDTAB
    0 TABLE
    2 STYLE
    70 3
    0 STYLE
    5 51
    2 Standard
    70 0
    3 arial.ttf
    0 STYLE
    5 52
    2 UPRIGHT
    70 4
    3 simplex.shx
    0 ENDTAB
    0 TABLE
    2 DIMSTYLE
    70 1
    0 DIMSTYLE
    105 61
    100 AcDbSymbolTableRecord
    100 AcDbDimStyleTableRecord
    2 DIM
    70 0
    40 2
    41 1
    140 0.5
    178 1
    0 ENDTAB
    0 ENDSEC
    0 SECTION
    2 BLOCKS
)" + blocks + "\n0 ENDSEC\n0 SECTION\n2 ENTITIES\n" +
                entities + "\n0 ENDSEC\n0 SECTION\n2 OBJECTS\n" + objects + "\n0 ENDSEC\n0 EOF\n");
}

inline std::string block(const std::string& name, const std::string& entities,
                         const std::string& base = "10 0\n20 0\n") {
  return "0 BLOCK\n8 0\n2 " + name + "\n70 0\n" + base + "3 " + name + "\n" + entities + "\n0 ENDBLK\n8 0\n";
}

/// Draws model space. Every character is one capital letter wide.
class Drawn : public RecordingSink {
public:
  explicit Drawn(const std::string& dxf, double pixel = 0.01) {
    const OdDbDatabasePtr database = drawingFromText(dxf);
    const picture::MeasureText measure = [](const std::string& text, const picture::Font&) {
      return static_cast<double>(OdString::fromUtf8(text).getLength());
    };
    picture::View view;
    view.pixel = pixel;
    view.frame = {{-100, -100}, {100, 100}};
    picture::Drawer drawer(*database, *this, measure);
    drawer.drawSpace(database->getModelSpaceId(), view, OdGeMatrix3d());
    omissions = drawer.omissions();
  }
  picture::Omissions omissions;
};

} // namespace test
