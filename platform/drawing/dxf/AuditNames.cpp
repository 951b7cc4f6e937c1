#include "AuditNames.h"
#include "DbBlockBegin.h"
#include "DbSymbolTable.h"
#include "DxfRecord.h"
#include <algorithm>

namespace {

constexpr int kNameCode = 2;
constexpr int kFlagsCode = 70;
constexpr int kMarkerCode = 100;
constexpr int kEmbeddedCode = 101;
constexpr int kFirstXDataCode = 1000;
constexpr int kDependentBit = 16;
constexpr int kShapeFileBit = 1;
constexpr int kLongestName = 255;

/// The tables whose names follow the rules of releases from 2000 on.
constexpr std::string_view kRuledTables[] = {"LAYER",        "LTYPE", "STYLE", "DIMSTYLE",
                                             "BLOCK_RECORD", "UCS",   "VIEW"};

bool isRuled(std::string_view table) {
  return std::find(std::begin(kRuledTables), std::end(kRuledTables), table) != std::end(kRuledTables);
}

int flagsOf(const OdDbGroupList& groups) {
  for (const OdDbGroup& group : groups.items)
    if (group.code == kFlagsCode && group.kind == OdDbGroupKind::kInteger)
      return static_cast<int>(group.integer);
  return 0;
}

/// The name with every character replaced that no drawing may hold in names.
OdString allowedName(const OdString& name, int flags) {
  constexpr std::wstring_view kForbidden = L"<>/\\\":;?*|,=`";
  std::wstring text(name.str().substr(0, kLongestName));
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isMark = (i == 0 && text[i] == L'*') || (text[i] == L'|' && (flags & kDependentBit));
    if (!isMark && (text[i] < L' ' || kForbidden.find(text[i]) != std::wstring_view::npos)) text[i] = L'_';
  }
  return OdString(std::move(text));
}

/// Names that every drawing knows without a record.
bool isBuiltIn(std::string_view table, const std::wstring& folded) {
  return table == "LTYPE" && (folded == L"bylayer" || folded == L"byblock");
}

} // namespace

AuditNames::AuditNames(AuditContext& context) : m_context(context) {
  for (const auto& [name, stub] : context.store.tables) {
    Table& table = m_tables.emplace_back();
    table.name = name;
    table.stub = stub;
  }
}

AuditNames::Table* AuditNames::table(std::string_view name) {
  const auto found = std::find_if(m_tables.begin(), m_tables.end(),
                                  [name](const Table& table) { return table.name == name; });
  return found == m_tables.end() ? nullptr : &*found;
}

// --- records ---

void AuditNames::checkRecords() {
  for (Table& table : m_tables) {
    if (!isRuled(table.name) || !table.stub->children) continue;
    std::unordered_set<std::wstring> names;
    for (OdDbStub* record = table.stub->children->first; record; record = record->next)
      if (!record->isErased()) checkRecord(table, record, names);
  }
}

void AuditNames::checkRecord(Table& table, OdDbStub* record, std::unordered_set<std::wstring>& names) {
  const OdDbGroupListPtr groups = record->content();
  const OdString name = OdDbStore::recordName(*groups);
  const int flags = flagsOf(*groups);
  const std::string described = AuditContext::describe(record);
  if (name.isEmpty()) {
    if (table.name == "STYLE" && (flags & kShapeFileBit)) return; // a file of shapes
    const OdString made = freeName(table, L"Unnamed", names);
    m_context.repair("name-missing", record, described + " has no name",
                     "it becomes " + AuditContext::quoted(made));
    rename(table, record, *groups, made);
    names.insert(odFoldCase(made.str()));
    return;
  }
  OdString allowed = m_context.store.version >= OdDb::vAC15 ? allowedName(name, flags) : name;
  const std::wstring folded = odFoldCase(name.str());
  if (allowed != name) {
    if (m_context.store.findRecord(table.stub, allowed.str())) allowed = freeName(table, allowed, names);
    m_context.repair("name-not-allowed", record,
                     described + " has the name " + AuditContext::quoted(name) +
                         ", which no drawing may hold",
                     "it becomes " + AuditContext::quoted(allowed));
    if (!names.contains(folded)) table.renamed.emplace(folded, allowed);
  } else if (names.contains(folded)) {
    allowed = freeName(table, name, names);
    m_context.repair("duplicate-name", record,
                     described + " has the name " + AuditContext::quoted(name) +
                         " of another record of its table",
                     "it becomes " + AuditContext::quoted(allowed));
  }
  if (allowed != name) rename(table, record, *groups, allowed);
  names.insert(odFoldCase(allowed.str()));
}

