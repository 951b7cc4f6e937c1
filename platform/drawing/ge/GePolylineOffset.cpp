#include "Ge/GePolylineOffset.h"
#include "CurveSolve.h"
#include "Ge/GePolylineCurve3d.h"
#include "OdPlatform.h"
#include <algorithm>

namespace {

constexpr double kRelative = 1e-9;

/// A straight segment or an arc with a bulge.
struct Piece {
  OdGePoint2d from;
  OdGePoint2d to;
  double bulge = 0;

  bool isArc() const { return bulge != 0; }
  double sweep() const { return 4 * std::atan(bulge); }
  OdGePoint2d center() const {
    const OdGeVector2d chord = to - from;
    return from + chord * 0.5 + chord.perpVector() * ((1 / bulge - bulge) / 4);
  }
  double radius() const { return from.distanceTo(to) * (1 / std::fabs(bulge) + std::fabs(bulge)) / 4; }

  OdGePoint2d at(double part) const {
    if (!isArc()) return from + (to - from) * part;
    const OdGePoint2d middle = center();
    return middle + OdGeVector2d(from - middle).rotateBy(sweep() * part);
  }
  /// The part of the piece that a point of its line or circle is at; beyond the ends less than 0 or more
  /// than 1.
  double partAt(const OdGePoint2d& point) const {
    if (!isArc()) return (point - from).dotProduct(to - from) / (to - from).lengthSqrd();
    const OdGePoint2d middle = center();
    double turn = (point - middle).angle() - (from - middle).angle();
    if (bulge < 0) turn = -turn;
    turn = std::fmod(turn + 2 * Oda2PI, Oda2PI);
    const double whole = std::fabs(sweep());
    return (turn > (whole + Oda2PI) / 2 ? turn - Oda2PI : turn) / whole;
  }
  Piece between(double first, double last) const {
    return {at(first), at(last), isArc() ? std::tan(sweep() * (last - first) / 4) : 0};
  }
};

// --- where pieces meet ---

std::vector<OdGePoint2d> onLineAndCircle(const Piece& line, const OdGePoint2d& center, double radius) {
  const OdGeVector2d way = (line.to - line.from).normal(0);
  const OdGePoint2d foot = line.from + way * (center - line.from).dotProduct(way);
  const double distance = foot.distanceTo(center);
  const double squared = (radius - distance) * (radius + distance);
  if (squared < -kRelative * radius * radius) return {};
  const double half = std::sqrt(std::max(0.0, squared));
  return {foot - way * half, foot + way * half};
}

std::vector<OdGePoint2d> onCircles(const OdGePoint2d& a, double r, const OdGePoint2d& b, double s) {
  const OdGeVector2d way = b - a;
  const double distance = way.length();
  if (!(distance > kRelative * (r + s))) return {};
  const double along = (distance * distance + (r - s) * (r + s)) / (2 * distance);
  const double squared = (r - along) * (r + along);
  if (squared < -kRelative * r * r) return {};
  const OdGeVector2d across = way.perpVector() * (std::sqrt(std::max(0.0, squared)) / distance);
  const OdGePoint2d foot = a + way * (along / distance);
  return {foot - across, foot + across};
}

/// Where the lines and circles meet that the pieces lie on.
std::vector<OdGePoint2d> meetings(const Piece& a, const Piece& b) {
  if (a.isArc() && b.isArc()) return onCircles(a.center(), a.radius(), b.center(), b.radius());
  if (a.isArc()) return onLineAndCircle(b, a.center(), a.radius());
  if (b.isArc()) return onLineAndCircle(a, b.center(), b.radius());
  const OdGeVector2d wayA = a.to - a.from;
  const OdGeVector2d wayB = b.to - b.from;
  const double area = wayA.crossProduct(wayB);
  if (std::fabs(area) <= kRelative * wayA.length() * wayB.length()) return {};
  return {a.from + wayA * ((b.from - a.from).crossProduct(wayB) / area)};
}

/// The ends of pieces that run along each other.
std::vector<OdGePoint2d> overlapEnds(const Piece& a, const Piece& b) {
  if (a.isArc() != b.isArc()) return {};
  if (a.isArc()) {
    const double slack = kRelative * (a.radius() + b.radius());
    if (std::fabs(a.radius() - b.radius()) > slack || a.center().distanceTo(b.center()) > slack) return {};
  } else {
    const OdGeVector2d way = a.to - a.from;
    const double slack = kRelative * (way.length() + b.from.distanceTo(b.to)) * way.length();
    if (std::fabs(way.crossProduct(b.from - a.from)) > slack ||
        std::fabs(way.crossProduct(b.to - a.from)) > slack)
      return {};
  }
  return {a.from, a.to, b.from, b.to};
}

bool isWithin(double part) { return part >= -kRelative && part <= 1 + kRelative; }

// --- the way round at the distance, crossings included ---

enum class Corners { extended, rounded };

class RawOffset {
public:
  RawOffset(const std::vector<Piece>& source, bool closed, double distance, Corners corners)
      : m_source(source), m_distance(distance), m_corners(corners) {
    for (const Piece& piece : m_source) m_shifted.push_back(shifted(piece));
    const std::size_t count = m_shifted.size();
    for (std::size_t i = 0; i + 1 < count; ++i) join(m_shifted[i], m_shifted[i + 1], m_source[i].to, i);
    if (closed && count > 1) join(m_shifted[count - 1], m_shifted[0], m_source[count - 1].to, count - 1);
  }

