#pragma once
#include "Ge/GePoint3d.h"
#include <optional>

namespace construct {

/// The way from one point to another. Nothing when the points are equal, or too far apart for their distance
/// to be a number: there is no direction then.
inline std::optional<OdGeVector3d> wayTo(const OdGePoint3d& from, const OdGePoint3d& to) {
  const OdGeVector3d way = to - from;
  if (to.isEqualTo(from) || OdGeVector3d(way).normalizeGetLength() == 0) return std::nullopt;
  return way;
}

} // namespace construct
