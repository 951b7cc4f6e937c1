#include "Ge/GeNurbCurve3d.h"
#include "CurveSolve.h"
#include <algorithm>
#include <array>
#include <boost/math/quadrature/gauss_kronrod.hpp>

OdGeNurbCurve3d::OdGeNurbCurve3d(int degree, const std::vector<double>& knots,
                                 const std::vector<OdGePoint3d>& controls, const std::vector<double>& weights,
                                 bool periodic)
    : m_degree(degree), m_isPeriodic(periodic) {
  check(knots, controls, weights);
  const auto order = static_cast<std::size_t>(degree);
  for (std::size_t i = order; i < controls.size(); ++i)
    if (knots[i] < knots[i + 1]) addSpan(knots, i, controls, weights);
  if (m_spans.empty()) throw OdError(eDegenerateGeometry);
  measure();
}

void OdGeNurbCurve3d::check(const std::vector<double>& knots, const std::vector<OdGePoint3d>& controls,
                            const std::vector<double>& weights) const {
  if (m_degree < 1 || m_degree > kHighestDegree) throw OdError(eInvalidInput);
  const auto order = static_cast<std::size_t>(m_degree);
  if (controls.size() <= order || knots.size() != controls.size() + order + 1 ||
      (!weights.empty() && weights.size() != controls.size()))
    throw OdError(eInvalidInput);
  for (const OdGePoint3d& control : controls) odGeSolve::requireFinite(control);
  for (const double knot : knots) odGeSolve::requireFinite(knot);
  for (const double weight : weights)
    if (!(weight > 0) || !std::isfinite(weight)) throw OdError(eInvalidInput);
  if (!std::is_sorted(knots.begin(), knots.end())) throw OdError(eInvalidInput);
  // More equal knots than the degree tear the curve apart, unless it begins or ends there.
  for (std::size_t i = 1; i < controls.size(); ++i)
    if (knots[i] == knots[i + order] && knots[i] > knots[order] && knots[i] < knots[controls.size()])
      throw OdError(eInvalidInput);
}

/// The control points of a part by itself (Bezier's form) are the values of its polar form at the ends of the
/// part, which de Boor's algorithm gives when each round has its own parameter. L. Ramshaw, Blossoming
/// (1987).
void OdGeNurbCurve3d::addSpan(const std::vector<double>& knots, std::size_t index,
                              const std::vector<OdGePoint3d>& controls, const std::vector<double>& weights) {
  const auto order = static_cast<std::size_t>(m_degree);
  const double from = knots[index];
  const double to = knots[index + 1];
  const OdGePoint3d origin = controls[index - order];
  Span span{from, to, 0};
  OdGePoint3d previous;
  for (std::size_t j = 0; j <= order; ++j) {
    std::array<Weighted, kHighestDegree + 1> net;
    for (std::size_t i = 0; i <= order; ++i) {
      const double weight = weights.empty() ? 1 : weights[index - order + i];
      net[i] = {(controls[index - order + i] - origin) * weight, weight};
    }
    for (std::size_t round = 1; round <= order; ++round) {
      const double at = round <= j ? to : from;
      for (std::size_t i = order; i >= round; --i) {
        const double low = knots[index - order + i];
        const double high = knots[i + index + 1 - round];
        net[i] = mix(net[i - 1], net[i], (at - low) / (high - low));
      }
    }
    m_polygons.push_back(net[order]);
    const OdGePoint3d place = origin + net[order].vector / net[order].weight;
    if (j > 0) span.polygonLength += place.distanceTo(previous);
    previous = place;
  }
  m_origins.push_back(origin);
  m_spans.push_back(span);
}

