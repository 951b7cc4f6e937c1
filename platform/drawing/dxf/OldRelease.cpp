#include "OldRelease.h"
#include "DbStoreWalk.h"
#include <algorithm>
#include <optional>

namespace {

constexpr int kMarkerCode = 100;
constexpr int kBraceCode = 102;
constexpr int kNameCode = 3;
constexpr int kOwnerCode = 330;
constexpr int kFirstXDataCode = 1001;

/// The kinds of records, and the release that brought them. Kinds that are not listed came later.
struct Kind {
  std::string_view name;
  OdDb::DwgVersion since;
};
constexpr Kind kKinds[] = {
    {"LINE", OdDb::vAC02},          {"POINT", OdDb::vAC02},         {"CIRCLE", OdDb::vAC02},
    {"ARC", OdDb::vAC02},           {"TRACE", OdDb::vAC02},         {"SOLID", OdDb::vAC02},
    {"TEXT", OdDb::vAC02},          {"SHAPE", OdDb::vAC02},         {"INSERT", OdDb::vAC02},
    {"ATTDEF", OdDb::vAC02},        {"ATTRIB", OdDb::vAC02},        {"POLYLINE", OdDb::vAC02},
    {"VERTEX", OdDb::vAC02},        {"SEQEND", OdDb::vAC02},        {"BLOCK", OdDb::vAC02},
    {"ENDBLK", OdDb::vAC02},        {"DIMENSION", OdDb::vAC02},     {"LAYER", OdDb::vAC02},
    {"LTYPE", OdDb::vAC02},         {"STYLE", OdDb::vAC02},         {"VIEW", OdDb::vAC02},
    {"TABLE", OdDb::vAC02},         {"BLOCK_RECORD", OdDb::vAC02},  {"3DFACE", OdDb::vAC06},
    {"UCS", OdDb::vAC06},           {"VPORT", OdDb::vAC06},         {"VIEWPORT", OdDb::vAC09},
    {"APPID", OdDb::vAC09},         {"DIMSTYLE", OdDb::vAC09},      {"MTEXT", OdDb::vAC12},
    {"ELLIPSE", OdDb::vAC12},       {"SPLINE", OdDb::vAC12},        {"LEADER", OdDb::vAC12},
    {"TOLERANCE", OdDb::vAC12},     {"MLINE", OdDb::vAC12},         {"RAY", OdDb::vAC12},
    {"XLINE", OdDb::vAC12},         {"REGION", OdDb::vAC12},        {"BODY", OdDb::vAC12},
    {"3DSOLID", OdDb::vAC12},       {"DICTIONARY", OdDb::vAC12},    {"GROUP", OdDb::vAC12},
    {"MLINESTYLE", OdDb::vAC12},    {"XRECORD", OdDb::vAC12},       {"LWPOLYLINE", OdDb::vAC14},
    {"HATCH", OdDb::vAC14},         {"DICTIONARYVAR", OdDb::vAC14}, {"IDBUFFER", OdDb::vAC14},
    {"SORTENTSTABLE", OdDb::vAC14},
};

/// Dictionaries, and what stands in one of them, mean nothing unless somebody refers to them.
bool isHousekeeping(std::string_view kind) {
  return kind == "DICTIONARY" || kind == "ACDBDICTIONARYWDFLT" || kind == "ACDBPLACEHOLDER";
}

bool isDictionary(const OdDbStub& stub) {
  return stub.dxfName() == "DICTIONARY" || stub.dxfName() == "ACDBDICTIONARYWDFLT";
}

/// Groups that came later than the kind of record that they stand in.
struct LateGroup {
  std::string_view record; ///< empty: the common section of entities
  int code;
  OdDb::DwgVersion since;
  std::optional<double> usual; ///< with this value, the group states what goes without it
};
constexpr std::string_view kEveryEntity;
constexpr LateGroup kLateGroups[] = {
    {kEveryEntity, 48, OdDb::vAC12, 1},
    {kEveryEntity, 60, OdDb::vAC12, 0},
    {kEveryEntity, 284, OdDb::vAC15, 0},
    {kEveryEntity, 347, OdDb::vAC15, {}},
    {kEveryEntity, 370, OdDb::vAC15, OdDb::kLnWtByLayer},
    {kEveryEntity, 380, OdDb::vAC15, 0},
    {kEveryEntity, 390, OdDb::vAC15, {}},
    {kEveryEntity, 420, OdDb::vAC15, {}},
    {kEveryEntity, 430, OdDb::vAC15, {}},
    {kEveryEntity, 440, OdDb::vAC15, 0},
    {"LAYER", 290, OdDb::vAC15, 1},
    {"LAYER", 370, OdDb::vAC15, OdDb::kLnWtByLwDefault},
    {"LAYER", 390, OdDb::vAC15, {}},
    {"LAYER", 420, OdDb::vAC15, {}},
    {"ATTRIB", 280, OdDb::vAC15, 0},
    {"ATTDEF", 280, OdDb::vAC15, 0},
    {"BLOCK", 1, OdDb::vAC09, 0},
    {"BLOCK", 3, OdDb::vAC09, 0},
    {"BLOCK", 4, OdDb::vAC15, 0},
    {"BLOCK_RECORD", 70, OdDb::vAC15, 0},
    {"BLOCK_RECORD", 280, OdDb::vAC15, 1},
    {"BLOCK_RECORD", 281, OdDb::vAC15, 0},
    {"BLOCK_RECORD", 340, OdDb::vAC15, 0},
    {"DICTIONARY", 281, OdDb::vAC15, 1},
    {"VIEWPORT", 12, OdDb::vAC15, {}},
    {"VIEWPORT", 45, OdDb::vAC15, {}},
};

OdDb::DwgVersion since(std::string_view kind) {
  const auto* known = std::find_if(std::begin(kKinds), std::end(kKinds),
                                   [kind](const Kind& candidate) { return candidate.name == kind; });
  return known == std::end(kKinds) ? OdDb::vAC15 : known->since;
}

/// The release whose rules the drawing is written by. One that does not tell its own goes by the form of its
/// records.
OdDb::DwgVersion rulesOf(const OdDbStore& store) {
  if (store.version != OdDb::vUnknown) return store.version;
  return store.hasMarkers ? OdDb::vAC15 : OdDb::vAC09;
}

/// The name of a release as users know it.
const char* releaseName(OdDb::DwgVersion version) {
  switch (version) {
  case OdDb::vAC02: return "2";
  case OdDb::vAC04: return "R9";
  case OdDb::vAC06: return "R10";
  case OdDb::vAC09: return "R12";
  case OdDb::vAC12: return "R13";
  case OdDb::vAC14: return "R14";
  default: return "2000";
  }
}

/// The groups of one object, looked at by the rules of its release.
class Form {
public:
  Form(const OdDbStub& stub, const OdDbGroupList& groups)
      : m_stub(stub), m_groups(groups), m_rules(rulesOf(*stub.store)),
        m_hasMarkers(m_rules >= OdDb::vAC12 || needsMarkers(groups)) {}

