#include "AuditObjects.h"
#include "DbDictionary.h"
#include "DbSchema.h"
#include <cmath>

namespace {

constexpr int kEntryNameCode = 3;
constexpr int kFollowsCode = 66;
constexpr int kNameCode = 2;
constexpr std::string_view kExtension = "{ACAD_XDICTIONARY";
constexpr std::string_view kReactors = "{ACAD_REACTORS";

const OdDbSubclass kReferenceSection{"AcDbBlockReference", {}, "AcDbMInsertBlock"};

bool isDictionary(const OdDbStub* stub) {
  static const OdRxClass* dictionaryClass = odrxGetClassByName(L"OdDbDictionary");
  return stub->store->types[stub->type].cls->isDerivedFrom(dictionaryClass);
}

} // namespace

bool AuditObjects::leadsNowhere(const OdDbGroup& group) const {
  return group.kind == OdDbGroupKind::kHandle && !m_context.store.find(group.handle);
}

void AuditObjects::checkObject(const OdDbStub* stub, const OdDbGroupList& groups, AuditEdits& edits) {
  checkNumbers(stub, groups, edits);
  checkBraces(stub, groups, edits);
  if (isDictionary(stub)) checkEntries(stub, groups, edits);
  if (stub->dxfName() == "INSERT") checkAttributesFollow(stub, groups, edits);
}

void AuditObjects::checkNumbers(const OdDbStub* stub, const OdDbGroupList& groups, AuditEdits& edits) {
  constexpr double kAbsurd = 1e100; // far beyond the 1e20 that stands for "no extents"
  const int size = groups.size();
  for (int i = 0; i < size; ++i) {
    const OdDbGroup& group = groups[i];
    if (group.kind != OdDbGroupKind::kReal || std::fabs(group.real) < kAbsurd) continue;
    const std::string fault = "group " + std::to_string(group.code) + " of " + AuditContext::describe(stub);
    if (std::isfinite(group.real)) {
      if (!(stub->flags & OdDbStub::kEntity)) continue; // objects mark "none" by the largest number
      m_context.error("absurd-number", stub, fault + " is too large for any drawing");
    } else {
      m_context.repair("number-not-finite", stub, fault + " is no finite number", "it becomes 0");
      edits.replace(i, OdDbGroup::ofReal(group.code, 0));
    }
  }
}

void AuditObjects::checkBraces(const OdDbStub* stub, const OdDbGroupList& groups, AuditEdits& edits) {
  for (const std::string_view opening : {kExtension, kReactors}) {
    const odDbGroups::Range inside = odDbGroups::braces(groups, opening);
    if (inside.first < 0) continue;
    const bool isExtension = opening == kExtension;
    int kept = 0;
    AuditEdits removals;
    for (int i = inside.first; i < inside.last; ++i) {
      if (!leadsNowhere(groups[i])) {
        ++kept;
        continue;
      }
      const std::string handle = OdDbHandle(groups[i].handle).ascii().toUtf8();
      m_context.repair(isExtension ? "missing-extension-dictionary" : "missing-reactor", stub,
                       std::string(isExtension ? "the extension dictionary " : "the reactor ") + handle +
                           " of " + AuditContext::describe(stub) + " does not exist",
                       "it is taken out");
      removals.remove(i, i + 1);
    }
    if (removals.edits.empty()) continue;
    const bool isClosed = inside.last < groups.size() && groups[inside.last].bytes().starts_with('}');
    if (kept > 0)
      edits.edits.insert(edits.edits.end(), removals.edits.begin(), removals.edits.end());
    else
      edits.remove(inside.first - 1, inside.last + (isClosed ? 1 : 0));
  }
}

void AuditObjects::checkEntries(const OdDbStub* stub, const OdDbGroupList& groups, AuditEdits& edits) {
  for (int i = 0; i + 1 < groups.size(); ++i) {
    if (groups[i].code != kEntryNameCode || !odDbIsReference(groups[i + 1].code) ||
        !leadsNowhere(groups[i + 1]))
      continue;
    m_context.repair("missing-entry", stub,
                     "the entry " + AuditContext::quoted(groups.text(i)) + " of " +
                         AuditContext::describe(stub) + " leads to nothing",
                     "it is taken out");
    edits.remove(i, i + 2);
    ++i;
  }
}

void AuditObjects::checkAttributesFollow(const OdDbStub* stub, const OdDbGroupList& groups,
                                         AuditEdits& edits) {
  bool hasAttributes = false;
  const OdDbStub* first = stub->children ? stub->children->first : nullptr;
  for (const OdDbStub* member = first; member && !hasAttributes; member = member->next)
    hasAttributes = member->dxfName() == "ATTRIB" && !member->isErased();
  const int flag = odDbGroups::find(groups, kReferenceSection, kFollowsCode);
  const int name = odDbGroups::find(groups, kReferenceSection, kNameCode);
  if (name < 0) return;
  const bool tells = flag >= 0 && groups[flag].integer != 0;
  const std::string described = AuditContext::describe(stub);
  if (tells && !first) {
    m_context.repair("attributes-flag", stub, described + " says that attributes follow, but none does",
                     "it says so no longer");
    edits.remove(flag, flag + 1);
  } else if (hasAttributes && !tells) {
    m_context.repair("attributes-flag", stub, described + " does not say that attributes follow",
                     "it says so");
    if (flag >= 0) edits.remove(flag, flag + 1);
    edits.insert(name, OdDbGroup::ofInteger(kFollowsCode, 1));
  }
}