/// De Casteljau's algorithm; the last rounds hold the derivatives.
OdGeCurve3d::Evaluation OdGeNurbCurve3d::evaluateSpan(std::size_t span, double param) const {
  const auto order = static_cast<std::size_t>(m_degree);
  const double width = m_spans[span].to - m_spans[span].from;
  const double part = (param - m_spans[span].from) / width;
  std::array<Weighted, kHighestDegree + 1> net;
  std::copy_n(m_polygons.begin() + static_cast<std::ptrdiff_t>(span * (order + 1)), order + 1, net.begin());
  Weighted second{};
  Weighted first{};
  for (std::size_t left = order; left > 0; --left) {
    if (left == 2) second = (net[2] - net[1]) - (net[1] - net[0]);
    if (left == 1) first = net[1] - net[0];
    for (std::size_t i = 0; i < left; ++i) net[i] = mix(net[i], net[i + 1], part);
  }
  const double p = m_degree;
  first = first * (p / width);
  second = second * (p * (p - 1) / width / width);
  const double weight = 1 / net[0].weight;
  const OdGeVector3d place = net[0].vector * weight;
  const OdGeVector3d velocity = (first.vector - place * first.weight) * weight;
  const OdGeVector3d bend = (second.vector - velocity * (2 * first.weight) - place * second.weight) * weight;
  return {m_origins[span] + place, velocity, bend};
}

OdGeCurve3d::Evaluation OdGeNurbCurve3d::evaluate(double param) const {
  return evaluateSpan(m_spanOfPiece[pieceAt(param)], param);
}

bool OdGeNurbCurve3d::isClosed() const {
  constexpr double kRounding = 1e-12;
  const double apart = joint(0).point.distanceTo(joint(numPieces()).point);
  return apart <= std::max(OdGeContext::gTol.equalPoint(), kRounding * joint(numPieces()).length);
}

// --- lengths ---

double OdGeNurbCurve3d::integral(std::size_t span, double from, double to, double* error) const {
  if (!(from < to)) return 0;
  return boost::math::quadrature::gauss_kronrod<double, 21>::integrate(
      [&](double t) { return speed(span, t); }, from, to, 0, 0, error);
}

/// Halves a part until one quadrature is enough for each piece. Where the curve turns back, the halves come
/// down to the point.
void OdGeNurbCurve3d::split(std::size_t span, double from, double to, int depth, std::vector<Joint>& joints) {
  constexpr int kDeepest = 30;
  constexpr double kTolerance = 1e-13;
  double error = 0;
  const double length = integral(span, from, to, &error);
  if (!std::isfinite(length)) throw OdError(eInvalidInput);
  const double middle = from + (to - from) / 2;
  const bool isEnough = error <= kTolerance * m_spans[span].polygonLength;
  if (isEnough || depth >= kDeepest || m_budget == 0 || !(from < middle && middle < to)) {
    m_spanOfPiece.push_back(span);
    joints.push_back({to, joints.back().length + length, evaluateSpan(span, to).point});
    return;
  }
  --m_budget;
  split(span, from, middle, depth + 1, joints);
  split(span, middle, to, depth + 1, joints);
}

void OdGeNurbCurve3d::measure() {
  constexpr std::size_t kLeastBudget = 2000;
  constexpr std::size_t kMostPerSpan = 20;
  m_budget = kLeastBudget + kMostPerSpan * m_spans.size();
  std::vector<Joint> joints = {{m_spans.front().from, 0, evaluateSpan(0, m_spans.front().from).point}};
  for (std::size_t i = 0; i < m_spans.size(); ++i) split(i, m_spans[i].from, m_spans[i].to, 0, joints);
  setJoints(std::move(joints));
}

double OdGeNurbCurve3d::lengthInPiece(std::size_t piece, double param) const {
  return integral(m_spanOfPiece[piece], joint(piece).param, param);
}

double OdGeNurbCurve3d::paramInPiece(std::size_t piece, double length) const {
  const double whole = joint(piece + 1).length - joint(piece).length;
  return odGeSolve::root([&](double t) { return lengthInPiece(piece, t) - length; }, joint(piece).param,
                         joint(piece + 1).param, -length, whole - length);
}

// --- places on a piece ---