OdString AuditNames::freeName(Table& table, const OdString& like,
                              const std::unordered_set<std::wstring>& names) {
  int& number = table.lastNumbers[like.str()];
  for (;;) {
    OdString name = like + L"_" + OdString(std::to_wstring(++number + 1));
    if (!names.contains(odFoldCase(name.str())) && !m_context.store.findRecord(table.stub, name.str()))
      return name;
  }
}

void AuditNames::rename(Table& table, OdDbStub* record, const OdDbGroupList& groups, const OdString& name) {
  if (!m_context.repairs) return;
  AuditEdits edits;
  const auto isName = [](const OdDbGroup& group) { return group.code == kNameCode; };
  const auto at = std::find_if(groups.items.begin(), groups.items.end(), isName);
  const auto index = static_cast<int>(at - groups.items.begin());
  if (at == groups.items.end()) {
    edits.insert(index, OdDbGroup::ofBytes(kNameCode, {}));
    m_context.apply(record, edits);
    edits.edits.clear();
  }
  edits.replaceText(index, name);
  m_context.apply(record, edits);
  m_context.store.refreshRecordName(record);
  if (table.name != "BLOCK_RECORD") return;
  const auto ends = m_context.store.blockEnds.find(record);
  if (ends == m_context.store.blockEnds.end() || !ends->second.begin) return;
  const OdDbBlockBeginPtr begin =
      OdDbBlockBegin::cast(OdDbObjectId(ends->second.begin).openObject(OdDb::kForWrite));
  if (!begin.isNull()) begin->setBlockName(name);
}

// --- uses ---

const std::vector<std::pair<const OdDbNameUse*, AuditNames::Table*>>&
AuditNames::usesOf(const OdDbStub* stub) {
  const auto [known, isNew] = m_uses.try_emplace(stub->type);
  if (!isNew || stub->dxfName() == "XRECORD") return known->second; // data of applications
  for (const OdDbNameUse& use : kOdDbNameUses) {
    // Arrow blocks of dimension styles may be those that every program knows.
    if (use.table == "BLOCK_RECORD" && use.code != kNameCode) continue;
    const bool isForEntities = use.record.empty() && use.code < kFirstXDataCode;
    if (!use.isIn(stub->dxfName()) || (isForEntities && !(stub->flags & OdDbStub::kEntity))) continue;
    if (Table* named = table(use.table)) known->second.emplace_back(&use, named);
  }
  return known->second;
}

void AuditNames::checkObject(const OdDbStub* stub, const OdDbGroupList& groups, AuditEdits& edits) {
  const auto& uses = usesOf(stub);
  if (uses.empty()) return;
  std::string_view marker = (stub->flags & OdDbStub::kEntity) ? "" : "-";
  bool isEmbedded = false;
  const int size = groups.size();
  for (int i = 0; i < size; ++i) {
    const OdDbGroup& group = groups[i];
    if (group.code == kMarkerCode) marker = group.bytes();
    if (group.code == kEmbeddedCode) isEmbedded = true;
    if (group.code >= kFirstXDataCode) isEmbedded = false;
    if (isEmbedded || !group.isText()) continue;
    for (const auto& [use, named] : uses)
      if (use->isAt(group.code, marker)) checkUse(*named, stub, groups, i, edits);
  }
}

