#include "DbWipeoutVariables.h"
#include "DbDatabase.h"
#include "DbDictionary.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbWipeoutVariables, OdDbObject, "WIPEOUTVARIABLES")

namespace {
enum Code { kFrame = 70 };
enum Frame { kHidden = 0, kShown = 1, kOnScreensOnly = 2 };
constexpr OdDbField kFields[] = {{kFrame, OdDbFieldKind::kInt16, true, kShown}};
const OdDbSubclass kSection{"AcDbWipeoutVariables", kFields};
constexpr wchar_t kEntry[] = L"ACAD_WIPEOUT_VARS";
} // namespace

OdDbSchema OdDbWipeoutVariables::schema() const {
  static const OdDbSubclass* const sections[] = {&kSection};
  return sections;
}

OdDbWipeoutVariablesPtr OdDbWipeoutVariables::openWipeoutVariables(OdDbDatabase* database,
                                                                   OdDb::OpenMode mode,
                                                                   bool createIfNotFound) {
  // Drawings of old releases have no dictionaries.
  if (createIfNotFound && database->getNamedObjectsDictionaryId().isNull())
    database->addOdDbObject(OdDbDictionary::createObject(), OdDbObjectId());
  const auto names = OdDbDictionary::cast(database->getNamedObjectsDictionaryId().openObject());
  if (names.isNull()) return {};
  if (OdDbWipeoutVariablesPtr known = cast(names->getAt(kEntry, mode)); !known.isNull()) return known;
  if (!createIfNotFound) return {};
  names->upgradeOpen();
  OdDbWipeoutVariablesPtr made = createObject();
  made->addPersistentReactor(names->objectId());
  names->setAt(kEntry, made);
  return made;
}

bool OdDbWipeoutVariables::showFrame() const { return integer(kSection, kFrame) != kHidden; }
bool OdDbWipeoutVariables::plotsFrame() const { return integer(kSection, kFrame) == kShown; }
void OdDbWipeoutVariables::setShowFrame(bool show) {
  if (show != showFrame()) setInteger(kSection, kFrame, show ? kShown : kHidden);
}
