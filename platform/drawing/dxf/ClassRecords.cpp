#include "ClassRecords.h"
#include "DbStoreWalk.h"
#include "DxfForm.h"
#include <algorithm>
#include <set>

namespace {

constexpr std::string_view kOwnApplication = "ObjectDBX Classes";
constexpr DxfClassRecord kRecords[] = {
    {"ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault", kOwnApplication, 0, false},
    {"ACDBPLACEHOLDER", "AcDbPlaceHolder", kOwnApplication, 0, false},
    {"LAYOUT", "AcDbLayout", kOwnApplication, 0, false},
    {"WIPEOUT", "AcDbWipeout", "WipeOut", 127, true},
    {"WIPEOUTVARIABLES", "AcDbWipeoutVariables", "WipeOut", 0, false},
};

bool needsClass(const OdDbType& type) {
  return std::ranges::any_of(kRecords,
                             [&](const DxfClassRecord& known) { return type.dxfName == known.record; });
}

/// The kinds that need a class and of which objects were made that still exist.
std::set<std::string_view> kindsMade(const OdDbStore& store) {
  std::set<std::string_view> kinds;
  // The walk is spared where it can find nothing, for most drawings that is.
  if (std::ranges::none_of(store.types, [](const OdDbType& t) { return t.wasMade && needsClass(t); }))
    return kinds;
  odDbVisitAll(store, [&kinds](const OdDbStub* stub) {
    if ((stub->flags & OdDbStub::kMade) && !stub->isErased()) kinds.insert(stub->dxfName());
  });
  return kinds;
}

bool isDeclared(const OdDbStore& store, std::string_view record) {
  constexpr int kRecordName = 1;
  const auto* parser = static_cast<const DxfParser*>(store.parser.get());
  bool found = false;
  for (const OdDbSection& section : store.sections)
    if (parser && section.name == "CLASSES")
      parser->visit(section.raw, [&](const DxfRawGroup& group, const char*) {
        found = found || (group.code == kRecordName && group.value == record);
      });
  return found;
}

} // namespace

std::span<const DxfClassRecord> dxfClassRecords() { return kRecords; }

std::vector<DxfClassRecord> dxfMissingClasses(const OdDbStore& store) {
  std::vector<DxfClassRecord> missing;
  if (store.version < OdDb::vAC12) return missing; // there is no such section
  const std::set<std::string_view> made = kindsMade(store);
  for (const DxfClassRecord& known : kRecords)
    if (made.contains(known.record) && !isDeclared(store, known.record)) missing.push_back(known);
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
