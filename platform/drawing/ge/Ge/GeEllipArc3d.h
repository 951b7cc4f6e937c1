#pragma once
#include "GeCurve3d.h"

/// An ellipse, a circle, or an arc of one: center + major cos t + minor sin t. The axes are perpendicular;
/// which is the longer one does not matter.
class OdGeEllipArc3d : public OdGeCurve3d {
public:
  /// Throws eInvalidInput unless 0 < to - from <= 2 pi.
  OdGeEllipArc3d(const OdGePoint3d& center, const OdGeVector3d& major, const OdGeVector3d& minor, double from,
                 double to);
  /// The angle from `start` on to `end`, in (0, 2 pi]; equal angles are a whole turn.
  static double sweep(double start, double end);

  const OdGePoint3d& center() const { return m_center; }
  const OdGeVector3d& majorAxis() const { return m_major; }
  const OdGeVector3d& minorAxis() const { return m_minor; }
  bool isCircular() const { return m_isCircular; }

  double startParam() const override { return m_from; }
  double endParam() const override { return m_to; }
  bool isClosed() const override;
  bool isPeriodic() const override { return isClosed(); }
  Evaluation evaluate(double param) const override;
  double lengthTo(double param) const override;
  double paramAtLength(double length) const override;
  double closestParam(const OdGePoint3d& point) const override;
  OdGeExtents3d extents() const override;

private:
  double integral(double param) const;
  double distanceSqrd(double param, const OdGePoint3d& point) const {
    return evalPoint(param).distanceSqrdTo(point);
  }

  OdGePoint3d m_center;
  OdGeVector3d m_major;
  OdGeVector3d m_minor;
  double m_majorLength;
  double m_minorLength;
  double m_from;
  double m_to;
  bool m_isCircular;
};
