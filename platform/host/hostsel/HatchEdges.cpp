#include "HatchEdges.h"
#include "Ge/GeEllipArc3d.h"
#include "Ge/GeLinearEnt3d.h"
#include "Ge/GeNurbCurve3d.h"
#include "Ge/GePolylineCurve3d.h"
#include "OdError.h"
#include "OdaDefs.h"
#include <algorithm>

namespace host {

namespace {

using Edge = std::unique_ptr<OdGeCurve3d>;

/// Reads the groups one after the other: what they mean depends on their place.
class HatchReader {
public:
  explicit HatchReader(const OdDbEntityFields& fields) : m_fields(fields), m_at(fields.begin()) {}

  std::vector<Edge> read() {
    constexpr int kPolyline = 2;
    skipTo(kPathCount);
    const int paths = count(kPathCount);
    for (int path = 0; path < paths && skipTo(kPathType); ++path) {
      if (integer(kPathType) & kPolyline) {
        add([this] { return polyline(); });
        continue;
      }
      const int edges = count(kEdgeCount);
      for (int edge = 0; edge < edges && skipTo(kEdgeType); ++edge) {
        const int kind = integer(kEdgeType);
        add([this, kind] { return edgeOf(kind); });
      }
    }
    return std::move(m_edges);
  }

private:
  enum Code { kPathCount = 91, kPathType = 92, kEdgeCount = 93, kEdgeType = 72 };
  enum Kind { kLine = 1, kArc = 2, kEllipse = 3, kSpline = 4 };

  bool isNext(int code) const { return m_at != m_fields.end() && m_at->code == code; }
  bool skipTo(int code) {
    m_at = m_fields.find(code, m_at);
    return m_at != m_fields.end();
  }
  double real(int code, double fallback = 0) { return isNext(code) ? m_at++->real : fallback; }
  int integer(int code, int fallback = 0) { return isNext(code) ? odDbIntegerOf(*m_at++) : fallback; }
  OdGePoint3d point(int code) {
    const double x = real(code);
    return {x, real(code + 10), 0};
  }
  /// A number of things to come, which cannot be more than there are groups left.
  int count(int code) {
    return static_cast<int>(std::clamp<std::ptrdiff_t>(integer(code), 0, m_fields.end() - m_at));
  }

  template <class Make>
  void add(const Make& make) {
    try {
      if (Edge edge = make()) m_edges.push_back(std::move(edge));
    } catch (const OdError&) {
      // The area is about right without it.
    }
  }

  Edge polyline() {
    constexpr int kHasBulges = 72;
    constexpr int kIsClosed = 73;
    const bool hasBulges = integer(kHasBulges) != 0;
    const bool isClosed = integer(kIsClosed, 1) != 0;
    std::vector<OdGePoint3d> vertices(static_cast<std::size_t>(count(kEdgeCount)));
    std::vector<double> bulges;
    for (OdGePoint3d& vertex : vertices) {
      vertex = point(10);
      const double bulge = real(42);
      bulges.push_back(hasBulges ? bulge : 0);
    }
    return std::make_unique<OdGePolylineCurve3d>(std::move(vertices), std::move(bulges), isClosed);
  }

  Edge edgeOf(int kind) {
    switch (kind) {
    case kLine: return line();
    case kArc: return arc(false);
    case kEllipse: return arc(true);
    case kSpline: return spline();
    default: return nullptr;
    }
  }

  Edge line() {
    const OdGePoint3d from = point(10);
    return std::make_unique<OdGeLinearEnt3d>(from, point(11));
  }

  /// Angles of clockwise edges are stored negated.
  Edge arc(bool isEllipse) {
    const OdGePoint3d center = point(10);
    const OdGeVector3d major = isEllipse ? point(11).asVector() : OdGeVector3d(real(40), 0, 0);
    const double ratio = isEllipse ? real(40, 1) : 1;
    const double start = OdaToRadian(real(50));
    const double sweep = OdGeEllipArc3d::sweep(start, OdaToRadian(real(51)));
    const double from = integer(73, 1) != 0 ? start : -start - sweep;
    const OdGeVector3d minor(-major.y * ratio, major.x * ratio, 0);
    return std::make_unique<OdGeEllipArc3d>(center, major, minor, from, from + sweep);
  }

  Edge spline() {
    const int degree = integer(94, 3);
    integer(73);
    integer(74);
    std::vector<double> knots(static_cast<std::size_t>(count(95)));
    std::vector<OdGePoint3d> controls(static_cast<std::size_t>(count(96)));
    std::vector<double> weights;
    for (double& knot : knots) knot = real(40);
    for (OdGePoint3d& control : controls) {
      control = point(10);
      if (isNext(42)) weights.push_back(real(42));
    }
    while (isNext(42)) weights.push_back(real(42)); // some programs put them last
    return std::make_unique<OdGeNurbCurve3d>(degree, knots, controls, weights);
  }

  const OdDbEntityFields& m_fields;
  const OdDbGroup* m_at;
  std::vector<Edge> m_edges;
};

} // namespace

std::vector<std::unique_ptr<OdGeCurve3d>> hatchEdges(const OdDbEntityFields& hatch) {
  return HatchReader(hatch).read();
}

} // namespace host
