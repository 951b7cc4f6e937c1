#include "sink.h"
#include <algorithm>

namespace picture {

void Box::add(const Point& point) {
  low = {std::min(low.x, point.x), std::min(low.y, point.y)};
  high = {std::max(high.x, point.x), std::max(high.y, point.y)};
}

void Box::add(const Box& other) {
  if (other.isEmpty()) return;
  add(other.low);
  add(other.high);
}

bool Box::touches(const Box& other) const {
  return low.x <= other.high.x && other.low.x <= high.x && low.y <= other.high.y && other.low.y <= high.y;
}

bool cutSegment(const Box& box, Point& from, Point& to) {
  const OdGeVector2d way = to - from;
  double enter = 0;
  double leave = 1;
  // For each side: how fast the segment runs towards it, and how far it is.
  const double sides[4][2] = {{-way.x, from.x - box.low.x},
                              {way.x, box.high.x - from.x},
                              {-way.y, from.y - box.low.y},
                              {way.y, box.high.y - from.y}};
  for (const auto& [speed, distance] : sides) {
    if (speed == 0) {
      if (distance < 0) return false;
    } else if (speed < 0) {
      enter = std::max(enter, distance / speed);
    } else {
      leave = std::min(leave, distance / speed);
    }
  }
  if (!(enter <= leave)) return false;
  to = from + way * leave;
  from = from + way * enter;
  return true;
}

} // namespace picture
