#include "Ge/GePiecewiseCurve3d.h"
#include "CurveSolve.h"
#include <algorithm>
#include <bit>

void OdGePiecewiseCurve3d::setJoints(std::vector<Joint> joints) {
  odGeSolve::requireExtent(joints.back().length);
  m_joints = std::move(joints);
}

std::size_t OdGePiecewiseCurve3d::pieceAt(double param) const {
  const auto above = std::upper_bound(m_joints.begin() + 1, m_joints.end() - 1, param,
                                      [](double value, const Joint& joint) { return value < joint.param; });
  return static_cast<std::size_t>(above - m_joints.begin()) - 1;
}

double OdGePiecewiseCurve3d::lengthTo(double param) const {
  const std::size_t piece = pieceAt(param);
  return m_joints[piece].length + lengthInPiece(piece, param);
}

double OdGePiecewiseCurve3d::paramAtLength(double length) const {
  if (!(length > 0)) return startParam();
  if (length >= m_joints.back().length) return endParam();
  // What rounding alone holds back from a joint is there, and has the direction of what begins there.
  constexpr double kRounding = 5e-13;
  const double reached = length + kRounding * m_joints.back().length;
  const auto above = std::upper_bound(m_joints.begin() + 1, m_joints.end() - 1, reached,
                                      [](double value, const Joint& joint) { return value < joint.length; });
  const auto piece = static_cast<std::size_t>(above - m_joints.begin()) - 1;
  return paramInPiece(piece, std::max(0.0, length - m_joints[piece].length));
}

OdGeExtents3d OdGePiecewiseCurve3d::extents() const {
  OdGeExtents3d box;
  for (std::size_t i = 0; i < numPieces(); ++i) box.addExt(pieceExtents(i));
  return box;
}

// --- the nearest point ---

namespace {

double distanceSqrd(const OdGeExtents3d& box, const OdGePoint3d& point) {
  const auto beyond = [](double low, double high, double at) { return std::max({low - at, at - high, 0.0}); };
  return OdGeVector3d(beyond(box.minPoint().x, box.maxPoint().x, point.x),
                      beyond(box.minPoint().y, box.maxPoint().y, point.y),
                      beyond(box.minPoint().z, box.maxPoint().z, point.z))
      .lengthSqrd();
}

} // namespace

struct OdGePiecewiseCurve3d::Nearest {
  OdGePoint3d point;
  double param;
  double distance; ///< squared
};

void OdGePiecewiseCurve3d::buildBoxes() const {
  m_leaves = std::bit_ceil(numPieces());
  m_boxes.resize(2 * m_leaves);
  for (std::size_t i = 0; i < numPieces(); ++i) {
    // A piece lies in the ellipsoid that has its ends as foci and its length as axis.
    const Joint& from = m_joints[i];
    const Joint& to = m_joints[i + 1];
    const double length = to.length - from.length;
    const double chord = from.point.distanceTo(to.point);
    const double reach = std::sqrt(std::max(0.0, (length - chord) * (length + chord))) / 2;
    const OdGeVector3d margin(reach, reach, reach);
    m_boxes[m_leaves + i].addPoint(from.point - margin).addPoint(from.point + margin);
    m_boxes[m_leaves + i].addPoint(to.point - margin).addPoint(to.point + margin);
  }
  for (std::size_t i = m_leaves - 1; i > 0; --i) {
    m_boxes[i] = m_boxes[2 * i];
    if (m_boxes[2 * i + 1].isValidExtents()) m_boxes[i].addExt(m_boxes[2 * i + 1]);
  }
}

void OdGePiecewiseCurve3d::search(std::size_t node, Nearest& nearest) const {
  if (!m_boxes[node].isValidExtents() || distanceSqrd(m_boxes[node], nearest.point) > nearest.distance)
    return;
  if (node >= m_leaves) {
    const double param = closestInPiece(node - m_leaves, nearest.point);
    const double distance = evalPoint(param).distanceSqrdTo(nearest.point);
    if (distance < nearest.distance) nearest = {nearest.point, param, distance};
    return;
  }
  const std::size_t left = 2 * node;
  const bool isRightNearer =
      m_boxes[left + 1].isValidExtents() &&
      distanceSqrd(m_boxes[left + 1], nearest.point) < distanceSqrd(m_boxes[left], nearest.point);
  search(isRightNearer ? left + 1 : left, nearest);
  search(isRightNearer ? left : left + 1, nearest);
}

double OdGePiecewiseCurve3d::closestParam(const OdGePoint3d& point) const {
  if (m_boxes.empty()) buildBoxes();
  Nearest nearest{point, startParam(), m_joints.front().point.distanceSqrdTo(point)};
  search(1, nearest);
  return nearest.param;
}