  std::vector<Piece> pieces() const {
    std::vector<Piece> all;
    auto joint = m_joints.begin(); // in the order of the pieces
    for (std::size_t i = 0; i < m_shifted.size(); ++i) {
      all.push_back(m_shifted[i]);
      for (; joint != m_joints.end() && joint->first == i; ++joint) all.push_back(joint->second);
    }
    return all;
  }

private:
  Piece shifted(const Piece& piece) const {
    if (!piece.isArc()) {
      const OdGeVector2d right = (piece.to - piece.from).perpVector().normal(0) * -m_distance;
      return {piece.from + right, piece.to + right, 0};
    }
    const OdGePoint2d center = piece.center();
    const double radius = piece.radius();
    const double factor = 1 + (piece.bulge > 0 ? m_distance : -m_distance) / radius;
    // An arc of which nothing is left becomes a straight connection; it is cut away later.
    const double bulge = factor > kRelative ? piece.bulge : 0;
    return {center + (piece.from - center) * factor, center + (piece.to - center) * factor, bulge};
  }

  void join(Piece& a, Piece& b, const OdGePoint2d& vertex, std::size_t index) {
    if (a.to.distanceTo(b.from) <= kRelative * std::fabs(m_distance)) {
      b.from = a.to;
      return;
    }
    if (m_corners == Corners::extended && !a.isArc() && !b.isArc() && extendToCorner(a, b)) return;
    const OdGeVector2d before = a.to - vertex;
    const OdGeVector2d behind = b.from - vertex;
    const double turn = std::atan2(before.crossProduct(behind), before.dotProduct(behind));
    m_joints.emplace_back(index, Piece{a.to, b.from, std::tan(turn / 4)});
  }

  /// Straight pieces that part at the corner are extended to where they meet.
  static bool extendToCorner(Piece& a, Piece& b) {
    if (a.from.distanceTo(a.to) == 0 || b.from.distanceTo(b.to) == 0) return false;
    for (const OdGePoint2d& corner : meetings(a, b)) {
      if (a.partAt(corner) < 1 || b.partAt(corner) > 0) return false;
      a.to = b.from = corner;
      return true;
    }
    return false;
  }

  const std::vector<Piece>& m_source;
  double m_distance;
  Corners m_corners;
  std::vector<Piece> m_shifted;
  std::vector<std::pair<std::size_t, Piece>> m_joints; ///< the piece that each stands behind
};

// --- cutting away what is too near ---

struct Bounds {
  OdGePoint2d low;
  OdGePoint2d high;
  std::size_t piece;

