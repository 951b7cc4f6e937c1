#include "DbDictionaryWithDefault.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbDictionaryWithDefault, OdDbDictionary, "ACDBDICTIONARYWDFLT")

namespace {

constexpr int kDefaultCode = 340;
constexpr OdDbField kFields[] = {{kDefaultCode, OdDbFieldKind::kObjectId, true}};
const OdDbSubclass kSection{"AcDbDictionaryWithDefault", kFields};

} // namespace

OdDbSchema OdDbDictionaryWithDefault::schema() const {
  static const OdDbSubclass* const kSchema[] = {OdDbDictionary::schema().front(), &kSection};
  return kSchema;
}

OdDbObjectId OdDbDictionaryWithDefault::defaultId() const {
  const OdDbObjectId id = reference(kSection, kDefaultCode);
  return id.isErased() ? OdDbObjectId() : id;
}

void OdDbDictionaryWithDefault::setDefaultId(OdDbObjectId id) { setReference(kSection, kDefaultCode, id); }
