// How an object writes itself through a DXF filer.
#include "DbDatabase.h"
#include "DbObject.h"
#include "DbStore.h"
#include <algorithm>

namespace {

constexpr int kMarkerCode = 100;
constexpr int kFirstXDataCode = 1001;

/// Codes whose text names something, and therefore goes through the writer of names.
bool isNameCode(int code) { return code == 2 || code == 6 || code == 7 || code == 8; }

void writeInteger(OdDbDxfFiler* filer, const OdDbGroup& group) {
  const int code = group.code;
  if ((code >= 90 && code <= 99) || (code >= 420 && code <= 459) || code == 1071)
    filer->wrInt32(code, static_cast<OdInt32>(group.integer));
  else if (code >= 160 && code <= 169)
    filer->wrInt64(code, group.integer);
  else if (code >= 280 && code <= 289)
    filer->wrInt8(code, static_cast<OdInt8>(group.integer));
  else
    filer->wrInt16(code, static_cast<OdInt16>(group.integer));
}

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

/// A chunk that is not hexadecimal goes out as the text that it is.
void writeBinary(OdDbDxfFiler* filer, const OdDbGroupList& groups, const OdDbGroup& group) {
  const std::string_view text = group.bytes();
  std::vector<OdUInt8> bytes;
  bytes.reserve(text.size() / 2);
  for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
    const int high = hexDigit(text[i]);
    const int low = hexDigit(text[i + 1]);
    if (high < 0 || low < 0) break;
    bytes.push_back(static_cast<OdUInt8>(high * 16 + low));
  }
  if (bytes.size() * 2 != text.size())
    filer->wrString(group.code, groups.text(group));
  else
    filer->wrBinaryChunk(group.code, bytes.data(), static_cast<OdUInt32>(bytes.size()));
}

/// One group by the kind of its code. References that lead nowhere keep their handle.
void writeGroup(OdDbDxfFiler* filer, const OdDbGroupList& groups, const OdDbGroup& group, OdDbStore* store) {
  switch (group.kind) {
  case OdDbGroupKind::kText:
    if (isNameCode(group.code))
      filer->wrName(group.code, groups.text(group));
    else
      filer->wrString(group.code, groups.text(group));
    break;
  case OdDbGroupKind::kReal: filer->wrDouble(group.code, group.real); break;
  case OdDbGroupKind::kInteger: writeInteger(filer, group); break;
  case OdDbGroupKind::kBool: filer->wrBool(group.code, group.integer != 0); break;
  case OdDbGroupKind::kBinary: writeBinary(filer, groups, group); break;
  case OdDbGroupKind::kHandle: {
    OdDbStub* target = odDbIsReference(group.code) && store ? store->find(group.handle) : nullptr;
    if (target)
      filer->wrObjectId(group.code, OdDbObjectId(target));
    else
      filer->wrHandle(group.code, OdDbHandle(group.handle));
  }
  }
}

} // namespace

void OdDbObject::dxfOut(OdDbDxfFiler* filer) const {
  filer->wrName(0, OdString::fromUtf8(dxfName()));
  dxfOutGroups(filer);
}

void OdDbObject::dxfOutGroups(OdDbDxfFiler* filer) const {
  if (filer->includesDefaultValues())
    writeCanonical(filer);
  else
    writeStored(filer);
}

void OdDbObject::writeRange(OdDbDxfFiler* filer, int first, int last) const {
  const OdDbGroupList& list = groups();
  for (int i = first; i < last; ++i) {
    if (!isWritten(i)) continue;
    const OdDbGroup& group = list[i];
    if (group.flags & OdDbGroup::kOwnHandle)
      filer->wrHandle(group.code, getDbHandle());
    else if (group.flags & OdDbGroup::kOwner)
      filer->wrObjectId(group.code, ownerId());
    else if (!filer->wrStored(list, group))
      writeGroup(filer, list, group, m_stub ? m_stub->store : nullptr);
  }
}