  static Bounds of(const Piece& piece, std::size_t index) {
    const double reach = piece.isArc() ? 2 * piece.radius() : 0;
    const auto [left, right] = std::minmax(piece.from.x, piece.to.x);
    const auto [bottom, top] = std::minmax(piece.from.y, piece.to.y);
    return {{left - reach, bottom - reach}, {right + reach, top + reach}, index};
  }
  bool isBeside(const Bounds& other) const { return low.y > other.high.y || other.low.y > high.y; }
};

/// For each of the first `count` pieces the parts at which others cross or join it, by a sweep over X.
std::vector<std::vector<double>> crossings(const std::vector<Piece>& pieces, std::size_t count) {
  std::vector<Bounds> order;
  for (std::size_t i = 0; i < pieces.size(); ++i) order.push_back(Bounds::of(pieces[i], i));
  std::sort(order.begin(), order.end(), [](const Bounds& a, const Bounds& b) { return a.low.x < b.low.x; });
  std::vector<std::vector<double>> cuts(count);
  const auto cut = [&](std::size_t index, const OdGePoint2d& point) {
    if (index >= count) return;
    const double part = pieces[index].partAt(point);
    if (part > kRelative && part < 1 - kRelative) cuts[index].push_back(part);
  };
  const auto cutBoth = [&](std::size_t a, std::size_t b) {
    for (const std::vector<OdGePoint2d>& points :
         {meetings(pieces[a], pieces[b]), overlapEnds(pieces[a], pieces[b])})
      for (const OdGePoint2d& point : points) {
        if (!isWithin(pieces[a].partAt(point)) || !isWithin(pieces[b].partAt(point))) continue;
        cut(a, point);
        cut(b, point);
      }
  };
  for (std::size_t i = 0; i < order.size(); ++i)
    for (std::size_t k = i + 1; k < order.size() && order[k].low.x <= order[i].high.x; ++k)
      if ((order[i].piece < count || order[k].piece < count) && !order[i].isBeside(order[k]))
        cutBoth(order[i].piece, order[k].piece);
  return cuts;
}

/// A part of a piece between two cuts.
struct Slice {
  std::size_t piece;
  double first;
  double last;
  Piece shape;
  bool isKept;
};

/// Of slices that run along each other one is kept, and none where they run against each other.
void dropRepeated(std::vector<Slice>& slices, double near) {
  std::vector<std::pair<double, std::size_t>> order;
  for (std::size_t i = 0; i < slices.size(); ++i)
    if (slices[i].isKept) order.emplace_back(slices[i].shape.at(0.5).x, i);
  std::sort(order.begin(), order.end());
  const auto meet = [near](const OdGePoint2d& p, const OdGePoint2d& q) { return p.distanceTo(q) <= near; };
  for (std::size_t i = 0; i < order.size(); ++i) {
    Slice& a = slices[order[i].second];
    for (std::size_t k = i + 1; a.isKept && k < order.size() && order[k].first <= order[i].first + near;
         ++k) {
      Slice& b = slices[order[k].second];
      if (!b.isKept || !meet(a.shape.at(0.5), b.shape.at(0.5))) continue;
      const bool isAlong = meet(a.shape.from, b.shape.from) && meet(a.shape.to, b.shape.to);
      const bool isAgainst = meet(a.shape.from, b.shape.to) && meet(a.shape.to, b.shape.from);
      if (isAlong || isAgainst) b.isKept = false;
      if (isAgainst && !isAlong) a.isKept = false;
    }
  }
}

/// What is kept, in one piece where only a cut is between.
std::vector<Piece> joined(const std::vector<Piece>& pieces, const std::vector<Slice>& slices) {
  std::vector<Piece> whole;
  for (std::size_t i = 0; i < slices.size();) {
    std::size_t end = i + 1;
    while (end < slices.size() && slices[i].isKept && slices[end].isKept &&
           slices[end].piece == slices[i].piece && slices[end].first == slices[end - 1].last)
      ++end;
    if (slices[i].isKept)
      whole.push_back(pieces[slices[i].piece].between(slices[i].first, slices[end - 1].last));
    i = end;
  }
  return whole;
}

/// Puts pieces that follow each other together. `near` is how far apart ends may be that meet.
class Chains {
public:
  Chains(std::vector<Piece> pieces, double near) : m_pieces(std::move(pieces)), m_near(near) {
    for (std::size_t i = 0; i < m_pieces.size(); ++i) m_starts.emplace_back(m_pieces[i].from.x, i);
    std::sort(m_starts.begin(), m_starts.end());
    m_isUsed.resize(m_pieces.size());
  }

  std::vector<OdGeFlatPolyline> all() {
    std::vector<OdGeFlatPolyline> found;
    // Open chains begin where nothing ends; what is left then are rings.
    std::vector<bool> isContinued(m_pieces.size());
    for (const Piece& piece : m_pieces)
      for (const std::size_t next : startingAt(piece.to)) isContinued[next] = true;
    for (const bool wanted : {false, true})
      for (std::size_t i = 0; i < m_pieces.size(); ++i)
        if (!m_isUsed[i] && isContinued[i] == wanted) found.push_back(follow(i));
    return found;
  }

private:
  std::vector<std::size_t> startingAt(const OdGePoint2d& place) const {
    std::vector<std::size_t> found;
    for (auto at =
             std::lower_bound(m_starts.begin(), m_starts.end(), std::pair(place.x - m_near, std::size_t{0}));
         at != m_starts.end() && at->first <= place.x + m_near; ++at)
      if (m_pieces[at->second].from.distanceTo(place) <= m_near) found.push_back(at->second);
    return found;
  }

  OdGeFlatPolyline follow(std::size_t first) {
    OdGeFlatPolyline chain;
    for (std::size_t at = first;;) {
      m_isUsed[at] = true;
      chain.points.push_back(m_pieces[at].from);
      chain.bulges.push_back(m_pieces[at].bulge);
      const OdGePoint2d end = m_pieces[at].to;
      const std::vector<std::size_t> nexts = startingAt(end);
      const auto next =
          std::find_if(nexts.begin(), nexts.end(), [this](std::size_t i) { return !m_isUsed[i]; });
      if (next != nexts.end()) {
        at = *next;
        continue;
      }
      chain.isClosed = end.distanceTo(m_pieces[first].from) <= m_near && chain.points.size() > 1;
      if (!chain.isClosed) {
        chain.points.push_back(end);
        chain.bulges.push_back(0);
      }
      return chain;
    }
  }

