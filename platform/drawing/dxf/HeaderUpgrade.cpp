#include "HeaderUpgrade.h"
#include "RecordUpgrade.h"
#include <algorithm>

namespace {

/// Variables that release 2000 no longer stores in drawings.
constexpr std::string_view kGone[] = {
    "$ACADMAINTVER", "$ATTDIA",    "$ATTREQ",     "$AXISMODE", "$AXISUNIT", "$BLIPMODE",    "$COORDS",
    "$DELOBJ",       "$DRAGMODE",  "$FASTZOOM",   "$FLATLAND", "$GRIDMODE", "$GRIDUNIT",    "$HANDLING",
    "$OSMODE",       "$PICKSTYLE", "$SAVEIMAGES", "$SNAPANG",  "$SNAPBASE", "$SNAPISOPAIR", "$SNAPMODE",
    "$SNAPSTYLE",    "$SNAPUNIT",  "$VIEWCTR",    "$VIEWDIR",  "$VIEWSIZE",
};

/// Variables whose value in a blank drawing says something about the drawing: old ones say nothing there.
struct Neutral {
  std::string_view name;
  OdInt64 value;
};
constexpr Neutral kNeutral[] = {{"$INSUNITS", 0}, {"$MEASUREMENT", 0}};

struct NewName {
  std::string_view from;
  const char* to;
};
constexpr NewName kRenamed[] = {{"$UCSXORI", "$UCSXDIR"}, {"$UCSYORI", "$UCSYDIR"}};

/// A setting of dimensions: its variable, and its group in dimension styles.
struct DimensionSetting {
  const char* name;
  int code;
};
constexpr DimensionSetting kOldSettings[] = {{"$DIMUNIT", 270}, {"$DIMFIT", 287}};
constexpr DimensionSetting kNewSettings[] = {
    {"$DIMLUNIT", 277}, {"$DIMFRAC", 276}, {"$DIMATFIT", 289}, {"$DIMTMOVE", 279}};

/// Through the groups that dimension styles have for the same settings.
void upgradeDimensions(OdDbStore& store) {
  constexpr int kValueCode = 70;
  for (const DimensionSetting& old : kOldSettings) {
    const OdDbHeaderVariable* variable = store.headerVariable(old.name);
    if (!variable || variable->groups->size() == 0) continue;
    OdDbGroupList style;
    style.append((*variable->groups)[0]);
    style[0].code = static_cast<OdInt16>(old.code);
    dxfUpgradeDimensionSettings(style);
    store.storeHeaderVariable(old.name, {});
    for (const DimensionSetting& setting : kNewSettings)
      for (const OdDbGroup& group : style.items) {
        if (group.code != setting.code) continue;
        OdDbGroupListPtr value(new OdDbGroupList);
        value->append(OdDbGroup::ofInteger(kValueCode, group.integer));
        store.storeHeaderVariable(setting.name, value);
      }
  }
}

} // namespace

void dxfUpgradeHeader(OdDbStore& store, const OdDbStore& blank) {
  for (const NewName& name : kRenamed)
    if (OdDbHeaderVariable* variable = store.headerVariable(name.from)) variable->name = name.to;
  upgradeDimensions(store);
  std::erase_if(store.header, [](const OdDbHeaderVariable& variable) {
    return std::find(std::begin(kGone), std::end(kGone), variable.name) != std::end(kGone);
  });
  for (const OdDbHeaderVariable& variable : blank.header) {
    if (store.headerVariable(variable.name)) continue;
    OdDbGroupListPtr groups(new OdDbGroupList(*variable.groups));
    groups->own();
    const auto* neutral = std::find_if(std::begin(kNeutral), std::end(kNeutral),
                                       [&](const Neutral& n) { return n.name == variable.name; });
    if (neutral != std::end(kNeutral)) (*groups)[0].integer = neutral->value;
    store.header.push_back({variable.name, groups});
  }
  OdDbGroupListPtr release(new OdDbGroupList);
  release->append(release->makeBytes(1, "AC1015"));
  store.storeHeaderVariable("$ACADVER", {});
  store.header.insert(store.header.begin(), {"$ACADVER", release});
}
