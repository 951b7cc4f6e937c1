#include "RecordUpgrade.h"
#include "DbOldView.h"
#include "DbSchema.h"
#include "SubclassMarkers.h"
#include <algorithm>
#include <cmath>

namespace {

constexpr int kMarkerCode = 100;
constexpr int kBraceCode = 102;
constexpr int kFirstXDataCode = 1001;
constexpr double kDegrees = 180 / 3.14159265358979323846;

bool isMarker(const OdDbGroup& group) { return group.code == kMarkerCode; }

OdDbGroup* findGroup(OdDbGroupList& groups, int code) {
  for (OdDbGroup& group : groups.items) {
    if (group.code >= kFirstXDataCode) break;
    if (group.code == code && !group.isIdentity()) return &group;
  }
  return nullptr;
}

// --- identity ---

void addHandle(const OdDbStub& stub, OdDbGroupList& groups) {
  constexpr int kHandleCode = 5;
  constexpr int kDimensionStyleCode = 105;
  constexpr int kNameCode = 2;
  OdDbGroup handle = OdDbGroup::ofHandle(kHandleCode, 0);
  handle.flags = OdDbGroup::kOwnHandle;
  if (stub.dxfName() == "DIMSTYLE") handle.code = kDimensionStyleCode;
  std::erase_if(groups.items,
                [](const OdDbGroup& group) { return (group.flags & OdDbGroup::kOwnHandle) != 0; });
  // A table tells its name before anything else.
  const bool isTable = stub.dxfName() == "TABLE" && groups.size() > 0 && groups[0].code == kNameCode;
  groups.insert(isTable ? 1 : 0, handle);
}

void addOwner(OdDbGroupList& groups) {
  constexpr int kOwnerCode = 330;
  OdDbGroup owner = OdDbGroup::ofHandle(kOwnerCode, 0);
  owner.flags = OdDbGroup::kOwner;
  std::erase_if(groups.items, [](const OdDbGroup& group) { return (group.flags & OdDbGroup::kOwner) != 0; });
  const auto begin = groups.items.begin();
  const auto behindHandle =
      std::find_if(begin, groups.items.end(),
                   [](const OdDbGroup& group) { return (group.flags & OdDbGroup::kOwnHandle) != 0; }) +
      1;
  // Extension dictionary and reactors stand before the owner.
  auto at = behindHandle;
  for (auto next = at; next != groups.items.end() && next->code == kBraceCode; at = next) {
    next = std::find_if(next + 1, groups.items.end(),
                        [](const OdDbGroup& group) { return group.code == kBraceCode; });
    if (next != groups.items.end()) ++next;
  }
  groups.items.insert(at, owner);
}

// --- geometry and settings that changed ---

/// The Z coordinate that all points of an entity share goes to each of them.
void spreadElevation(OdDbGroupList& groups) {
  constexpr int kElevation = 38;
  const OdDbGroup* elevation = findGroup(groups, kElevation);
  if (!elevation) return;
  const double z = elevation->real;
  std::erase_if(groups.items, [](const OdDbGroup& group) { return group.code == kElevation; });
  for (int i = 0; i + 1 < groups.size() && groups[i].code < kFirstXDataCode; ++i) {
    const int code = groups[i].code;
    const bool isPlanar = code >= 10 && code <= 18 && groups[i + 1].code == code + 10 &&
                          (i + 2 == groups.size() || groups[i + 2].code != code + 20);
    if (isPlanar) groups.insert(i + 2, OdDbGroup::ofReal(code + 20, z));
  }
}

/// Each dash tells since R13 whether it is a shape.
void completeDashes(OdDbGroupList& groups) {
  constexpr int kDash = 49;
  constexpr int kShape = 74;
  for (int i = 0; i < groups.size(); ++i)
    if (groups[i].code == kDash && (i + 1 == groups.size() || groups[i + 1].code != kShape))
      groups.insert(i + 1, OdDbGroup::ofInteger(kShape, 0));
}

/// A block that belongs to its dimension alone is told by a flag.
void ownDimensionBlock(OdDbGroupList& groups) {
  constexpr int kOwnsBlock = 32;
  OdDbGroup* flags = findGroup(groups, 70);
  if (flags && findGroup(groups, 2)) flags->integer |= kOwnsBlock;
}

/// The arrow block of a dimension style by the name that old releases store; null when there is none.
OdDbStub* arrowBlock(OdDbStore& store, const OdString& name) {
  if (name.isEmpty()) return nullptr;
  OdDbStub* table = store.table("BLOCK_RECORD");
  OdDbStub* block = store.findRecord(table, name.str());
  return block ? block : store.findRecord(table, (OdString(L"_") + name).str());
}

int insertionPoint(const OdDbGroupList& groups) {
  return static_cast<int>(std::find_if(groups.items.begin(), groups.items.end(),
                                       [](const OdDbGroup& group) { return group.code >= kFirstXDataCode; }) -
                          groups.items.begin());
}

void addGroup(OdDbGroupList& groups, const OdDbGroup& group) { groups.insert(insertionPoint(groups), group); }

void upgradeDimensionStyle(OdDbStore& store, OdDbGroupList& groups) {
  constexpr int kFirstArrowName = 5; // then 6 and 7
  constexpr int kFirstArrowBlock = 342;
  constexpr int kTextStyle = 340;
  for (int i = groups.size() - 1; i >= 0; --i) {
    const OdDbGroup group = groups[i];
    if (group.isIdentity() || group.code < kFirstArrowName || group.code > kFirstArrowName + 2) continue;
    const OdString name =
        group.kind == OdDbGroupKind::kHandle ? OdDbHandle(group.handle).ascii() : groups.text(group);
    groups.erase(i, i + 1);
    if (const OdDbStub* block = arrowBlock(store, name))
      addGroup(groups, OdDbGroup::ofHandle(kFirstArrowBlock + group.code - kFirstArrowName, block->handle));
  }
  OdDbStub* style = store.findRecord(store.table("STYLE"), L"Standard");
  if (style && !findGroup(groups, kTextStyle))
    addGroup(groups, OdDbGroup::ofHandle(kTextStyle, style->handle));
  dxfUpgradeDimensionSettings(groups);
}

/// The table of dimension styles counts its records in a section of its own.
void countDimensionStyles(const OdDbStub& table, OdDbGroupList& groups) {
  if (odDbGroups::find(groups, OdDbSubclass{"AcDbDimStyleTable", {}}, 71) >= 0) return;
  OdInt64 count = 0;
  for (const OdDbStub* style = table.children ? table.children->first : nullptr; style; style = style->next)
    count += style->isErased() ? 0 : 1;
  addGroup(groups, OdDbGroup::ofBytes(kMarkerCode, "AcDbDimStyleTable"));
  addGroup(groups, OdDbGroup::ofInteger(71, count));
}

// --- viewports ---

/// The groups of a view in the order in which they are stored.
class ViewGroups {
public:
  explicit ViewGroups(OdDbGroupList& groups) : m_groups(groups) {}
  void real(int code, double value) { addGroup(m_groups, OdDbGroup::ofReal(code, value)); }
  void integer(int code, OdInt64 value) { addGroup(m_groups, OdDbGroup::ofInteger(code, value)); }
  void handle(int code, OdUInt64 value) { addGroup(m_groups, OdDbGroup::ofHandle(code, value)); }
  void point(int code, const OdGePoint2d& point) {
    real(code, point.x);
    real(code + 10, point.y);
  }
  void point(int code, const OdGePoint3d& place) {
    point(code, place.convert2d());
    real(code + 20, place.z);
  }

private:
  OdDbGroupList& m_groups;
};

void upgradeView(OdDbStore& store, OdDbGroupList& groups) {
  constexpr int kViewHeight = 45;
  const std::optional<OdDbOldView> old = odDbOldView(groups);
  if (findGroup(groups, kViewHeight) || !old) return;
  ViewGroups view(groups);
  view.point(12, old->center);
  view.point(13, old->snapBase);
  view.point(14, old->snapSpacing);
  view.point(15, old->gridSpacing);
  view.point(16, OdGePoint3d::kOrigin + old->direction);
  view.point(17, old->target);
  view.real(42, old->lens);
  view.real(43, old->frontClip);
  view.real(44, old->backClip);
  view.real(kViewHeight, old->height);
  view.real(50, old->snapAngle * kDegrees);
  view.real(51, old->twist * kDegrees);
  view.integer(72, old->circleZoom);
  for (const OdString& name : old->frozenLayers)
    if (const OdDbStub* layer = store.findRecord(store.table("LAYER"), name.str()))
      view.handle(331, layer->handle);
  view.integer(90, old->flags);
}

} // namespace