void OdDbObject::writeStored(OdDbDxfFiler* filer) const { writeRange(filer, 0, groups().size()); }

void OdDbObject::writeField(OdDbDxfFiler* filer, const OdDbSubclass& section, const OdDbField& field) const {
  switch (field.kind) {
  case OdDbFieldKind::kString: filer->wrString(field.code, text(section, field.code)); break;
  case OdDbFieldKind::kName: filer->wrName(field.code, text(section, field.code)); break;
  case OdDbFieldKind::kBool: filer->wrBool(field.code, integer(section, field.code) != 0); break;
  case OdDbFieldKind::kInt16:
    filer->wrInt16(field.code, static_cast<OdInt16>(integer(section, field.code)));
    break;
  case OdDbFieldKind::kInt32: filer->wrInt32(field.code, integer(section, field.code)); break;
  case OdDbFieldKind::kObjectId: filer->wrObjectId(field.code, reference(section, field.code)); break;
  case OdDbFieldKind::kAngle: filer->wrAngle(field.code, angle(section, field.code)); break;
  case OdDbFieldKind::kReal: filer->wrDouble(field.code, real(section, field.code)); break;
  case OdDbFieldKind::kPoint2d: {
    const OdGePoint3d stored = point(section, field.code);
    filer->wrPoint2d(field.code, OdGePoint2d(stored.x, stored.y));
    break;
  }
  case OdDbFieldKind::kPoint3d: filer->wrPoint3d(field.code, point(section, field.code)); break;
  case OdDbFieldKind::kVector3d:
  case OdDbFieldKind::kDirection: filer->wrVector3d(field.code, vector(section, field.code)); break;
  case OdDbFieldKind::kScale3d: filer->wrScale3d(field.code, scale(section, field.code)); break;
  }
}

namespace {

/// Whether the group is part of a field that the section's table describes.
bool isKnown(const OdDbSubclass& section, int code) {
  return std::any_of(section.fields.begin(), section.fields.end(), [code](const OdDbField& field) {
    switch (field.kind) {
    case OdDbFieldKind::kPoint2d: return code == field.code || code == field.code + 10;
    case OdDbFieldKind::kPoint3d:
    case OdDbFieldKind::kVector3d:
    case OdDbFieldKind::kDirection:
      return code == field.code || code == field.code + 10 || code == field.code + 20;
    case OdDbFieldKind::kScale3d: return code >= field.code && code <= field.code + 2;
    default: return code == field.code;
    }
  });
}

} // namespace

void OdDbObject::writeCanonical(OdDbDxfFiler* filer) const {
  const OdDbGroupList& list = groups();
  const int size = list.size();
  int at = 0;
  while (at < size && list[at].code != kMarkerCode && list[at].code < kFirstXDataCode) ++at;
  writeRange(filer, 0, at);
  std::vector<const OdDbSubclass*> written;
  while (at < size && list[at].code == kMarkerCode) {
    int last = at + 1;
    while (last < size && list[last].code != kMarkerCode && list[last].code != 101 &&
           list[last].code < kFirstXDataCode)
      ++last;
    const OdDbSchema sections = schema();
    const auto section = std::find_if(sections.begin(), sections.end(), [&](const OdDbSubclass* candidate) {
      return candidate->isMarker(list[at].bytes());
    });
    filer->wrSubclassMarker(list.text(at));
    const bool known = section != sections.end();
    // A marker that a class uses twice describes one section: its fields go out once, under the first.
    if (known && std::find(written.begin(), written.end(), *section) == written.end()) {
      written.push_back(*section);
      for (const OdDbField& field : (*section)->fields) writeField(filer, **section, field);
    }
    for (int i = at + 1; i < last; ++i)
      if (!known || !isKnown(**section, list[i].code)) writeRange(filer, i, i + 1);
    at = last;
  }
  writeRange(filer, at, size);
}
