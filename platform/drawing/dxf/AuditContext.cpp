#include "AuditContext.h"
#include "DbObject.h"
#include "DxfText.h"
#include <algorithm>

void AuditContext::error(const char* id, const OdDbStub* stub, const std::string& fault) {
  m_findings.add(OdDbDxfFinding::kError, id, 0, stub ? stub->handle : 0, fault);
}

void AuditContext::repair(const char* id, const OdDbStub* stub, const std::string& fault,
                          const std::string& remedy) {
  m_findings.add(OdDbDxfFinding::kRepair, id, 0, stub ? stub->handle : 0,
                 tellsRemedies ? fault + ": " + remedy : fault);
}

void AuditContext::apply(OdDbStub* stub, AuditEdits& edits) const {
  if (!repairs || edits.edits.empty()) return;
  const bool wasWritable = stub->live && stub->live->isWriteEnabled();
  const OdDbObjectPtr object = OdDbObjectId(stub).openObject(OdDb::kForWrite, true);
  OdDbGroupList& groups = object->mutableGroups();
  std::stable_sort(edits.edits.begin(), edits.edits.end(), [](const auto& a, const auto& b) {
    return std::pair(a.first, a.last) < std::pair(b.first, b.last);
  });
  // Texts first and in their place, because the list sweeps those that none of its groups holds.
  for (const AuditEdits::Edit& edit : edits.edits)
    if (!edit.text.isEmpty()) groups[edit.first] = groups.makeText(groups[edit.first].code, edit.text);
  std::vector<OdDbGroup> result;
  result.reserve(groups.items.size());
  // Where damaged groups had two changes made of one place, the first one counts.
  auto at = groups.items.begin();
  for (const AuditEdits::Edit& edit : edits.edits) {
    if (!edit.text.isEmpty() || at > groups.items.begin() + edit.first) continue;
    result.insert(result.end(), at, groups.items.begin() + edit.first);
    result.insert(result.end(), edit.groups.begin(), edit.groups.end());
    at = groups.items.begin() + edit.last;
  }
  result.insert(result.end(), at, groups.items.end());
  groups.items.swap(result);
  object->groupsReplaced();
  if (!wasWritable) object->downgradeOpen();
}

std::string AuditContext::describe(const OdDbStub* stub) {
  constexpr const char* kUsual = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";
  const std::string& name = stub->dxfName();
  const bool isUsual = !name.empty() && name.find_first_not_of(kUsual) == std::string::npos;
  return (isUsual ? name : dxfQuoted(name)) + " " + OdDbHandle(stub->handle).ascii().toUtf8();
}
