#pragma once
#include "Ge/GeCurve3d.h"
#include "Ge/GeMatrix3d.h"
#include "Ge/GePoint2d.h"
#include <limits>
#include <vector>

namespace host {

/// A rectangle in the plan: the XY plane of a coordinate system, seen along its Z axis. It begins empty.
struct PlanBox {
  double left = std::numeric_limits<double>::infinity();
  double bottom = std::numeric_limits<double>::infinity();
  double right = -std::numeric_limits<double>::infinity();
  double top = -std::numeric_limits<double>::infinity();

  /// What the box covers in the plan that the transformation leads to; empty extents stay empty.
  static PlanBox of(OdGeExtents3d box, const OdGeMatrix3d& toPlan);
  bool isEmpty() const { return !(left <= right && bottom <= top); }
  double width() const { return right - left; }
  double height() const { return top - bottom; }
  OdGePoint2d center() const { return {left + width() / 2, bottom + height() / 2}; }
  void add(const OdGePoint2d& point);
  void add(const PlanBox& other);
  PlanBox grown(double margin) const {
    return {left - margin, bottom - margin, right + margin, top + margin};
  }
  bool holds(const OdGePoint2d& point) const;
  bool holds(const PlanBox& other) const;
  bool touches(const PlanBox& other) const;
};

/// Asks of an object, part by part, how it lies to a rectangle of the plan. Curves are followed as exactly as
/// the rectangle is small: to a millionth of its size.
class PlanProbe {
public:
  enum class Question {
    isTouched, ///< whether any part reaches into the rectangle
    isInside,  ///< whether all parts lie in it
    howNear,   ///< of the parts that reach into it, how near they come to its middle
  };
  enum class Inside {
    isOpen, ///< what lies within the edges counts, but comes behind everything that is hit by its lines
    isFull, ///< to hit it is as good as to hit a line
  };

  PlanProbe(const PlanBox& box, Question question);

  /// Whether no further part can change the answer.
  bool isDecided() const;
  /// For parts that lie somewhere in a box: false when the box has told all there is to know about them.
  bool needsParts(const PlanBox& box);

  void addPoint(const OdGePoint3d& point, const OdGeMatrix3d& toPlan);
  void addCurve(const OdGeCurve3d& curve, const OdGeMatrix3d& toPlan);
  /// What the edges enclose, by the rule of even and odd.
  void addArea(const std::vector<const OdGeCurve3d*>& edges, const OdGeMatrix3d& toPlan, Inside inside);

  bool isTouched() const { return m_isTouched; }
  bool isInside() const { return m_hasParts && m_isInside; }
  /// Infinite when nothing was touched.
  double distance() const { return m_distance; }

private:
  class PlacedCurve;
  struct Place;
  void follow(const PlacedCurve& curve, const Place& from, const Place& to, int depth);
  void addSegment(const OdGePoint2d& from, const OdGePoint2d& to);
  void addStraight(const OdGePoint2d& base, const OdGeVector2d& way, double low, double high);
  void noteTouched(double distance);
  void countCrossing(const OdGePoint2d& from, const OdGePoint2d& to);

  PlanBox m_box;
  OdGePoint2d m_center;
  Question m_question;
  double m_tolerance; ///< by which curves may be simplified
  long m_steps = 0;   ///< that may still be spent on the curve under way
  bool m_hasParts = false;
  bool m_isTouched = false;
  bool m_isInside = true;
  bool m_isOddCrossing = false; ///< of the line from the middle to the right with the edges so far
  double m_distance = std::numeric_limits<double>::infinity();
};

} // namespace host
