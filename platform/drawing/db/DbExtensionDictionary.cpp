// The dictionary that any object may own for the data of applications. The object's groups hold it between
// braces.
#include "DbBraces.h"
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbStore.h"

namespace {
constexpr std::string_view kOpening = "{ACAD_XDICTIONARY";
constexpr int kDictionaryCode = 360;
} // namespace

OdDbObjectId OdDbObject::extensionDictionary() const {
  const auto [first, last] = odDbGroups::braces(groups(), kOpening);
  if (first < 0 || first == last || !m_stub || groups()[first].kind != OdDbGroupKind::kHandle) return {};
  return OdDbObjectId(m_stub->store->find(groups()[first].handle));
}

OdDbObjectId OdDbObject::createExtensionDictionary() {
  assertWriteEnabled();
  if (!m_stub) throw OdError(eNotInDatabase);
  if (const OdDbObjectId id = extensionDictionary(); !id.isNull()) {
    if (id.isErased()) id.safeOpenObject(OdDb::kForWrite, true)->erase(false);
    return id;
  }
  const OdDbDictionaryPtr dictionary = OdDbDictionary::createObject();
  dictionary->setTreatElementsAsHard(true);
  const OdDbObjectId id = database()->addOdDbObject(dictionary, objectId());
  OdDbGroupList& list = mutableGroups();
  odDbBraces::remove(list, kOpening);
  odDbBraces::add(list, kOpening, OdDbGroup::ofHandle(kDictionaryCode, id.getHandle()), odDbBraces::kFirst);
  return id;
}

bool OdDbObject::releaseExtensionDictionary() {
  assertWriteEnabled();
  const OdDbDictionaryPtr dictionary =
      OdDbDictionary::cast(extensionDictionary().openObject(OdDb::kForWrite));
  if (dictionary.isNull() || dictionary->numEntries() > 0) return false;
  dictionary->erase();
  odDbBraces::remove(mutableGroups(), kOpening);
  return true;
}
