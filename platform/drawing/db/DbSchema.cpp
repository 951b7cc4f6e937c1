#include "DbSchema.h"
#include <algorithm>

namespace {

constexpr int kMarkerCode = 100;
constexpr int kEmbeddedCode = 101;
constexpr int kBraceCode = 102;
constexpr int kFirstXDataCode = 1001;

bool isOpeningBrace(const OdDbGroup& group) {
  return group.code == kBraceCode && group.size > 0 && group.text[0] == '{';
}

/// Steps over groups that do not belong to a section's own fields. Returns the index behind the closing
/// brace.
int skipBraces(const OdDbGroupList& groups, int index, int last) {
  for (++index; index < last; ++index)
    if (groups[index].code == kBraceCode) return index + 1;
  return last;
}

/// End of what the sections consist of: the first embedded record or extended data.
int sectionsEnd(const OdDbGroupList& groups) {
  const int size = groups.size();
  for (int i = 0; i < size; ++i)
    if (groups[i].code == kEmbeddedCode || groups[i].code >= kFirstXDataCode) return i;
  return size;
}

/// Groups that a field of this kind occupies behind its first one.
int followers(const OdDbGroupList& groups, int index, OdDbFieldKind kind, int end) {
  int step = 10;
  int wanted = 0;
  if (kind == OdDbFieldKind::kPoint3d || kind == OdDbFieldKind::kVector3d ||
      kind == OdDbFieldKind::kDirection)
    wanted = 2;
  if (kind == OdDbFieldKind::kPoint2d) wanted = 1;
  if (kind == OdDbFieldKind::kScale3d) {
    wanted = 2;
    step = 1;
  }
  int count = 0;
  while (count < wanted && index + count + 1 < end &&
         groups[index + count + 1].code == groups[index].code + step * (count + 1))
    ++count;
  return count;
}

} // namespace

const OdDbField* OdDbSubclass::field(int code) const {
  for (const OdDbField& candidate : fields)
    if (candidate.code == code) return &candidate;
  return nullptr;
}