  /// What the release cannot store; empty: nothing.
  std::string novelty() const;
  OdDbGroupListPtr stored() const;

private:
  /// Whether a group would be taken for the owner if no marker stood before it. Only damaged files have such
  /// groups in records of these releases.
  static bool needsMarkers(const OdDbGroupList& groups) {
    const auto first = std::ranges::find(groups.items, kMarkerCode, &OdDbGroup::code);
    return std::find_if(first, groups.items.end(), [](const OdDbGroup& group) {
             return group.code == kOwnerCode;
           }) != groups.items.end();
  }
  bool isEntity() const { return (m_stub.flags & OdDbStub::kEntity) != 0; }
  /// The rule that keeps the group out of the release, or null. `section` is the marker before the group.
  const LateGroup* late(const OdDbGroup& group, std::string_view section) const;
  bool isUsual(const OdDbGroup& group, const LateGroup& rule) const;
  bool isStored(const OdDbGroup& group, std::string_view section) const;
  bool leadsNowhere(int index) const;

  const OdDbStub& m_stub;
  const OdDbGroupList& m_groups;
  OdDb::DwgVersion m_rules;
  bool m_hasMarkers;
};

const LateGroup* Form::late(const OdDbGroup& group, std::string_view section) const {
  const auto* rule = std::find_if(std::begin(kLateGroups), std::end(kLateGroups), [&](const LateGroup& r) {
    if (r.code != group.code || r.since <= m_rules) return false;
    if (!r.record.empty()) return r.record == m_stub.dxfName();
    return isEntity() && (section.empty() || section == "AcDbEntity");
  });
  return rule == std::end(kLateGroups) ? nullptr : rule;
}

bool Form::isUsual(const OdDbGroup& group, const LateGroup& rule) const {
  if (!rule.usual) return false;
  switch (group.kind) {
  case OdDbGroupKind::kReal: return group.real == *rule.usual;
  case OdDbGroupKind::kInteger:
  case OdDbGroupKind::kBool: return static_cast<double>(group.integer) == *rule.usual;
  case OdDbGroupKind::kHandle: return static_cast<double>(group.handle) == *rule.usual;
  default: break;
  }
  // The name of a block stands in its record twice; other texts state nothing when they are empty.
  return group.size == 0 ||
         (rule.code == kNameCode && m_groups.text(group) == OdDbStore::recordName(m_groups));
}

std::string Form::novelty() const {
  if ((m_stub.flags & OdDbStub::kMade) && since(m_stub.dxfName()) > m_rules) return "this kind of object";
  std::string_view section;
  for (const OdDbGroup& group : m_groups.items) {
    if (group.code == kMarkerCode) section = group.bytes();
    if (group.code >= kFirstXDataCode) return m_rules < OdDb::vAC09 ? "its extended data" : "";
    if (group.code == kBraceCode && m_rules < OdDb::vAC12)
      return group.bytes() == "{ACAD_XDICTIONARY" ? "its extension dictionary" : "its reactors";
    if (const LateGroup* rule = late(group, section); rule && !isUsual(group, *rule))
      return "its group " + std::to_string(group.code);
  }
  return {};
}

bool Form::isStored(const OdDbGroup& group, std::string_view section) const {
  if (group.code >= kFirstXDataCode) return true;
  // These releases know no objects; what a file holds all the same is in the form of a later one.
  if ((m_stub.flags & OdDbStub::kInObjects) && m_rules < OdDb::vAC12) return true;
  if (group.flags & OdDbGroup::kOwner) return m_rules > OdDb::vAC12;
  if (group.flags & OdDbGroup::kOwnHandle) {
    const OdDbStore& store = *m_stub.store;
    return store.hasHandles && (isEntity() || m_rules >= OdDb::vAC12 || store.tableRecordsHaveHandles);
  }
  if (group.code == kMarkerCode) return m_hasMarkers;
  return !late(group, section);
}

/// Whether the group is part of a dictionary's entry for an object that was erased.
bool Form::leadsNowhere(int index) const {
  if (!isDictionary(m_stub)) return false;
  const auto leads = [this](int name) {
    if (name < 0 || name + 1 >= m_groups.size() || m_groups[name].code != kNameCode) return false;
    const OdDbGroup& value = m_groups[name + 1];
    const OdDbStub* entry = value.kind == OdDbGroupKind::kHandle ? m_stub.store->find(value.handle) : nullptr;
    return entry && entry->isErased();
  };
  return leads(index) || leads(index - 1);
}

OdDbGroupListPtr Form::stored() const {
  std::vector<bool> keep;
  std::string_view section;
  for (int i = 0; i < m_groups.size(); ++i) {
    if (m_groups[i].code == kMarkerCode) section = m_groups[i].bytes();
    keep.push_back(isStored(m_groups[i], section) && !leadsNowhere(i));
  }
  if (std::find(keep.begin(), keep.end(), false) == keep.end()) return {};
  OdDbGroupListPtr result(new OdDbGroupList(m_groups));
  auto kept = keep.begin();
  std::erase_if(result->items, [&kept](const OdDbGroup&) { return !*kept++; });
  return result;
}

std::string described(const OdDbStub& stub, const std::string& novelty) {
  const std::string handle =
      stub.store->hasHandles ? " " + OdDbHandle(stub.handle).ascii().toUtf8() : std::string();
  return stub.dxfName() + handle + " (" + novelty + ")";
}

} // namespace

OdDbGroupListPtr dxfReleaseForm(const OdDbStub& stub, const OdDbGroupList* groups) {
  if (!groups && !stub.groups) return {};
  if (rulesOf(*stub.store) >= OdDb::vAC15 && !isDictionary(stub)) return {};
  return Form(stub, groups ? *groups : *stub.groups).stored();
}

std::string dxfNoveltySentence(const OdDbStore& store) {
  const OdDb::DwgVersion rules = rulesOf(store);
  if (rules >= OdDb::vAC15) return {};
  std::string first;
  int count = 0;
  odDbVisitAll(store, [&](const OdDbStub* stub) {
    if (!stub->groups || stub->isErased()) return;
    const bool isObject = (stub->flags & OdDbStub::kInObjects) != 0;
    if (isObject && rules < OdDb::vAC12 && isHousekeeping(stub->dxfName())) return;
    const std::string novelty = Form(*stub, *stub->groups).novelty();
    if (!novelty.empty() && ++count == 1) first = described(*stub, novelty);
  });
  if (count == 0) return {};
  return std::string("release ") + releaseName(rules) + " cannot store " + first +
         (count > 1 ? " and " + std::to_string(count - 1) + " more" : "");
}
