// XLINE: what the answers of each mode draw. Expected places are worked out by hand, with triangles 3, 4, 5.
#include "DbCircle.h"
#include "DbLine.h"
#include "ray_session.h"

namespace {

using testing::ElementsAre;

OdDbLinePtr segment(const OdGePoint3d& from, const OdGePoint3d& to) {
  OdDbLinePtr line = OdDbLine::createObject();
  line->setStartPoint(from);
  line->setEndPoint(to);
  return line;
}

class Xline : public RaySession {
protected:
  void check(std::initializer_list<Case> cases) { RaySession::check("XLINE", cases); }
  void setInteger(const wchar_t* variable, int value) {
    database().setSysVar(variable, OdResBuf::newRb(70, OdInt64(value)));
  }
};

TEST_F(Xline, ThroughAStartPoint) {
  check({
      {"Esc at once", "^C", kCancelled, ""},
      {"Enter at once", "", kDone, ""},
      {"Enter after the start", "1,1|", kDone, ""},
      {"what is drawn before Esc stays", "1,2|4,6|^C", kCancelled, "xline 1,2,0 0.6,0.8,0"},
      {"all through one start", "0,0|-5,0|0,0|0.00000000005,0|0,0,2|", kDone,
       "xline 0,0,0 -1,0,0 + xline 0,0,0 0,0,1"},
      {"points farther apart than numbers reach", "-1e308,0|1e308,0|", kDone, ""},
      {"turned", "1,0|1,1|", kDone, "xline 10.6,0.8,0 -0.8,0.6,0", kRotated},
      {"tilted", "0,0|3,4|", kDone, "xline 1,2,3 0.6,0.48,0.64", kTilted},
  });
}

TEST_F(Xline, AlongTheAxesOfTheCoordinateSystem) {
  check({
      {"horizontal", "Hor|3,4|5,6,7|", kDone, "xline 3,4,0 1,0,0 + xline 5,6,7 1,0,0"},
      {"vertical", "v|0,0|", kDone, "xline 0,0,0 0,1,0"},
      {"nothing drawn", "Ver|", kDone, ""},
      {"Esc", "Hor|1,1|^C", kCancelled, "xline 1,1,0 1,0,0"},
      {"horizontal, turned", "Hor|1,0|", kDone, "xline 10.6,0.8,0 0.6,0.8,0", kRotated},
      {"vertical, turned", "Ver|0,0|", kDone, "xline 10,0,0 -0.8,0.6,0", kRotated},
      {"horizontal, tilted", "Hor|0,5|", kDone, "xline 1,5,7 1,0,0", kTilted},
      {"vertical, tilted", "Ver|0,5|", kDone, "xline 1,5,7 0,0.6,0.8", kTilted},
  });
}

TEST_F(Xline, AtAnAngle) {
  // The cosine of 30 degrees is 0.866025404. Turned by 90 degrees, (0.6, 0.8) becomes (-0.8, 0.6); tilted,
  // (0, 1) becomes (0, 0.6, 0.8).
  check({
      {"0 unless told", "Ang||1,2|3,4|", kDone, "xline 1,2,0 1,0,0 + xline 3,4,0 1,0,0"},
      {"degrees", "Ang|30|0,0|", kDone, "xline 0,0,0 0.866025404,0.5,0"},
      {"negative", "Ang|-90|0,0|", kDone, "xline 0,0,0 0,-1,0"},
      {"shown by two points", "Ang|1,1,0|4,5|9,9|", kDone, "xline 9,9,0 0.6,0.8,0"},
      {"Esc at the angle", "Ang|^C", kCancelled, ""},
      {"Enter at the point", "Ang|45|", kDone, ""},
      {"Esc at the point", "Ang||1,2|^C", kCancelled, "xline 1,2,0 1,0,0"},
      {"turned", "Ang|90|0,0|", kDone, "xline 10,0,0 -0.8,0.6,0", kRotated},
      {"turned, 0", "Ang||0,0|", kDone, "xline 10,0,0 0.6,0.8,0", kRotated},
      {"tilted", "Ang|90|0,0|", kDone, "xline 1,2,3 0,0.6,0.8", kTilted},
      {"seen from below", "Ang|30|0,0|", kDone, "xline 0,0,0 0.866025404,-0.5,0", kBelow},
  });
}

TEST_F(Xline, AnglesAreCountedAsTheDrawingCountsThem) {
  const std::string line = add(segment({0, 0, 0}, {4, 3, 0}));
  database().setSysVar(L"$ANGBASE", OdResBuf::newRb(50, 90.0));
  setInteger(L"$ANGDIR", 1);
  check({
      {"0 is up", "Ang|0|0,0|", kDone, "xline 0,0,0 0,1,0"},
      {"and so is Enter", "Ang||0,0|", kDone, "xline 0,0,0 0,1,0"},
      {"clockwise from there", "Ang|60|0,0|", kDone, "xline 0,0,0 0.866025404,0.5,0"},
      {"parallel", "Ang|Ref|" + line + "||0,0|", kDone, "xline 0,0,0 0.8,0.6,0"},
      {"clockwise from the line", "Ang|R|" + line + "|90|0,0|", kDone, "xline 0,0,0 0.6,-0.8,0"},
  });
}

TEST_F(Xline, AtAnAngleToALine) {
  const OdDbXlinePtr xline = OdDbXline::createObject();
  xline->setUnitDir({0, 5, 0});
  const OdDbRayPtr ray = OdDbRay::createObject();
  ray->setUnitDir({-1, 0, 0});
  const std::string line = add(segment({1, 1, 0}, {4, 5, 0})), endless = add(xline), half = add(ray);
  const std::string point = add(segment({7, 7, 0}, {7, 7, 0})), circle = add(OdDbCircle::createObject());
  const std::string steep = add(segment({0, 0, 0}, {3, 0, 4})), upright = add(segment({0, 0, 0}, {0, 0, 4}));
  check({
      {"parallel", "Ang|Reference|" + line + "||0,0|", kDone, "xline 0,0,0 0.6,0.8,0"},
      {"added to the line's", "Ang|R|" + line + "|90|2,2|", kDone, "xline 2,2,0 -0.8,0.6,0"},
      {"of a construction line", "Ang|R|" + endless + "|-30|0,0|", kDone, "xline 0,0,0 0.5,0.866025404,0"},
      {"of a ray", "Ang|R|" + half + "||0,0|", kDone, "xline 0,0,0 -1,0,0"},
      {"of the line as it is seen", "Ang|R|" + steep + "||0,0|", kDone, "xline 0,0,0 1,0,0"},
      {"after objects of no use",
       "Ang|R|" + circle + "|" + point + "|" + upright + "|" + line + "||0,0|",
       kDone,
       "xline 0,0,0 0.6,0.8,0",
       {},
       3},
      {"Esc at the object", "Ang|R|^C", kCancelled, ""},
      {"Enter at the object", "Ang|R|", kCancelled, ""},
      {"Esc after an object of no use", "Ang|R|" + circle + "|^C", kCancelled, "", {}, 1},
      {"Esc at the second angle", "Ang|R|" + line + "|^C", kCancelled, ""},
      {"turned", "Ang|R|" + line + "|90|0,0|", kDone, "xline 10,0,0 -0.8,0.6,0", kRotated},
      // (3, 4, 0) is (3, 2.4) in a plane whose Y axis is (0, 0.6, 0.8); 3 : 2.4 is 5 : 4, of
      // length 6.403124237.
      {"tilted", "Ang|R|" + line + "||0,0|", kDone, "xline 1,2,3 0.780868809,0.374817029,0.499756038",
       kTilted},
      {"upright from the front", "Ang|R|" + upright + "||0,0|", kDone, "xline 0,0,0 0,0,1", kFront},
  });
}

TEST_F(Xline, HalvingAngles) {
  check({
      {"a right angle", "Bisect|0,0|9,0|0,1|", kDone, "xline 0,0,0 0.707106781,0.707106781,0"},
      // (1, 0) and (0.6, 0.8) add up to (1.6, 0.8), which is 2 : 1.
      {"several from one start", "b|1,1|2,1|4,5|4,-3|", kDone,
       "xline 1,1,0 0.894427191,0.447213595,0 + xline 1,1,0 0.894427191,-0.447213595,0"},
      {"no angle", "b|0,0|2,0|5,0|", kDone, "xline 0,0,0 1,0,0"},
      {"the vertex, and what lies opposite, have no bisector", "b|0,0|2,0|0,0|-7,0|0,2|", kDone,
       "xline 0,0,0 0.707106781,0.707106781,0"},
      {"a start on the vertex is asked for again", "b|3,3|3,3|4,3|3,4|", kDone,
       "xline 3,3,0 0.707106781,0.707106781,0"},
      {"points farther apart than numbers reach", "b|-1e308,0|1e308,0|0,0|0,0|", kDone,
       "xline -1e+308,0,0 1,0,0"},
      {"Esc at the vertex", "b|^C", kCancelled, ""},
      {"Enter at the vertex", "b|", kDone, ""},
      {"Esc at the start", "b|0,0|^C", kCancelled, ""},
      {"Enter at the start", "b|0,0|", kDone, ""},
      {"Esc at the end", "b|0,0|1,0|1,0|^C", kCancelled, "xline 0,0,0 1,0,0"},
      // Half of (0.6, 0.8) and (-0.8, 0.6) is (-0.1, 0.7).
      {"turned", "b|0,0|1,0|0,1|", kDone, "xline 10,0,0 -0.141421356,0.989949494,0", kRotated},
      // Half of (1, 0, 0) and (0, 0.6, 0.8) is (0.5, 0.3, 0.4).
      {"tilted", "b|0,0|1,0|0,1|", kDone, "xline 1,2,3 0.707106781,0.424264069,0.565685425", kTilted},
  });
}

/// The normal of the line (0,0) to (3,4) is (-0.8, 0.6); that of an X axis the Y axis.
TEST_F(Xline, BesideALine) {
  const std::string line = add(segment({0, 0, 0}, {3, 4, 0})), back = add(segment({3, 4, 0}, {0, 0, 0}));
  const std::string axis = add(segment({0, 0, 0}, {2, 0, 0})), upright = add(segment({0, 0, 0}, {0, 0, 4}));
  const std::string circle = add(OdDbCircle::createObject());
  const std::string steep = add(segment({0, 0, 0}, {3, 0, 4})),
                    far = add(segment({0, 1e308, 0}, {9, 1e308, 0}));
  check({
      {"left", "Offset|5|" + line + "|-9,9|", kDone, "xline -4,3,0 0.6,0.8,0"},
      {"right", "o|5|" + line + "|9,9|", kDone, "xline 4,-3,0 0.6,0.8,0"},
      {"on it", "o|5|" + line + "|6,8|", kDone, "xline 4,-3,0 0.6,0.8,0"},
      {"behind it", "o|5|" + line + "|-6,-8|", kDone, "xline 4,-3,0 0.6,0.8,0"},
      {"the other way", "o|5|" + back + "|-9,9|", kDone, "xline -1,7,0 -0.6,-0.8,0"},
      {"one after the other", "o|2|" + axis + "|0,1|" + line + "|9,9|" + axis + "|0,-1|", kDone,
       "xline 0,2,0 1,0,0 + xline 1.6,-1.2,0 0.6,0.8,0 + xline 0,-2,0 1,0,0"},
      {"at once where the distance is 0", "o|0|" + line + "|9,9|", kDone, "xline 0,0,0 0.6,0.8,0"},
      {"higher and lower ends", "o|2|" + steep + "|0,1|", kDone, "xline 0,2,0 0.6,0,0.8"},
      {"no usable object", "o|2|" + circle + "|" + axis + "|0,1|", kDone, "xline 0,2,0 1,0,0", {}, 1},
      {"a line without sides",
       "o|2|" + upright + "|0,1|" + axis + "|0,1|",
       kDone,
       "xline 0,2,0 1,0,0",
       {},
       1},
      {"where numbers end", "o|1.7e308|" + far + "|0,1.5e308|", kDone, "", {}, 1},
      {"Esc at the distance", "o|^C", kCancelled, ""},
      {"Esc at the object", "o|2|^C", kCancelled, ""},
      {"Enter at the object", "o|2|", kCancelled, ""},
      {"Esc at the side", "o|2|" + axis + "|^C", kCancelled, ""},
      {"Enter at the side", "o|2|" + axis + "|", kDone, ""},
      {"Esc later", "o|2|" + axis + "|0,1|^C", kCancelled, "xline 0,2,0 1,0,0"},
      {"turned", "o|5|" + line + "|*-9,9,0|", kDone, "xline -4,3,0 0.6,0.8,0", kRotated},
      {"from below", "o|2|" + axis + "|0,3|", kDone, "xline 0,-2,0 1,0,0", kBelow},
      {"from below, other side", "o|2|" + axis + "|0,-3|", kDone, "xline 0,2,0 1,0,0", kBelow},
      {"from the front", "o|2|" + axis + "|0,3|", kDone, "xline 0,0,2 1,0,0", kFront},
      {"from the front, upright", "o|2|" + upright + "|3,0|", kDone, "xline 2,0,0 0,0,1", kFront},
      {"tilted", "o|5|" + axis + "|0,9|", kDone, "xline 0,3,4 1,0,0", kTilted},
      {"tilted, other side", "o|5|" + axis + "|0,-9|", kDone, "xline 0,-3,-4 1,0,0", kTilted},
  });
}

TEST_F(Xline, ParallelsThroughPoints) {
  const std::string line = add(segment({0, 0, 0}, {3, 4, 0})), upright = add(segment({0, 0, 0}, {0, 0, 4}));
  check({
      {"at once", "o||" + line + "|5,5|7,7|", kDone, "xline 5,5,0 0.6,0.8,0 + xline 7,7,0 0.6,0.8,0"},
      {"no direction", "o||" + upright + "|" + line + "|5,5|", kDone, "xline 5,5,0 0.6,0.8,0", {}, 1},
      {"Esc at the object", "o||^C", kCancelled, ""},
      {"Enter at the object", "o||", kCancelled, ""},
      {"Esc at the point", "o||" + line + "|1,1|^C", kCancelled, "xline 1,1,0 0.6,0.8,0"},
      // As with angles, (3, 4, 0) is seen as (3, 2.4) in that plane.
      {"tilted", "o||" + line + "|0,0|", kDone, "xline 1,2,3 0.780868809,0.374817029,0.499756038", kTilted},
  });
}

TEST_F(Xline, TheOffsetIsRememberedWhileTheModuleIsLoaded) {
  add(segment({0, 0, 0}, {3, 0, 0}));
  const struct {
    const char* answers;
    const char* shown;
    const char* last; ///< prompt
  } runs[] = {
      {"o||last|^C", "[Through]", "Specify through point: "},
      {"o|2.5|^C", "[Through]", "Select a line object: "},
      {"o||last|^C", "[2.5000] [Through]", "Specify side to offset: "},
      {"o|t|last|^C", "[2.5000] [Through]", "Specify through point: "},
      {"o|6'|last|0,1|", "[Through]", "Select a line object: "},
      {"o|^C", "[72.0000] [Through]", "Specify offset distance [72.0000] [Through]: "},
  };
  for (const auto& each : runs) {
    SCOPED_TRACE(each.answers);
    run("XLINE", each.answers);
    EXPECT_EQ(lines.prompts[1], std::string("Specify offset distance ") + each.shown + ": ");
    EXPECT_EQ(lines.prompts.back(), each.last);
  }
  setInteger(L"$LUNITS", 4);
  run("XLINE", "o|30.5|^C");
  EXPECT_EQ(lines.prompts[1], "Specify offset distance [6'-0\"] [Through]: ");
  run("XLINE", "o|-1|^C");
  EXPECT_EQ(lines.prompts[1], "Specify offset distance [2'-6 1/2\"] [Through]: ");
  EXPECT_THAT(lines.printed, ElementsAre("\"-1\" is not a distance of at least 0, nor one of Through."));
}

TEST_F(Xline, ACoordinateSystemWithoutAnAxisIsTold) {
  database().setSysVar(L"$UCSXDIR", OdResBuf::newRb(10, OdGePoint3d()));
  EXPECT_EQ(run("XLINE", "Hor").result, host::RunResult::failed);
  EXPECT_THAT(lines.printed, ElementsAre("XLINE failed: The geometry is degenerate: a length, direction or "
                                         "plane is missing."));
}

TEST_F(Xline, PreviewsTheNextLine) {
  add(segment({0, 0, 0}, {3, 4, 0}));
  const std::pair<const char*, std::string> cases[] = {
      {"1,1|move 1,1|move 4,5|^C", "xline through 1,1 towards 4,5"},
      {"Hor|move 2,3|^C", "xline through 2,3 towards 3,3"},
      {"Ver|move 2,3|^C", "xline through 2,3 towards 2,4"},
      {"Ang|90|move 2,3|^C", "xline through 2,3 towards 2,4"},
      {"Ang|R|last||move 0,0|^C", "xline through 0,0 towards 0.6,0.8"},
      {"Bisect|0,0|9,0|move 0,0|move -1,0|move 0,4|^C", "xline through 0,0 towards 2,2"},
      {"Offset||last|move 5,5|^C", "xline through 5,5 towards 5.6,5.8"},
  };
  for (const auto& [answers, shown] : cases) {
    run("XLINE", answers);
    EXPECT_THAT(lines.printed, ElementsAre("Preview: " + shown)) << answers;
  }
}

TEST_F(Xline, Prompts) {
  add(segment({0, 0, 0}, {3, 0, 0}));
  const std::string start = "Specify start point [Hor/Ver/Ang/Bisect/Offset]: ";
  const std::string through = "Specify through point: ", object = "Select a line object: ";
  const std::string angle = "Enter angle of xline (0) [Reference]: ", end = "Specify angle end point: ";
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {"0,0|1,0|", {start, through, through}},
      {"Hor|1,0|", {start, through, through}},
      {"Ang|1|1,0|", {start, angle, through, through}},
      {"Ang|R|last||1,0|", {start, angle, object, "Enter angle of xline (0): ", through, through}},
      {"Bisect|0,0|1,0|0,1|",
       {start, "Specify angle vertex point: ", "Specify angle start point: ", end, end}},
      {"Offset|1|last|0,1|",
       {start, "Specify offset distance [Through]: ", object, "Specify side to offset: ", object}},
  };
  for (const auto& [answers, prompts] : cases) {
    run("XLINE", answers);
    EXPECT_EQ(lines.prompts, prompts);
  }
}

} // namespace
