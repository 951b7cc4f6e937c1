#pragma once
#include "GePiecewiseCurve3d.h"
#include <memory>

/// A B-spline curve, rational where it has weights.
class OdGeNurbCurve3d : public OdGePiecewiseCurve3d {
public:
  static constexpr int kHighestDegree = 25;

  /// Throws eInvalidInput unless 1 <= degree <= kHighestDegree, there are more control points than the degree
  /// and degree + 1 more knots than control points, which do not fall and of which no more than `degree` are
  /// equal inside the curve, and weights are as many as control points, or none, and positive.
  OdGeNurbCurve3d(int degree, const std::vector<double>& knots, const std::vector<OdGePoint3d>& controls,
                  const std::vector<double>& weights, bool periodic = false);
  /// The cubic curve through points whose second derivative is continuous; its parameter is the sum of the
  /// distances. Tangents count by their direction; where one is missing or zero, the curve ends without
  /// curvature. A closed curve goes on smoothly through its start and has no use for tangents. Points that
  /// follow each other and are equal count once; throws eDegenerateGeometry for fewer than two.
  static std::unique_ptr<OdGeNurbCurve3d> through(const std::vector<OdGePoint3d>& points, bool closed,
                                                  const OdGeVector3d& startTangent = {},
                                                  const OdGeVector3d& endTangent = {});

  int degree() const { return m_degree; }
  bool isClosed() const override;
  bool isPeriodic() const override { return m_isPeriodic && isClosed(); }
  Evaluation evaluate(double param) const override;

  /// A part of the curve between two different knots, which is a single polynomial or a quotient of two.
  struct Span {
    double from;
    double to;
    double polygonLength; ///< of the control polygon that this part has by itself: no less than its length
  };
  const std::vector<Span>& spans() const { return m_spans; }

protected:
  double lengthInPiece(std::size_t piece, double param) const override;
  double paramInPiece(std::size_t piece, double length) const override;
  double closestInPiece(std::size_t piece, const OdGePoint3d& point) const override;
  OdGeExtents3d pieceExtents(std::size_t piece) const override;

private:
  /// A control point multiplied by its weight.
  struct Weighted {
    OdGeVector3d vector;
    double weight;
    friend Weighted mix(const Weighted& a, const Weighted& b, double part) {
      return {a.vector * (1 - part) + b.vector * part, a.weight * (1 - part) + b.weight * part};
    }
    friend Weighted operator-(const Weighted& a, const Weighted& b) {
      return {a.vector - b.vector, a.weight - b.weight};
    }
    friend Weighted operator*(const Weighted& a, double factor) {
      return {a.vector * factor, a.weight * factor};
    }
  };
  void check(const std::vector<double>& knots, const std::vector<OdGePoint3d>& controls,
             const std::vector<double>& weights) const;
  void addSpan(const std::vector<double>& knots, std::size_t index, const std::vector<OdGePoint3d>& controls,
               const std::vector<double>& weights);
  void measure();
  void split(std::size_t span, double from, double to, int depth, std::vector<Joint>& joints);
  double speed(std::size_t span, double param) const { return evaluateSpan(span, param).first.length(); }
  double integral(std::size_t span, double from, double to, double* error = nullptr) const;
  Evaluation evaluateSpan(std::size_t span, double param) const;

  int m_degree;
  bool m_isPeriodic;
  std::vector<Span> m_spans;
  std::vector<OdGePoint3d> m_origins; ///< one a span
  std::vector<Weighted> m_polygons;   ///< degree + 1 a span, seen from its origin
  std::vector<std::size_t> m_spanOfPiece;
  std::size_t m_budget = 0; ///< how many more pieces the lengths may be tabled for
};
