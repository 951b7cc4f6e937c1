// The typed reading and writing of an object's groups.
#include "DbDatabase.h"
#include "DbObject.h"
#include "DbStore.h"
#include <algorithm>

namespace {

double defaultOf(const OdDbSubclass& section, int code) {
  const OdDbField* field = section.field(code);
  return field ? field->number : 0;
}

/// The coordinate `offset` codes behind the group at `index`, or the fallback when it is not stored there.
double coordinate(const OdDbGroupList& groups, int index, int offset, double fallback) {
  const int code = groups[index].code + offset;
  for (int i = index; i < groups.size() && i <= index + 2; ++i)
    if (groups[i].code == code && groups[i].kind == OdDbGroupKind::kReal) return groups[i].real;
  return fallback;
}

/// Before R11, the points of an entity may share one Z coordinate, which stands for itself.
double elevation(const OdDbGroupList& groups, double fallback) {
  constexpr int kElevation = 38;
  static const OdDbSubclass withoutMarker{"", {}};
  const int at = odDbGroups::find(groups, withoutMarker, kElevation);
  return at >= 0 && groups[at].kind == OdDbGroupKind::kReal ? groups[at].real : fallback;
}

} // namespace

OdString OdDbObject::text(const OdDbSubclass& section, int code) const {
  const int index = odDbGroups::find(groups(), section, code);
  if (index >= 0) return groups().text(index);
  const OdDbField* field = section.field(code);
  return field ? OdString(field->text) : OdString();
}

OdString OdDbObject::leadingText(const OdDbSubclass& section, int code) const {
  if (m_groups || !m_stub) return text(section, code);
  const OdDbGroupListPtr head = m_stub->contentUpTo(code);
  const int index = odDbGroups::find(*head, section, code);
  // Before the first marker, only the whole object tells whether it has sections at all.
  const auto isMarker = [](const OdDbGroup& group) { return group.code == 100; };
  const bool isInSection =
      index >= 0 && std::any_of(head->items.begin(), head->items.begin() + index, isMarker);
  return isInSection ? head->text(index) : text(section, code);
}

double OdDbObject::real(const OdDbSubclass& section, int code) const {
  const int index = odDbGroups::find(groups(), section, code);
  return index >= 0 && groups()[index].kind == OdDbGroupKind::kReal ? groups()[index].real
                                                                    : defaultOf(section, code);
}

double OdDbObject::angle(const OdDbSubclass& section, int code) const {
  return OdaToRadian(real(section, code));
}

int OdDbObject::integer(const OdDbSubclass& section, int code) const {
  const int index = odDbGroups::find(groups(), section, code);
  const bool stored = index >= 0 && (groups()[index].kind == OdDbGroupKind::kInteger ||
                                     groups()[index].kind == OdDbGroupKind::kBool);
  return static_cast<int>(stored ? groups()[index].integer : static_cast<OdInt64>(defaultOf(section, code)));
}

OdGePoint3d OdDbObject::point(const OdDbSubclass& section, int code) const {
  const int index = odDbGroups::find(groups(), section, code);
  const OdDbField* field = section.field(code);
  const bool isDirection = field && field->kind == OdDbFieldKind::kDirection;
  double z = isDirection ? 0 : defaultOf(section, code);
  if (index < 0) return OdGePoint3d(isDirection ? field->number : 0, 0, z);
  if (field && field->kind == OdDbFieldKind::kPoint3d) z = elevation(groups(), z);
  return OdGePoint3d(groups()[index].real, coordinate(groups(), index, 10, 0),
                     coordinate(groups(), index, 20, z));
}

OdGeVector3d OdDbObject::vector(const OdDbSubclass& section, int code) const {
  const OdGePoint3d stored = point(section, code);
  return OdGeVector3d(stored.x, stored.y, stored.z);
}

OdGeScale3d OdDbObject::scale(const OdDbSubclass& section, int code) const {
  const auto factor = [&](int part) {
    return has(section, part) ? real(section, part) : defaultOf(section, code);
  };
  return OdGeScale3d(factor(code), factor(code + 1), factor(code + 2));
}

OdDbObjectId OdDbObject::reference(const OdDbSubclass& section, int code) const {
  const int index = odDbGroups::find(groups(), section, code);
  if (index < 0 || !m_stub || groups()[index].kind != OdDbGroupKind::kHandle) return {};
  return OdDbObjectId(m_stub->store->find(groups()[index].handle));
}

void OdDbObject::setGroup(const OdDbSubclass& section, const OdDbGroup& value) {
  OdDbGroupList& list = *m_groups;
  const int index = odDbGroups::find(list, section, value.code);
  if (index >= 0)
    list[index] = value;
  else
    list.insert(odDbGroups::place(list, schema(), section, value.code), value);
}

void OdDbObject::setText(const OdDbSubclass& section, int code, const OdString& value) {
  setGroup(section, mutableGroups().makeText(code, value));
}

void OdDbObject::setReal(const OdDbSubclass& section, int code, double value) {
  mutableGroups();
  setGroup(section, OdDbGroup::ofReal(code, value));
}

void OdDbObject::setAngle(const OdDbSubclass& section, int code, double radians) {
  setReal(section, code, OdaToDegree(radians));
}

void OdDbObject::setInteger(const OdDbSubclass& section, int code, OdInt64 value) {
  mutableGroups();
  setGroup(section, OdDbGroup::ofInteger(code, value));
}

void OdDbObject::setFlag(const OdDbSubclass& section, int code, int bit, bool on) {
  const int bits = integer(section, code);
  setInteger(section, code, on ? bits | bit : bits & ~bit);
}

void OdDbObject::setTriple(const OdDbSubclass& section, int code, int step, double x, double y, double z) {
  OdDbGroupList& list = mutableGroups();
  setGroup(section, OdDbGroup::ofReal(code, x));
  int at = odDbGroups::find(list, section, code);
  for (const OdDbGroup& part : {OdDbGroup::ofReal(code + step, y), OdDbGroup::ofReal(code + 2 * step, z)}) {
    ++at;
    if (at < list.size() && list[at].code == part.code)
      list[at] = part;
    else
      list.insert(at, part);
  }
}

void OdDbObject::setPoint(const OdDbSubclass& section, int code, const OdGePoint3d& value) {
  setTriple(section, code, 10, value.x, value.y, value.z);
}

void OdDbObject::setVector(const OdDbSubclass& section, int code, const OdGeVector3d& value) {
  setTriple(section, code, 10, value.x, value.y, value.z);
}

void OdDbObject::setScale(const OdDbSubclass& section, int code, const OdGeScale3d& value) {
  setTriple(section, code, 1, value.sx, value.sy, value.sz);
}

void OdDbObject::setReference(const OdDbSubclass& section, int code, OdDbObjectId value) {
  mutableGroups();
  setGroup(section, OdDbGroup::ofHandle(code, value.getHandle()));
}

void OdDbObject::removeField(const OdDbSubclass& section, int code) {
  if (!has(section, code)) return;
  const OdDbField* field = section.field(code);
  const bool spatial =
      field && (field->kind == OdDbFieldKind::kPoint3d || field->kind == OdDbFieldKind::kVector3d ||
                field->kind == OdDbFieldKind::kPoint2d);
  OdDbGroupList& list = mutableGroups();
  const int first = odDbGroups::find(list, section, code);
  int last = first + 1;
  while (spatial && last < list.size() && list[last].code == code + 10 * (last - first)) ++last;
  list.erase(first, last);
}
