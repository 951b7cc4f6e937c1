#include "DbEntityFields.h"
#include <algorithm>
#include <limits>

namespace {
constexpr int kMarker = 100;
constexpr int kEmbedded = 101;
constexpr int kNormal = 210;
} // namespace

int odDbIntegerOf(const OdDbGroup& group) {
  using Limits = std::numeric_limits<int>;
  if (group.kind != OdDbGroupKind::kInteger && group.kind != OdDbGroupKind::kBool) return 0;
  return static_cast<int>(std::clamp<OdInt64>(group.integer, Limits::min(), Limits::max()));
}

OdDbEntityFields::OdDbEntityFields(const OdDbObject& object) : m_list(object.groups()) {
  const OdDbGroup* first = m_list.items.data();
  m_end = first + odDbGroups::xDataStart(m_list);
  m_end = std::find_if(first, m_end, [](const OdDbGroup& group) { return group.code == kEmbedded; });
  const auto isMarker = [](const OdDbGroup& group) { return group.code == kMarker; };
  const OdDbGroup* shared = std::find_if(first, m_end, isMarker);
  const OdDbGroup* own = shared == m_end ? m_end : std::find_if(shared + 1, m_end, isMarker);
  // Old drawings have no markers.
  m_begin = own == m_end ? first : own + 1;
}

const OdDbGroup* OdDbEntityFields::find(int code, const OdDbGroup* from) const {
  return std::find_if(from, m_end, [code](const OdDbGroup& group) { return group.code == code; });
}

double OdDbEntityFields::real(int code, double fallback) const {
  const OdDbGroup* found = find(code, m_begin);
  return found != m_end && found->kind == OdDbGroupKind::kReal ? found->real : fallback;
}

int OdDbEntityFields::integer(int code, int fallback) const {
  const OdDbGroup* found = find(code, m_begin);
  return found != m_end ? odDbIntegerOf(*found) : fallback;
}

OdString OdDbEntityFields::text(int code) const {
  const OdDbGroup* found = find(code, m_begin);
  return found != m_end ? m_list.text(*found) : OdString();
}

OdGePoint3d OdDbEntityFields::pointAt(const OdDbGroup* group) const {
  OdGePoint3d point(group->real, 0, 0);
  const int code = group->code;
  if (++group != m_end && group->code == code + 10) point.y = group->real;
  if (group != m_end && ++group != m_end && group->code == code + 20) point.z = group->real;
  return point;
}

OdGePoint3d OdDbEntityFields::point(int code) const {
  const OdDbGroup* found = find(code, m_begin);
  return found != m_end ? pointAt(found) : OdGePoint3d();
}

std::vector<OdGePoint3d> OdDbEntityFields::points(int code) const {
  std::vector<OdGePoint3d> points;
  for (const OdDbGroup* at = find(code, m_begin); at != m_end; at = find(code, at + 1))
    points.push_back(pointAt(at));
  return points;
}

std::vector<double> OdDbEntityFields::reals(int code) const {
  std::vector<double> values;
  for (const OdDbGroup* at = find(code, m_begin); at != m_end; at = find(code, at + 1))
    values.push_back(at->real);
  return values;
}

OdGeVector3d OdDbEntityFields::normal() const {
  const OdGeVector3d normal = has(kNormal) ? point(kNormal).asVector() : OdGeVector3d::kZAxis;
  return normal.isZeroLength() ? OdGeVector3d::kZAxis : normal;
}