namespace {

/// Calls `found` with each parameter where the function passes from below 0 to above, or touches it, as seen
/// from a few samples. Where the curve stands still at an end, so does every function of its derivative; the
/// sign next to the end counts, too.
template <class Function, class Found>
void forRises(const Function& f, double from, double to, const Found& found) {
  constexpr int kSamples = 5;
  constexpr double kBeside = 1e-7;
  const auto check = [&](double low, double high, double atLow, double atHigh) {
    if (atLow <= 0 && atHigh >= 0) found(odGeSolve::root(f, low, high, atLow, atHigh));
  };
  const double margin = (to - from) * kBeside;
  double low = from;
  double atLow = f(low);
  for (int i = 1; i <= kSamples; ++i) {
    const double high = i == kSamples ? to : from + (to - from) * i / kSamples;
    const double atHigh = f(high);
    check(low, high, atLow, atHigh);
    if (i == 1 && atLow >= 0) check(low + margin, high, f(low + margin), atHigh);
    if (i == kSamples && atHigh <= 0) check(low, high - margin, atLow, f(high - margin));
    low = high;
    atLow = atHigh;
  }
}

} // namespace

double OdGeNurbCurve3d::closestInPiece(std::size_t piece, const OdGePoint3d& point) const {
  const std::size_t span = m_spanOfPiece[piece];
  const double from = joint(piece).param;
  const double to = joint(piece + 1).param;
  double best = from;
  double least = joint(piece).point.distanceSqrdTo(point);
  const auto consider = [&](double param) {
    const double distance = evaluateSpan(span, param).point.distanceSqrdTo(point);
    if (distance >= least) return;
    least = distance;
    best = param;
  };
  consider(to);
  const auto slope = [&](double param) {
    const Evaluation at = evaluateSpan(span, param);
    return (at.point - point).dotProduct(at.first);
  };
  forRises(slope, from, to, consider);
  return best;
}

OdGeExtents3d OdGeNurbCurve3d::pieceExtents(std::size_t piece) const {
  const std::size_t span = m_spanOfPiece[piece];
  OdGeExtents3d box;
  box.addPoint(joint(piece).point).addPoint(joint(piece + 1).point);
  for (const OdGeVector3d& axis : {OdGeVector3d::kXAxis, OdGeVector3d::kYAxis, OdGeVector3d::kZAxis})
    for (const double side : {1.0, -1.0})
      forRises([&](double t) { return evaluateSpan(span, t).first.dotProduct(axis) * side; },
               joint(piece).param, joint(piece + 1).param,
               [&](double t) { box.addPoint(evaluateSpan(span, t).point); });
  return box;
}

// --- curves through points ---

namespace {

/// Solves a system whose row i is lower * x[i - 1] + diagonal * x[i] + upper * x[i + 1] = right.
struct Row {
  double lower;
  double diagonal;
  double upper;
};
std::vector<OdGeVector3d> solved(std::vector<Row> rows, std::vector<OdGeVector3d> right) {
  for (std::size_t i = 1; i < rows.size(); ++i) {
    const double factor = rows[i].lower / rows[i - 1].diagonal;
    rows[i].diagonal -= factor * rows[i - 1].upper;
    right[i] -= right[i - 1] * factor;
  }
  for (std::size_t i = rows.size(); i-- > 0;) {
    if (i + 1 < rows.size()) right[i] -= right[i + 1] * rows[i].upper;
    right[i] /= rows[i].diagonal;
  }
  return right;
}

/// The derivatives at the points of a cubic curve with continuous second derivative. At an inner point with
/// the steps h before and k behind it, k m[i-1] + 2 (h + k) m[i] + h m[i+1] = 3 (k d[i-1] + h d[i]), with the
/// divided differences d. C. de Boor, A Practical Guide to Splines, ch. IV.
class Tangents {
public:
  Tangents(const std::vector<OdGePoint3d>& points, const std::vector<double>& params)
      : m_points(points), m_params(params) {}

