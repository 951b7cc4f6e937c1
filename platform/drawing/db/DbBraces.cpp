#include "DbBraces.h"

namespace {

constexpr int kBraceCode = 102;

/// Where new braces go: behind the handle, or behind the other braces that follow it.
int newPlace(const OdDbGroupList& groups, odDbBraces::Place place) {
  int at = 0;
  for (int i = 0; i < groups.size() && groups[i].code != 100; ++i)
    if (groups[i].flags & OdDbGroup::kOwnHandle) at = i + 1;
  while (place == odDbBraces::kLast && at < groups.size() && groups[at].code == kBraceCode) {
    for (++at; at < groups.size() && groups[at].code != kBraceCode;) ++at;
    if (at < groups.size()) ++at;
  }
  return at;
}

} // namespace

void odDbBraces::add(OdDbGroupList& groups, std::string_view opening, const OdDbGroup& group, Place place) {
  if (const odDbGroups::Range inside = odDbGroups::braces(groups, opening); inside.first >= 0) {
    groups.insert(inside.last, group);
    return;
  }
  const int at = newPlace(groups, place);
  groups.insert(at, groups.makeBytes(kBraceCode, opening));
  groups.insert(at + 1, group);
  groups.insert(at + 2, groups.makeBytes(kBraceCode, "}"));
}

void odDbBraces::remove(OdDbGroupList& groups, std::string_view opening) {
  const odDbGroups::Range inside = odDbGroups::braces(groups, opening);
  if (inside.first < 0) return;
  const bool closed = inside.last < groups.size() && groups[inside.last].code == kBraceCode;
  groups.erase(inside.first - 1, inside.last + (closed ? 1 : 0));
}