namespace odDbGroups {

int xDataStart(const OdDbGroupList& groups) {
  const int size = groups.size();
  for (int i = 0; i < size; ++i)
    if (groups[i].code == kFirstXDataCode) return i;
  return size;
}

int find(const OdDbGroupList& groups, const OdDbSubclass& section, int code, int nth) {
  const int size = groups.size();
  bool inside = false;
  bool anyMarker = false;
  for (int i = 0; i < size; ++i) {
    const OdDbGroup& group = groups[i];
    if (group.code == kMarkerCode) {
      anyMarker = true;
      inside = section.isMarker(group.bytes());
    } else if (group.code == kEmbeddedCode || group.code >= kFirstXDataCode) {
      break;
    } else if (isOpeningBrace(group)) {
      i = skipBraces(groups, i, size) - 1;
    } else if (inside && group.code == code && nth-- == 0) {
      return i;
    }
  }
  if (anyMarker) return -1;
  for (int i = 0; i < size && groups[i].code < kFirstXDataCode && groups[i].code != kEmbeddedCode; ++i)
    if (groups[i].code == code && !groups[i].isIdentity() && nth-- == 0) return i;
  return -1;
}

static int sectionIndex(const OdDbGroupList& groups, const OdDbSubclass& section, int end) {
  int before = section.occurrence;
  for (int i = 0; i < end; ++i)
    if (groups[i].code == kMarkerCode && section.isMarker(groups[i].bytes()) && before-- == 0) return i;
  return -1;
}

/// Makes the missing section behind the last section of the schema that stands before it.
static int makeSection(OdDbGroupList& groups, OdDbSchema schema, const OdDbSubclass& section, int end) {
  int at = end;
  bool behind = false;
  for (const OdDbSubclass* other : schema) {
    if (other == &section)
      behind = true;
    else if (behind) {
      const int next = sectionIndex(groups, *other, end);
      if (next >= 0) {
        at = next;
        break;
      }
    }
  }
  groups.insert(at, groups.makeBytes(kMarkerCode, section.marker));
  return at;
}

int place(OdDbGroupList& groups, OdDbSchema schema, const OdDbSubclass& section, int code) {
  int end = sectionsEnd(groups);
  const bool anyMarker = std::any_of(groups.items.begin(), groups.items.begin() + end,
                                     [](const OdDbGroup& group) { return group.code == kMarkerCode; });
  int marker = sectionIndex(groups, section, end);
  if (marker < 0 && (anyMarker || groups.items.empty())) {
    marker = makeSection(groups, schema, section, end);
    ++end;
  }
  // Behind the last field that canonically precedes this one; a record without markers is one section.
  int at = marker + 1;
  if (marker < 0)
    while (at < end && groups[at].isIdentity()) ++at;
  for (const OdDbField& field : section.fields) {
    if (field.code == code) break;
    const int index = find(groups, section, field.code);
    if (index >= 0) at = std::max(at, index + 1 + followers(groups, index, field.kind, end));
  }
  return at;
}

Range braces(const OdDbGroupList& groups, std::string_view opening) {
  const int size = groups.size();
  for (int i = 0; i < size; ++i) {
    if (groups[i].code == kMarkerCode || groups[i].code >= kFirstXDataCode) break;
    if (groups[i].code == kBraceCode && groups[i].bytes() == opening) {
      int last = i + 1;
      while (last < size && groups[last].code != kBraceCode) ++last;
      return {i + 1, last};
    }
  }
  return {-1, -1};
}

Range embedded(const OdDbGroupList& groups) {
  const int size = groups.size();
  for (int i = 0; i < size; ++i)
    if (groups[i].code == kEmbeddedCode) return {i + 1, xDataStart(groups)};
  return {-1, -1};
}

static void appendField(OdDbGroupList& groups, const OdDbField& field) {
  switch (field.kind) {
  case OdDbFieldKind::kString:
  case OdDbFieldKind::kName: groups.append(groups.makeBytes(field.code, field.text)); break;
  case OdDbFieldKind::kBool:
  case OdDbFieldKind::kInt16:
  case OdDbFieldKind::kInt32:
    groups.append(OdDbGroup::ofInteger(field.code, static_cast<OdInt64>(field.number)));
    break;
  case OdDbFieldKind::kObjectId: groups.append(OdDbGroup::ofHandle(field.code, 0)); break;
  case OdDbFieldKind::kAngle:
  case OdDbFieldKind::kReal: groups.append(OdDbGroup::ofReal(field.code, field.number)); break;
  case OdDbFieldKind::kPoint2d:
    groups.append(OdDbGroup::ofReal(field.code, 0));
    groups.append(OdDbGroup::ofReal(field.code + 10, 0));
    break;
  case OdDbFieldKind::kPoint3d:
  case OdDbFieldKind::kVector3d:
    groups.append(OdDbGroup::ofReal(field.code, 0));
    groups.append(OdDbGroup::ofReal(field.code + 10, 0));
    groups.append(OdDbGroup::ofReal(field.code + 20, field.number));
    break;
  case OdDbFieldKind::kDirection:
    groups.append(OdDbGroup::ofReal(field.code, field.number));
    groups.append(OdDbGroup::ofReal(field.code + 10, 0));
    groups.append(OdDbGroup::ofReal(field.code + 20, 0));
    break;
  case OdDbFieldKind::kScale3d:
    for (int i = 0; i < 3; ++i) groups.append(OdDbGroup::ofReal(field.code + i, field.number));
    break;
  }
}

void initialize(OdDbGroupList& groups, OdDbSchema schema) {
  OdDbGroup handle = OdDbGroup::ofHandle(5, 0);
  handle.flags = OdDbGroup::kOwnHandle;
  OdDbGroup owner = OdDbGroup::ofHandle(330, 0);
  owner.flags = OdDbGroup::kOwner;
  groups.items.clear();
  groups.append(handle);
  groups.append(owner);
  for (const OdDbSubclass* section : schema) {
    groups.append(groups.makeBytes(kMarkerCode, section->marker));
    for (const OdDbField& field : section->fields)
      if (field.always) appendField(groups, field);
  }
}

} // namespace odDbGroups
