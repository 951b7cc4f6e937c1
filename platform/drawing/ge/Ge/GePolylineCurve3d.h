#pragma once
#include "GePiecewiseCurve3d.h"

/// A polyline of straight segments and arcs. The whole parameters are the vertices; between them the
/// parameter grows with the length.
class OdGePolylineCurve3d : public OdGePiecewiseCurve3d {
public:
  /// `bulges` has one item a vertex, for the segment that begins there: the tangent of a quarter of its
  /// angle, positive when it turns counterclockwise about the normal; or it is empty. A closed polyline goes
  /// back to its first vertex. Vertices may coincide, as long as not all do.
  OdGePolylineCurve3d(std::vector<OdGePoint3d> vertices, std::vector<double> bulges, bool closed,
                      const OdGeVector3d& normal = OdGeVector3d::kZAxis);

  bool isClosed() const override { return m_isClosed; }
  Evaluation evaluate(double param) const override;

protected:
  double lengthInPiece(std::size_t piece, double param) const override;
  double paramInPiece(std::size_t piece, double length) const override;
  double closestInPiece(std::size_t piece, const OdGePoint3d& point) const override;
  OdGeExtents3d pieceExtents(std::size_t piece) const override;

private:
  double bulge(std::size_t piece) const { return m_bulges.empty() ? 0 : m_bulges[piece]; }
  double pieceLength(std::size_t piece) const { return joint(piece + 1).length - joint(piece).length; }
  OdGeVector3d turned(const OdGeVector3d& vector, double angle) const {
    return vector * std::cos(angle) + m_normal.crossProduct(vector) * std::sin(angle);
  }
  Evaluation evaluateArc(std::size_t piece, double part) const;
  /// The part of an arc in the direction of a point as seen from its centre; outside of 0..1 beyond its ends.
  double partTowards(std::size_t piece, const OdGeVector3d& fromMiddle) const;

  std::vector<double> m_bulges;
  OdGeVector3d m_normal;
  bool m_isClosed;
};