void dxfUpgradeDimensionSettings(OdDbGroupList& groups) {
  constexpr int kUnits = 270, kFit = 287, kNewUnits = 277, kFraction = 276, kNewFit = 289, kMoving = 279;
  constexpr OdInt64 kArchitectural = 4, kStackedKinds = 2, kBestFit = 3, kNotStacked = 2;
  if (OdDbGroup* units = findGroup(groups, kUnits)) {
    units->code = kNewUnits;
    if (units->integer >= kArchitectural + kStackedKinds) {
      units->integer -= kStackedKinds;
      addGroup(groups, OdDbGroup::ofInteger(kFraction, kNotStacked));
    }
  }
  if (OdDbGroup* fit = findGroup(groups, kFit)) {
    const OdInt64 moving = fit->integer - kBestFit; // 1: the text with a leader, 2: without
    fit->code = kNewFit;
    fit->integer = std::clamp<OdInt64>(fit->integer, 0, kBestFit);
    if (moving > 0) addGroup(groups, OdDbGroup::ofInteger(kMoving, std::min<OdInt64>(moving, 2)));
  }
}

void dxfUpgradeRecord(OdDbStub* stub) {
  OdDbStore& store = *stub->store;
  OdDbStubState state = stub->state();
  state.groups.reset(new OdDbGroupList(*stub->content()));
  state.raw = nullptr;
  state.rawSize = 0;
  OdDbGroupList& groups = *state.groups;
  addHandle(*stub, groups);
  addOwner(groups);
  const std::string& name = stub->dxfName();
  if (std::none_of(groups.items.begin(), groups.items.end(), isMarker) && (stub->flags & OdDbStub::kEntity))
    spreadElevation(groups);
  dxfAddMarkers(*stub, groups);
  if (name == "LTYPE") completeDashes(groups);
  if (name == "DIMENSION") ownDimensionBlock(groups);
  if (name == "DIMSTYLE") upgradeDimensionStyle(store, groups);
  if (name == "VIEWPORT") upgradeView(store, groups);
  if (stub == store.table("DIMSTYLE")) countDimensionStyles(*stub, groups);
  // Lines in space were a kind of their own before R11.
  if (name == "3DLINE") state.type = store.typeIndex("LINE", true);
  stub->exchange(state);
}