void AuditNames::checkUse(Table& table, const OdDbStub* stub, const OdDbGroupList& groups, int index,
                          AuditEdits& edits) {
  const OdDbGroup& group = groups[index];
  const bool isStored = (group.flags & OdDbGroup::kOwned) == 0;
  if (group.size == 0) return;
  const std::string key(group.bytes());
  if (isStored)
    if (table.known.contains(key)) return;
  const OdString name = groups.text(group);
  const std::wstring folded = odFoldCase(name.str());
  const bool isKnown = isBuiltIn(table.name, folded) || m_context.store.findRecord(table.stub, name.str());
  const auto renamed = table.renamed.find(folded);
  if (renamed != table.renamed.end()) {
    edits.replaceText(index, renamed->second);
  } else if (!isKnown) {
    const OdString allowed = makes(table) && isRuled(table.name) ? allowedName(name, 0) : name;
    if (allowed != name) {
      table.renamed.emplace(folded, allowed);
      edits.replaceText(index, allowed);
    }
    if (allowed == name || !m_context.store.findRecord(table.stub, allowed.str())) miss(table, stub, allowed);
  } else if (isStored) {
    table.known.insert(key);
  }
}

/// Whether a record of this table is made where one is missing. In old releases, names need none.
bool AuditNames::makes(const Table& table) const {
  constexpr std::string_view kMade[] = {"LAYER", "LTYPE", "STYLE", "DIMSTYLE", "APPID"};
  return dxfStoresBlockRecords(m_context.store.version) &&
         std::find(std::begin(kMade), std::end(kMade), table.name) != std::end(kMade);
}

void AuditNames::miss(Table& table, const OdDbStub* stub, const OdString& name) {
  const std::string quoted = AuditContext::quoted(name);
  const std::string by = stub ? AuditContext::describe(stub) : "the header";
  if (table.name == "BLOCK_RECORD") {
    m_context.error("missing-block", stub, by + " refers to the block " + quoted + ", which does not exist");
  } else if (makes(table) && table.missed.insert(odFoldCase(name.str())).second) {
    const std::string id = table.name == "LAYER"      ? "missing-layer"
                           : table.name == "LTYPE"    ? "missing-linetype"
                           : table.name == "STYLE"    ? "missing-text-style"
                           : table.name == "DIMSTYLE" ? "missing-dimension-style"
                                                      : "missing-application";
    m_context.repair(id.c_str(), stub,
                     by + " names the record " + quoted + " of the table " + table.name +
                         ", which does not exist",
                     "the record is made");
    table.missing.push_back(name);
    // What is made of a layer names this linetype.
    Table* linetypes = table.name == "LAYER" ? this->table("LTYPE") : nullptr;
    if (linetypes && !m_context.store.findRecord(linetypes->stub, L"Continuous"))
      miss(*linetypes, nullptr, L"Continuous");
  }
}

void AuditNames::checkHeader() {
  for (const OdDbHeaderNameUse& use : kOdDbHeaderNameUses) {
    Table* named = table(use.table);
    const OdDbHeaderVariable* variable = m_context.store.headerVariable(use.variable);
    if (!named || !variable || variable->groups->items.empty() || use.table == "BLOCK_RECORD") continue;
    const OdDbGroup& group = (*variable->groups)[0];
    const OdString name = variable->groups->text(group);
    if (name.isEmpty() || isBuiltIn(named->name, odFoldCase(name.str()))) continue;
    const auto renamed = named->renamed.find(odFoldCase(name.str()));
    const bool isKnown = m_context.store.findRecord(named->stub, name.str());
    OdString wanted = renamed != named->renamed.end() ? renamed->second : name;
    if (!isKnown && makes(*named)) wanted = allowedName(wanted, 0);
    if (renamed == named->renamed.end() && !isKnown) miss(*named, nullptr, wanted);
    if (wanted == name || !m_context.repairs) continue;
    OdDbGroupListPtr groups(new OdDbGroupList(*variable->groups));
    (*groups)[0] = groups->makeText(group.code, wanted);
    m_context.store.setHeaderVariable(std::string(use.variable), groups);
  }
}

void AuditNames::makeMissing() {
  if (!m_context.repairs) return;
  for (const Table& table : m_tables)
    for (const OdString& name : table.missing) {
      const OdDbSymbolTablePtr records =
          OdDbSymbolTable::cast(OdDbObjectId(table.stub).openObject(OdDb::kForWrite));
      const OdDbSymbolTableRecordPtr record =
          OdDbSymbolTableRecord::cast(odrxGetClassByDxfName(table.name)->create().get());
      record->setName(name);
      records->add(record);
    }
}
