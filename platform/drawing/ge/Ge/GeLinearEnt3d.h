#pragma once
#include "GeCurve3d.h"
#include <limits>

/// A straight line: a segment, a ray or a line without ends. Its parameter is the distance from its base
/// point, which is 0.
class OdGeLinearEnt3d : public OdGeCurve3d {
public:
  static constexpr double kEndless = std::numeric_limits<double>::infinity();

  /// From one point to another.
  OdGeLinearEnt3d(const OdGePoint3d& start, const OdGePoint3d& end);
  /// From `low` to `high` along a direction, of which the length does not matter.
  OdGeLinearEnt3d(const OdGePoint3d& base, const OdGeVector3d& direction, double low, double high);

  const OdGePoint3d& base() const { return m_base; }
  /// Of unit length.
  const OdGeVector3d& direction() const { return m_direction; }

  double startParam() const override { return m_low; }
  double endParam() const override { return m_high; }
  bool isClosed() const override { return false; }
  Evaluation evaluate(double param) const override { return {m_base + m_direction * param, m_direction, {}}; }
  double lengthTo(double param) const override { return hasStart() ? param - m_low : param; }
  double paramAtLength(double length) const override;
  double closestParam(const OdGePoint3d& point) const override;
  OdGeExtents3d extents() const override;

private:
  OdGePoint3d m_base;
  OdGeVector3d m_direction;
  double m_low;
  double m_high;
};
