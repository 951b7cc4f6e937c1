#include "DbGroup.h"
#include <algorithm>

namespace {

struct KindRange {
  int first;
  int last;
  OdDbGroupKind kind;
};

// The value types of the group codes, as the drawing exchange format defines them. Codes that are not listed
// are text.
constexpr KindRange kKinds[] = {
    {5, 5, OdDbGroupKind::kHandle},        {10, 59, OdDbGroupKind::kReal},
    {60, 79, OdDbGroupKind::kInteger},     {90, 99, OdDbGroupKind::kInteger},
    {105, 105, OdDbGroupKind::kHandle},    {110, 149, OdDbGroupKind::kReal},
    {160, 179, OdDbGroupKind::kInteger},   {210, 239, OdDbGroupKind::kReal},
    {270, 289, OdDbGroupKind::kInteger},   {290, 299, OdDbGroupKind::kBool},
    {310, 319, OdDbGroupKind::kBinary},    {320, 369, OdDbGroupKind::kHandle},
    {370, 389, OdDbGroupKind::kInteger},   {390, 399, OdDbGroupKind::kHandle},
    {400, 409, OdDbGroupKind::kInteger},   {420, 429, OdDbGroupKind::kInteger},
    {440, 459, OdDbGroupKind::kInteger},   {460, 469, OdDbGroupKind::kReal},
    {480, 481, OdDbGroupKind::kHandle},    {1004, 1004, OdDbGroupKind::kBinary},
    {1005, 1005, OdDbGroupKind::kHandle},  {1010, 1059, OdDbGroupKind::kReal},
    {1060, 1071, OdDbGroupKind::kInteger},
};

constexpr int kKindCodes = 1072;

struct KindTable {
  OdDbGroupKind kinds[kKindCodes] = {};
  constexpr KindTable() {
    for (const KindRange& range : kKinds)
      for (int code = range.first; code <= range.last; ++code) kinds[code] = range.kind;
  }
};
constexpr KindTable kKindTable;

} // namespace

OdDbGroupKind odDbGroupKind(int code) {
  return code >= 0 && code < kKindCodes ? kKindTable.kinds[code] : OdDbGroupKind::kText;
}

bool odDbIsReference(int code) {
  return (code >= 330 && code <= 369) || (code >= 390 && code <= 399) || code == 480 || code == 481 ||
         code == 1005;
}

OdDbGroup OdDbGroup::ofReal(int code, double value) {
  OdDbGroup group;
  group.code = static_cast<OdInt16>(code);
  group.kind = OdDbGroupKind::kReal;
  group.real = value;
  return group;
}

OdDbGroup OdDbGroup::ofInteger(int code, OdInt64 value) {
  OdDbGroup group;
  group.code = static_cast<OdInt16>(code);
  group.kind = odDbGroupKind(code) == OdDbGroupKind::kBool ? OdDbGroupKind::kBool : OdDbGroupKind::kInteger;
  group.integer = value;
  return group;
}

OdDbGroup OdDbGroup::ofHandle(int code, OdUInt64 value) {
  OdDbGroup group;
  group.code = static_cast<OdInt16>(code);
  group.kind = OdDbGroupKind::kHandle;
  group.handle = value;
  return group;
}

OdDbGroup OdDbGroup::ofBytes(int code, std::string_view bytes) {
  OdDbGroup group;
  group.code = static_cast<OdInt16>(code);
  group.kind = odDbGroupKind(code) == OdDbGroupKind::kBinary ? OdDbGroupKind::kBinary : OdDbGroupKind::kText;
  group.text = bytes.data();
  group.size = static_cast<OdUInt32>(bytes.size());
  return group;
}

OdDbGroupList::OdDbGroupList(const OdDbGroupList& other) : items(other.items), codec(other.codec) {
  for (OdDbGroup& group : items)
    if (group.isText() && (group.flags & OdDbGroup::kOwned)) group.text = keep(group.bytes()).data();
}

OdString OdDbGroupList::text(const OdDbGroup& group) const {
  if (!group.isText()) return {};
  if ((group.flags & OdDbGroup::kOwned) || !codec)
    return OdString::fromUtf8(group.bytes(), OdString::Surrogates::kKeep);
  return codec->decode(group.bytes());
}

OdDbGroup OdDbGroupList::makeText(int code, const OdString& value) {
  return makeBytes(code, value.toUtf8(OdString::Surrogates::kKeep));
}

OdDbGroup OdDbGroupList::makeBytes(int code, std::string_view utf8) {
  OdDbGroup group = OdDbGroup::ofBytes(code, keep(utf8));
  group.flags = OdDbGroup::kOwned;
  return group;
}

void OdDbGroupList::own() {
  for (OdDbGroup& group : items) {
    if (!group.isText() || (group.flags & OdDbGroup::kOwned)) continue;
    const std::string_view kept = keep(text(group).toUtf8(OdString::Surrogates::kKeep));
    group.text = kept.data();
    group.size = static_cast<OdUInt32>(kept.size());
    group.flags |= OdDbGroup::kOwned;
  }
  codec = nullptr;
}

std::string_view OdDbGroupList::keep(std::string_view bytes) {
  // Replaced texts stay behind; a list that is set over and over is swept when they outnumber the groups.
  if (m_textCount > 2 * items.size() + 16) {
    const std::string added(bytes);
    std::forward_list<std::string> live;
    m_textCount = 0;
    for (OdDbGroup& group : items) {
      if (!group.isText() || !(group.flags & OdDbGroup::kOwned)) continue;
      group.text = live.emplace_front(group.bytes()).data();
      ++m_textCount;
    }
    m_texts.swap(live);
    ++m_textCount;
    return m_texts.emplace_front(added);
  }
  ++m_textCount;
  return m_texts.emplace_front(bytes);
}