  std::vector<Piece> m_pieces;
  double m_near;
  std::vector<std::pair<double, std::size_t>> m_starts; ///< by X
  std::vector<bool> m_isUsed;
};

/// The offset of a polyline that `curve` equals.
std::vector<OdGeFlatPolyline> offsetOf(const OdGeFlatPolyline& polyline, const OdGePolylineCurve3d& curve,
                                       double distance) {
  std::vector<Piece> source;
  const std::size_t count = polyline.points.size();
  for (std::size_t i = 0; i + (polyline.isClosed ? 0 : 1) < count; ++i) {
    const Piece piece{polyline.points[i], polyline.points[(i + 1) % count],
                      polyline.bulges.empty() ? 0 : polyline.bulges[i]};
    if (!(piece.from == piece.to)) source.push_back(piece);
  }
  const double wanted = std::fabs(distance);
  const OdGeExtents3d box = curve.extents();
  const double near = kRelative * ((box.maxPoint() - box.minPoint()).length() + wanted);
  // Given out are the pieces of the one side. Where they enter or leave what is too near, they cross the edge
  // of it: the parallels of both sides with round corners, and circles around open ends.
  std::vector<Piece> pieces = RawOffset(source, polyline.isClosed, distance, Corners::extended).pieces();
  const std::size_t given = pieces.size();
  for (const double side : {distance, -distance})
    for (const Piece& piece : RawOffset(source, polyline.isClosed, side, Corners::rounded).pieces())
      pieces.push_back(piece);
  if (!polyline.isClosed)
    for (const OdGePoint2d& end : {source.front().from, source.back().to}) {
      const OdGeVector2d arm(wanted, 0);
      pieces.push_back({end - arm, end + arm, 1});
      pieces.push_back({end + arm, end - arm, 1});
    }
  std::vector<Slice> slices;
  std::vector<std::vector<double>> cuts = crossings(pieces, given);
  const auto isFarEnough = [&](const Piece& shape) {
    constexpr double kSlack = 1e-6; // crossings at small angles are not known better
    const OdGePoint2d middle = shape.at(0.5);
    const OdGePoint3d place(middle.x, middle.y, 0);
    return curve.evalPoint(curve.closestParam(place)).distanceTo(place) >= wanted * (1 - kSlack);
  };
  for (std::size_t i = 0; i < given; ++i) {
    if (pieces[i].from.distanceTo(pieces[i].to) <= near && !pieces[i].isArc()) continue;
    cuts[i].push_back(1);
    std::sort(cuts[i].begin(), cuts[i].end());
    double last = 0;
    for (const double part : cuts[i]) {
      if (part - last <= kRelative) continue;
      const Piece shape = pieces[i].between(last, part);
      slices.push_back({i, last, part, shape, isFarEnough(shape)});
      last = part;
    }
  }
  dropRepeated(slices, near);
  return Chains(joined(pieces, slices), 10 * near).all();
}

OdGePolylineCurve3d curveOf(const OdGeFlatPolyline& polyline) {
  std::vector<OdGePoint3d> places;
  for (const OdGePoint2d& point : polyline.points) places.emplace_back(point.x, point.y, 0);
  return OdGePolylineCurve3d(places, polyline.bulges, polyline.isClosed); // checks everything
}

/// A quarter of a turn, without any loss.
enum class Quarter { clockwise, back };
OdGeFlatPolyline turned(OdGeFlatPolyline polyline, Quarter quarter) {
  constexpr double kNoMinus = 0.0; // a negative zero plus zero is positive
  for (OdGePoint2d& point : polyline.points)
    point = quarter == Quarter::clockwise ? OdGePoint2d(point.y, -point.x + kNoMinus)
                                          : OdGePoint2d(-point.y + kNoMinus, point.x);
  return polyline;
}

} // namespace

std::vector<OdGeFlatPolyline> odGeOffset(const OdGeFlatPolyline& polyline, double distance) {
  odGeSolve::requireFinite(distance);
  const OdGePolylineCurve3d curve = curveOf(polyline);
  if (distance == 0) return {polyline};
  const OdGeVector3d size = curve.extents().maxPoint() - curve.extents().minPoint();
  if (size.y <= size.x) return offsetOf(polyline, curve, distance);
  // Pieces are looked up along X, and a tall polyline may have all of them at the same place.
  const OdGeFlatPolyline lying = turned(polyline, Quarter::clockwise);
  std::vector<OdGeFlatPolyline> found = offsetOf(lying, curveOf(lying), distance);
  for (OdGeFlatPolyline& each : found) each = turned(std::move(each), Quarter::back);
  return found;
}
