#include "DbSymbolTable.h"
#include "picture/sheet.h"
#include "recording_sink.h"
#include <gmock/gmock.h>

namespace {

/// A sheet with these viewports over a model of a line on layer 0 and one on layer RED.
std::vector<std::string> drawnSheet(const std::string& viewports) {
  const std::string lines = "0 LINE\n8 0\n10 0\n20 0\n11 10\n21 0\n0 LINE\n8 RED\n10 0\n20 0\n11 0\n21 5\n";
  const OdDbDatabasePtr database = test::drawingFromText(test::drawing(lines + viewports));
  test::RecordingSink sink;
  const picture::MeasureText measure;
  picture::Drawer drawer(*database, sink, measure);
  picture::View view;
  view.pixel = 0.1;
  picture::drawSheet(drawer, sink, database->getPaperSpaceId(), view);
  return sink.parts;
}

std::string viewport(const std::string& more) {
  return "0 VIEWPORT\n100 AcDbEntity\n67 1\n8 0\n100 AcDbViewport\n10 100\n20 50\n40 40\n41 20\n68 1\n12 "
         "5\n22 0\n45 10\n" +
         more;
}

TEST(Sheet, ViewportsShowModelSpace) {
  const struct {
    std::string viewports;
    std::vector<std::string> parts;
  } cases[] = {
      {viewport("69 2"),
       {"clip 80,40 120,40 120,60 80,60", "line 90,50 110,50", "line(255 0 0) 90,50 90,60", "unclip",
        "line 80,40 120,40 120,60 80,60 80,40"}},
      // Turned by a right angle about the origin, before the middle of the view is taken.
      {viewport("69 2\n51 90"),
       {"clip 80,40 120,40 120,60 80,60", "line 90,50 90,70", "line(255 0 0) 90,50 80,50", "unclip",
        "line 80,40 120,40 120,60 80,60 80,40"}},
      // From behind: right and left change places.
      {viewport("69 2\n16 0\n26 0\n36 -1"),
       {"clip 80,40 120,40 120,60 80,60", "line 90,50 70,50", "line(255 0 0) 90,50 90,60", "unclip",
        "line 80,40 120,40 120,60 80,60 80,40"}},
      {viewport("69 2\n90 131072"), {"line 80,40 120,40 120,60 80,60 80,40"}},
      {viewport("69 1"), {}},
      // Numbers get lost; the sheet is known by showing itself.
      {"0 VIEWPORT\n100 AcDbEntity\n67 1\n8 0\n100 AcDbViewport\n10 5\n20 4\n40 12\n41 9\n68 1\n69 -1\n12 "
       "5\n22 4\n45 9",
       {}},
  };
  for (const auto& [viewports, parts] : cases) EXPECT_EQ(drawnSheet(viewports), parts) << viewports;
}

TEST(Sheet, ViewportsOfOldReleasesKeepTheirViewInExtendedData) {
  const std::string oldViewport =
      "0 VIEWPORT\n67 1\n8 0\n10 100\n20 50\n40 40\n41 20\n68 1\n69 2\n1001 ACAD\n"
      "1000 MVIEW\n1002 {\n1070 16\n1010 5\n1020 0\n1030 0\n"
      "1010 0\n1020 0\n1030 1\n1040 1.5707963267948966\n1040 10\n1040 1\n1040 2\n";
  // Scaled by two, turned by a right angle about the target, and then moved.
  EXPECT_EQ(drawnSheet(oldViewport),
            (std::vector<std::string>{"clip 80,40 120,40 120,60 80,60", "line 98,36 98,56",
                                      "line(255 0 0) 98,36 88,36", "unclip",
                                      "line 80,40 120,40 120,60 80,60 80,40"}));
  const std::string rest =
      "1040 50\n1040 0\n1040 0\n1070 0\n1070 100\n1070 1\n1070 0\n1070 0\n1070 0\n1070 0\n"
      "1070 0\n1040 0\n1040 0\n1040 0\n1040 1\n1040 1\n1040 1\n1040 1\n1070 0\n1002 {\n";
  EXPECT_EQ(drawnSheet(oldViewport + rest + "1003 red\n1002 }\n1002 }\n"),
            (std::vector<std::string>{"clip 80,40 120,40 120,60 80,60", "line 98,36 98,56", "unclip",
                                      "line 80,40 120,40 120,60 80,60 80,40"}));
}

TEST(Sheet, LayersCanBeFrozenInOneViewport) {
  const OdDbDatabasePtr database = test::drawingFromText(test::drawing(""));
  const auto layers = database->getLayerTableId().openObject();
  const OdDbObjectId red = OdDbSymbolTable::cast(layers)->getAt(L"RED");
  const std::string handle = red.getHandle().ascii().toUtf8();
  EXPECT_EQ(drawnSheet(viewport("69 2\n331 " + handle)),
            (std::vector<std::string>{"clip 80,40 120,40 120,60 80,60", "line 90,50 110,50", "unclip",
                                      "line 80,40 120,40 120,60 80,60 80,40"}));
}

} // namespace
