#include "DbMultilinePart.h"
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbStub.h"
#include "DbXrecord.h"

namespace {

enum Code { kText = 1, kTag = 2, kHeader = 70, kScale = 40, kMarker = 100, kEmbedded = 101 };
constexpr std::string_view kBraces = "{ACAD_XDICTIONARY";
constexpr wchar_t kEntry[] = L"ACAD_MLATT";

/// The header of the XRECORD: kind, whether it is locked, number of further attributes and these, scale, tag.
odDbGroups::Range header(const OdDbGroupList& groups) {
  int first = 0;
  while (first < groups.size() && groups[first].code != kMarker) ++first;
  int last = first;
  while (last < groups.size() && !((groups[last].code == kText || groups[last].code == kEmbedded) &&
                                   groups[last].bytes() == odDbMultiline::kEmbeddedMark))
    ++last;
  return {first, last};
}

int indexOf(const OdDbGroupList& groups, odDbGroups::Range range, int code) {
  for (int i = range.first; i < range.last; ++i)
    if (groups[i].code == code) return i;
  return -1;
}

OdDbMultilinePart recordPart(const OdDbObject& attribute) {
  const auto dictionary = OdDbDictionary::cast(attribute.extensionDictionary().openObject());
  if (dictionary.isNull()) return {};
  OdDbMultilinePart part;
  part.record = OdDbXrecord::cast(dictionary->getAt(kEntry, OdDb::kForRead));
  if (part.record.isNull()) return {};
  const OdDbGroupList& groups = part.record->groups();
  const auto [first, last] = header(groups);
  if (last >= groups.size()) return {};
  part.groups = &groups;
  part.body = {last + 1, odDbGroups::xDataStart(groups)};
  return part;
}

} // namespace

namespace odDbMultiline {

OdDbMultilinePart find(const OdDbObject& attribute) {
  const OdDbGroupList& groups = attribute.groups();
  odDbGroups::Range body = odDbGroups::embedded(groups);
  if (body.first < 0)
    return odDbGroups::braces(groups, kBraces).first < 0 ? OdDbMultilinePart() : recordPart(attribute);
  // A further embedded record would be the text's own (its columns).
  if (const int inner = indexOf(groups, body, kEmbedded); inner >= 0) body.last = inner;
  OdDbMultilinePart part;
  part.groups = &groups;
  part.body = body;
  return part;
}

void makeRecord(OdDbObject& attribute, Kind kind, const OdString& tag, const OdDbGroupList& from,
                odDbGroups::Range range) {
  OdDbXrecordPtr record = OdDbXrecord::createObject();
  OdDbGroupList& list = record->mutableGroups();
  list.append(OdDbGroup::ofInteger(kHeader, kind));
  list.append(OdDbGroup::ofInteger(kHeader, 0));
  list.append(OdDbGroup::ofInteger(kHeader, 0));
  list.append(OdDbGroup::ofReal(kScale, 1));
  list.append(list.makeText(kTag, tag));
  list.append(list.makeBytes(kText, kEmbeddedMark));
  for (int i = range.first; i < range.last; ++i)
    list.append(from[i].isText() ? list.makeText(from[i].code, from.text(i)) : from[i]);
  OdDbDictionaryPtr dictionary = attribute.createExtensionDictionary().safeOpenObject(OdDb::kForWrite);
  dictionary->setAt(kEntry, record);
}

void dropRecord(OdDbObject& attribute) {
  const auto dictionary = OdDbDictionary::cast(attribute.extensionDictionary().openObject(OdDb::kForWrite));
  if (dictionary.isNull()) return;
  const OdDbObjectId record = dictionary->remove(kEntry);
  if (!record.isErased()) record.openObject(OdDb::kForWrite)->erase();
  attribute.releaseExtensionDictionary();
}

bool mayHaveRecord(const OdDbStub* attribute) {
  if (attribute->groups) return odDbGroups::braces(*attribute->groups, kBraces).first >= 0;
  return attribute->raw &&
         std::string_view(attribute->raw, attribute->rawSize).find(kBraces) != std::string_view::npos;
}

} // namespace odDbMultiline

double OdDbMultilinePart::real(int code, double fallback) const {
  const int at = indexOf(*groups, body, code);
  return at >= 0 && (*groups)[at].kind == OdDbGroupKind::kReal ? (*groups)[at].real : fallback;
}

int OdDbMultilinePart::integer(int code, int fallback) const {
  const int at = indexOf(*groups, body, code);
  return at >= 0 && (*groups)[at].kind == OdDbGroupKind::kInteger ? static_cast<int>((*groups)[at].integer)
                                                                  : fallback;
}

OdString OdDbMultilinePart::tag() const {
  const int at = indexOf(*groups, header(*groups), kTag);
  return at >= 0 ? groups->text(at) : OdString();
}

void OdDbMultilinePart::setTag(const OdString& tag) {
  record->upgradeOpen();
  OdDbGroupList& list = record->mutableGroups();
  if (const int at = indexOf(list, header(list), kTag); at >= 0) list[at] = list.makeText(kTag, tag);
  groups = &list;
}

void OdDbMultilinePart::replaceBody(OdDbGroupList& list, const OdDbGroupList& from,
                                    odDbGroups::Range range) const {
  list.erase(body.first, body.last);
  for (int i = range.first, at = body.first; i < range.last; ++i, ++at)
    list.insert(at, from[i].isText() ? list.makeText(from[i].code, from.text(i)) : from[i]);
}

OdDbObjectIdArray OdDbMultilinePart::secondaries() const {
  OdDbObjectIdArray ids;
  if (!isRecord()) return ids;
  const auto [first, last] = header(*groups);
  for (int i = first; i < last; ++i) {
    const OdDbGroup& group = (*groups)[i];
    if (group.kind != OdDbGroupKind::kHandle || !odDbIsReference(group.code)) continue;
    const OdDbObjectId id = record->database()->getOdDbObjectId(group.handle);
    if (!id.isErased()) ids.append(id);
  }
  return ids;
}

void OdDbMultilinePart::dropSecondaries() {
  const OdDbObjectIdArray ids = secondaries();
  if (ids.isEmpty()) return;
  for (const OdDbObjectId& id : ids) id.openObject(OdDb::kForWrite)->erase();
  record->upgradeOpen();
  OdDbGroupList& list = record->mutableGroups();
  auto [first, last] = header(list);
  constexpr int kCountIndex = 2; // among the groups 70
  int headers = 0;
  for (int i = first; i < last; ++i) {
    if (list[i].code == kHeader && headers++ == kCountIndex) list[i].integer = 0;
    if (list[i].kind == OdDbGroupKind::kHandle && odDbIsReference(list[i].code)) {
      list.erase(i, i + 1);
      --i;
      --last;
    }
  }
  groups = &list;
  body = {last + 1, odDbGroups::xDataStart(list)};
}
