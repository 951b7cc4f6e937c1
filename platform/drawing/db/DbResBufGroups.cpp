#include "DbResBufGroups.h"
#include <algorithm>

namespace {

constexpr int kCoordinateStep = 10;

/// The codes of first coordinates.
bool isPointCode(int code) {
  return (code >= 10 && code <= 18) || (code >= 110 && code <= 112) || code == 210 ||
         (code >= 1010 && code <= 1013);
}

bool isCoordinate(const OdDbGroupList& groups, int index, int last, int code) {
  return index < last && groups[index].code == code && groups[index].kind == OdDbGroupKind::kReal;
}

OdResBufPtr readScalar(const OdDbGroupList& groups, const OdDbGroup& group) {
  switch (group.kind) {
  case OdDbGroupKind::kReal: return OdResBuf::newRb(group.code, group.real);
  case OdDbGroupKind::kInteger:
  case OdDbGroupKind::kBool: return OdResBuf::newRb(group.code, group.integer);
  case OdDbGroupKind::kHandle: return OdResBuf::newRb(group.code, OdDbHandle(group.handle));
  default: return OdResBuf::newRb(group.code, groups.text(group));
  }
}

/// Moves `index` behind what it read.
OdResBufPtr readItem(const OdDbGroupList& groups, int& index, int last) {
  const OdDbGroup& group = groups[index++];
  const int second = group.code + kCoordinateStep;
  if (!isPointCode(group.code) || !isCoordinate(groups, index, last, second))
    return readScalar(groups, group);
  OdGePoint3d point(group.real, groups[index++].real, 0);
  if (isCoordinate(groups, index, last, second + kCoordinateStep)) point.z = groups[index++].real;
  return OdResBuf::newRb(group.code, point);
}

double number(const OdResBuf::Value& value) {
  if (const double* real = std::get_if<double>(&value)) return *real;
  return static_cast<double>(std::get<OdInt64>(value));
}

bool fits(int code, const OdResBuf::Value& value) {
  if (std::holds_alternative<OdGePoint3d>(value)) return isPointCode(code);
  switch (odDbGroupKind(code)) {
  case OdDbGroupKind::kReal:
    return std::holds_alternative<double>(value) || std::holds_alternative<OdInt64>(value);
  case OdDbGroupKind::kInteger:
  case OdDbGroupKind::kBool: return std::holds_alternative<OdInt64>(value);
  case OdDbGroupKind::kHandle: return std::holds_alternative<OdDbHandle>(value);
  default: return std::holds_alternative<OdString>(value);
  }
}

void appendItem(OdDbGroupList& groups, int code, const OdResBuf::Value& value) {
  if (const auto* point = std::get_if<OdGePoint3d>(&value)) {
    groups.append(OdDbGroup::ofReal(code, point->x));
    groups.append(OdDbGroup::ofReal(code + kCoordinateStep, point->y));
    groups.append(OdDbGroup::ofReal(code + 2 * kCoordinateStep, point->z));
  } else if (const auto* text = std::get_if<OdString>(&value)) {
    groups.append(groups.makeText(code, *text));
  } else if (const auto* handle = std::get_if<OdDbHandle>(&value)) {
    groups.append(OdDbGroup::ofHandle(code, *handle));
  } else if (odDbGroupKind(code) == OdDbGroupKind::kReal) {
    groups.append(OdDbGroup::ofReal(code, number(value)));
  } else {
    groups.append(OdDbGroup::ofInteger(code, std::get<OdInt64>(value)));
  }
}

} // namespace

namespace odDbResBufs {

OdResBufPtr read(const OdDbGroupList& groups, int first, int last) {
  OdResBufPtr head;
  OdResBuf* tail = nullptr;
  while (first < last) {
    OdResBufPtr item = readItem(groups, first, last);
    if (tail)
      tail->setNext(item);
    else
      head = item;
    tail = item.get();
  }
  return head;
}

void check(const OdResBuf* chain) {
  for (; chain; chain = chain->next()) {
    if (fits(chain->restype(), chain->value())) continue;
    OdString reason;
    reason.format(L"A value of group code %d is of another type than the code takes.", chain->restype());
    throw OdError(eInvalidInput, reason);
  }
}

int insert(OdDbGroupList& groups, int index, const OdResBuf* chain, const OdResBuf* end) {
  const int oldSize = groups.size();
  for (; chain && chain != end; chain = chain->next()) appendItem(groups, chain->restype(), chain->value());
  std::rotate(groups.items.begin() + index, groups.items.begin() + oldSize, groups.items.end());
  return index + groups.size() - oldSize;
}

} // namespace odDbResBufs
