#pragma once
#include "DbXline.h"
#include "construct_session.h"

/// An endless line in one line of text, such as "ray 0,0,0 0.6,0.8,0": base point and direction, numbers with
/// nine digits.
std::string text(const OdDbEndlessLine& line);

/// Origin, X axis and Y axis of a coordinate system, in world coordinates.
struct Ucs {
  OdGePoint3d origin;
  OdGeVector3d x = OdGeVector3d::kXAxis;
  OdGeVector3d y = OdGeVector3d::kYAxis;
};
/// Turned about Z by the angle of the triangle 3, 4, 5, and moved.
inline const Ucs kRotated{{10, 0, 0}, {0.6, 0.8, 0}, {-0.8, 0.6, 0}};
/// Seen from the front: Y is the world's Z, and Z the world's -Y.
inline const Ucs kFront{{}, {1, 0, 0}, {0, 0, 1}};
/// Y leans back by the angle of the triangle 3, 4, 5; Z is (0, -0.8, 0.6).
inline const Ucs kTilted{{1, 2, 3}, {1, 0, 0}, {0, 0.6, 0.8}};
/// Seen from below: Z is the world's -Z.
inline const Ucs kBelow{{}, {1, 0, 0}, {0, -1, 0}};

constexpr host::RunResult kDone = host::RunResult::completed;
constexpr host::RunResult kCancelled = host::RunResult::cancelled;

/// A session whose commands draw rays and construction lines.
class RaySession : public ConstructSession {
protected:
  struct Outcome {
    host::RunResult result{};
    std::string drawn; ///< in model space, in the order of drawing, separated by " + "
  };

  struct Case {
    const char* name;
    std::string answers;
    host::RunResult result;
    std::string drawn;
    Ucs ucs = {};
    int unusable = 0; ///< how often an object is told to be of no use; nothing else is told
  };

  void setUcs(const Ucs& ucs) { database().setUCS(ucs.origin, ucs.x, ucs.y); }

  /// Answers are separated by "|", an empty one being Enter.
  host::RunResult execute(const std::string& command, const std::string& answers);
  Outcome run(const std::string& command, const std::string& answers);

  void check(const std::string& command, std::initializer_list<Case> cases);

  /// The rays and construction lines of a block record.
  static std::vector<std::string> linesOf(OdDbObjectId record);
  /// Adds an entity to model space; what picks it.
  std::string add(OdDbEntity* entity);
};
