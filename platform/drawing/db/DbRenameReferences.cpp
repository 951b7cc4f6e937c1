#include "DbRenameReferences.h"
#include "DbNameUses.h"
#include "DbObject.h"
#include "DbStoreWalk.h"
#include <algorithm>
#include <string>
#include <vector>

namespace {

constexpr int kMarkerCode = 100;

/// The uses of one table's names, and the name that is looked for.
class Renamer {
public:
  Renamer(OdDbStub* table, const OdString& from) : m_folded(odFoldCase(from.str())) {
    for (const auto& [name, stub] : table->store->tables)
      if (stub == table) m_table = name;
    for (const OdDbNameUse& use : kOdDbNameUses)
      if (use.table == m_table) m_uses.push_back(&use);
  }

  const std::string& tableName() const { return m_table; }

  bool isName(const OdDbGroupList& groups, const OdDbGroup& group) const {
    return group.isText() && odFoldCase(groups.text(group).str()) == m_folded;
  }

  /// Indexes of the groups that hold the name.
  std::vector<int> uses(const OdDbStub* stub) const {
    std::vector<int> found;
    if (!isCandidate(stub)) return found;
    const OdDbGroupListPtr groups = stub->content();
    std::string_view marker = (stub->flags & OdDbStub::kEntity) ? "" : "-";
    for (int i = 0; i < groups->size(); ++i) {
      const OdDbGroup& group = (*groups)[i];
      if (group.code == kMarkerCode)
        marker = group.bytes();
      else if (isUse(stub, group.code, marker) && isName(*groups, group))
        found.push_back(i);
    }
    return found;
  }

private:
  bool isCandidate(const OdDbStub* stub) const {
    return std::any_of(m_uses.begin(), m_uses.end(),
                       [stub](const OdDbNameUse* use) { return use->isIn(stub->dxfName()); });
  }
  bool isUse(const OdDbStub* stub, int code, std::string_view marker) const {
    return std::any_of(m_uses.begin(), m_uses.end(), [&](const OdDbNameUse* use) {
      return use->isIn(stub->dxfName()) && use->isAt(code, marker);
    });
  }

  std::wstring m_folded;
  std::string m_table;
  std::vector<const OdDbNameUse*> m_uses;
};

void renameInObject(OdDbStub* stub, const std::vector<int>& uses, const OdString& to) {
  const bool wasWritable = stub->live && stub->live->isWriteEnabled();
  const OdDbObjectPtr object = OdDbObjectId(stub).openObject(OdDb::kForWrite, true);
  OdDbGroupList& groups = object->mutableGroups();
  for (const int index : uses) groups[index] = groups.makeText(groups[index].code, to);
  object->groupsReplaced();
  if (!wasWritable) object->downgradeOpen();
}

void renameInHeader(OdDbStore& store, const Renamer& renamer, const OdString& to) {
  for (const OdDbHeaderNameUse& use : kOdDbHeaderNameUses) {
    if (use.table != renamer.tableName()) continue;
    const OdDbHeaderVariable* variable = store.headerVariable(use.variable);
    if (!variable || variable->groups->items.empty()) continue;
    const OdDbGroupListPtr& old = variable->groups;
    if (!renamer.isName(*old, (*old)[0])) continue;
    OdDbGroupListPtr renamed(new OdDbGroupList(*old));
    (*renamed)[0] = renamed->makeText((*old)[0].code, to);
    store.setHeaderVariable(std::string(use.variable), renamed);
  }
}

} // namespace

void odDbRenameReferences(OdDbStub* table, const OdString& from, const OdString& to) {
  const Renamer renamer(table, from);
  OdDbStore& store = *table->store;
  std::vector<std::pair<OdDbStub*, std::vector<int>>> changes;
  odDbVisitAll(store, [&](OdDbStub* stub) {
    if (std::vector<int> uses = renamer.uses(stub); !uses.empty())
      changes.emplace_back(stub, std::move(uses));
  });
  for (const auto& [stub, uses] : changes) renameInObject(stub, uses, to);
  renameInHeader(store, renamer, to);
}
