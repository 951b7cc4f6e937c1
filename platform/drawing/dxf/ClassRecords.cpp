#include "ClassRecords.h"
#include "DbStoreWalk.h"
#include "DxfForm.h"
#include <algorithm>

namespace {

constexpr std::string_view kOwnApplication = "ObjectDBX Classes";
constexpr DxfClassRecord kRecords[] = {
    {"ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault", kOwnApplication, 0, false},
    {"ACDBPLACEHOLDER", "AcDbPlaceHolder", kOwnApplication, 0, false},
    {"LAYOUT", "AcDbLayout", kOwnApplication, 0, false},
    {"WIPEOUT", "AcDbWipeout", "WipeOut", 127, true},
    {"WIPEOUTVARIABLES", "AcDbWipeoutVariables", "WipeOut", 0, false},
};

bool isMade(const OdDbStore& store, std::string_view record) {
  const auto isNamed = [record](const OdDbType& type) { return type.dxfName == record; };
  if (std::none_of(store.types.begin(), store.types.end(), isNamed)) return false;
  bool found = false;
  odDbVisitAll(store, [&](const OdDbStub* stub) {
    found = found || ((stub->flags & OdDbStub::kMade) && stub->dxfName() == record && !stub->isErased());
  });
  return found;
}

} // namespace

std::span<const DxfClassRecord> dxfClassRecords() { return kRecords; }

bool dxfDeclares(const OdDbStore& store, std::string_view section, std::string_view record) {
  constexpr int kRecordName = 1;
  const auto* parser = static_cast<const DxfParser*>(store.parser.get());
  if (!parser || section.empty()) return false;
  bool found = false;
  parser->visit(section, [&](const DxfRawGroup& group, const char*) {
    found = found || (group.code == kRecordName && group.value == record);
  });
  return found;
}

std::vector<DxfClassRecord> dxfMissingClasses(const OdDbStore& store, std::string_view section) {
  std::vector<DxfClassRecord> missing;
  if (store.version < OdDb::vAC12) return missing; // there is no such section
  for (const DxfClassRecord& known : kRecords)
    if (isMade(store, known.record) && !dxfDeclares(store, section, known.record)) missing.push_back(known);
  return missing;
}

void dxfWriteClass(OdDbDxfFiler& filer, const DxfClassRecord& record, OdDb::DwgVersion version) {
  filer.wrName(0, L"CLASS");
  filer.wrString(1, OdString::fromUtf8(record.record));
  filer.wrString(2, OdString::fromUtf8(record.className));
  filer.wrString(3, OdString::fromUtf8(record.application));
  filer.wrInt32(90, record.proxyFlags);
  if (version >= OdDb::vAC18) filer.wrInt32(91, 0);
  filer.wrInt8(280, 0);
  filer.wrInt8(281, record.isEntity ? 1 : 0);
}