  std::vector<OdGeVector3d> open(const OdGeVector3d& start, const OdGeVector3d& end) const {
    const std::size_t last = m_points.size() - 1;
    std::vector<Row> rows = {endRow(start, 0, 1)};
    std::vector<OdGeVector3d> right = {endValue(start, difference(0))};
    for (std::size_t i = 1; i < last; ++i) addInner(step(i - 1), step(i), i - 1, i, rows, right);
    rows.push_back(endRow(end, 1, 0));
    right.push_back(endValue(end, difference(last - 1)));
    return solved(rows, right);
  }
  /// The last point is the first again. The system is cyclic: two ordinary ones are solved, by the formula of
  /// Sherman and Morrison.
  std::vector<OdGeVector3d> closed() const {
    const std::size_t count = m_points.size() - 1;
    std::vector<Row> rows;
    std::vector<OdGeVector3d> right;
    for (std::size_t i = 0; i < count; ++i) {
      const std::size_t before = (i + count - 1) % count;
      addInner(step(before), step(i), before, i, rows, right);
    }
    const double first = rows.front().lower;
    const double last = rows.back().upper;
    const double shift = -rows.front().diagonal;
    rows.front().diagonal -= shift;
    rows.back().diagonal -= first * last / shift;
    std::vector<OdGeVector3d> border(count);
    border.front().x += shift;
    border.back().x += last;
    const std::vector<OdGeVector3d> plain = solved(rows, right);
    const std::vector<OdGeVector3d> corner = solved(rows, border);
    const OdGeVector3d part = (plain.front() + plain.back() * (first / shift)) /
                              (1 + corner.front().x + corner.back().x * (first / shift));
    std::vector<OdGeVector3d> tangents;
    for (std::size_t i = 0; i < count; ++i) tangents.push_back(plain[i] - part * corner[i].x);
    tangents.push_back(tangents.front());
    return tangents;
  }

private:
  double step(std::size_t i) const { return m_params[i + 1] - m_params[i]; }
  OdGeVector3d difference(std::size_t i) const { return (m_points[i + 1] - m_points[i]) / step(i); }
  void addInner(double before, double behind, std::size_t first, std::size_t second, std::vector<Row>& rows,
                std::vector<OdGeVector3d>& right) const {
    rows.push_back({behind, 2 * (before + behind), before});
    right.push_back((difference(first) * behind + difference(second) * before) * 3);
  }
  /// Without a tangent: no curvature, 2 m[0] + m[1] = 3 d[0].
  static Row endRow(const OdGeVector3d& tangent, double lower, double upper) {
    return tangent.isZeroLength() ? Row{lower, 2, upper} : Row{0, 1, 0};
  }
  static OdGeVector3d endValue(const OdGeVector3d& tangent, const OdGeVector3d& difference) {
    return tangent.isZeroLength() ? difference * 3 : tangent.normal();
  }

  const std::vector<OdGePoint3d>& m_points;
  const std::vector<double>& m_params;
};

} // namespace

std::unique_ptr<OdGeNurbCurve3d> OdGeNurbCurve3d::through(const std::vector<OdGePoint3d>& given, bool closed,
                                                          const OdGeVector3d& startTangent,
                                                          const OdGeVector3d& endTangent) {
  std::vector<OdGePoint3d> points;
  for (const OdGePoint3d& point : given) {
    odGeSolve::requireFinite(point);
    if (points.empty() || !(point == points.back())) points.push_back(point);
  }
  if (closed && points.size() > 1 && !(points.back() == points.front())) points.push_back(points.front());
  if (points.size() < 2) throw OdError(eDegenerateGeometry);
  const bool isSmoothlyClosed = closed && points.size() > 3;
  std::vector<double> params = {0};
  for (std::size_t i = 1; i < points.size(); ++i)
    params.push_back(params.back() + points[i].distanceTo(points[i - 1]));
  const Tangents system(points, params);
  const std::vector<OdGeVector3d> tangents =
      isSmoothlyClosed ? system.closed() : system.open(startTangent, endTangent);
  // Each part in Bezier's form.
  std::vector<OdGePoint3d> controls = {points.front()};
  std::vector<double> knots(4, params.front());
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    const double third = (params[i + 1] - params[i]) / 3;
    controls.push_back(points[i] + tangents[i] * third);
    controls.push_back(points[i + 1] - tangents[i + 1] * third);
    controls.push_back(points[i + 1]);
    knots.insert(knots.end(), 3, params[i + 1]);
  }
  knots.push_back(params.back());
  return std::make_unique<OdGeNurbCurve3d>(3, knots, controls, std::vector<double>(), isSmoothlyClosed);
}
