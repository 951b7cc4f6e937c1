#include "RecoverStructure.h"
#include "RxObject.h"
#include <algorithm>

namespace {

using Kind = RecoverStructure::Kind;

constexpr const char* kSectionNames[] = {"HEADER", "CLASSES", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"};
constexpr std::string_view kTableNames[] = {"VPORT", "LTYPE", "LAYER",    "STYLE",       "VIEW",
                                            "UCS",   "APPID", "DIMSTYLE", "BLOCK_RECORD"};

Kind kindNamed(std::string_view name) {
  int kind = 0;
  while (kind < Kind::kOther && name != kSectionNames[kind]) ++kind;
  return static_cast<Kind>(kind);
}

bool isTableName(std::string_view name) {
  return std::find(std::begin(kTableNames), std::end(kTableNames), name) != std::end(kTableNames);
}

/// The section where a record belongs by its kind; kOther where it may stand anywhere.
Kind homeOf(const RecoverRecord& record) {
  static const OdRxClass* entityClass = odrxGetClassByName(L"OdDbEntity");
  const std::string_view name = record.name;
  if (name == "TABLE" || name == "ENDTAB" || isTableName(name)) return Kind::kTables;
  if (name == "BLOCK" || name == "ENDBLK") return Kind::kBlocks;
  if (name == "CLASS") return Kind::kClasses;
  if (record.saysEntity) return Kind::kEntities;
  const OdRxClass* cls = odrxGetClassByDxfName(name);
  if (!cls) return Kind::kOther;
  return cls->isDerivedFrom(entityClass) ? Kind::kEntities : Kind::kObjects;
}

} // namespace

void RecoverStructure::read(std::deque<RecoverRecord>& records) {
  for (const RecoverRecord& record : records)
    if (record.name == "SECTION") m_named[kindNamed(record.title)] = true;
  for (RecoverRecord& record : records) take(&record);
  finish();
}

void RecoverStructure::take(RecoverRecord* record) {
  if (m_undecided) nameSection(record);
  if (record->name == "SECTION")
    openSection(record);
  else if (record->name == "ENDSEC")
    closeSection(record);
  else if (record->isStrayHeader())
    takeVariables(*record);
  else
    place(record);
}

// --- sections ---

RecoverStructure::Section& RecoverStructure::demand(Kind kind) {
  if (!m_known[kind]) {
    m_known[kind] = &m_sections.emplace_back();
    m_known[kind]->kind = kind;
    m_known[kind]->head = m_context.make("SECTION", {{2, kSectionNames[kind]}});
  }
  return *m_known[kind];
}

void RecoverStructure::openSection(RecoverRecord* record) {
  if (m_declared) {
    repaired("section-not-closed", record, "expected ENDSEC, met SECTION: the section before it is closed");
    closeSection(nullptr);
  }
  closePart();
  if (kindNamed(record->title) != kOther)
    enterNamed(record);
  else
    m_undecided = record;
}

/// A section without a name is what its first record says, and so is one with an unknown name when the
/// drawing lacks that section.
void RecoverStructure::nameSection(const RecoverRecord* first) {
  RecoverRecord* head = std::exchange(m_undecided, nullptr);
  const bool isFilled = first && first->name != "SECTION" && first->name != "ENDSEC";
  Kind kind = isFilled ? homeOf(*first) : kOther;
  if (head->hasTitle()) {
    if (kind != kOther && !m_named[kind]) {
      repaired("section-name", head,
               "the section " + dxfQuoted(head->title) + " is by its contents " + kSectionNames[kind]);
      m_context.apply(*head, {.title = kSectionNames[kind]});
    }
    return enterNamed(head);
  }
  if (kind == kOther && isFilled) kind = first->owner != 0 ? kObjects : kEntities;
  if (head->holdsVariables) kind = kHeader;
  if (kind == kOther) {
    repaired("section-without-name", head, "an empty section without a name is left out");
    m_isLeftOut = true;
    return;
  }
  repaired("section-without-name", head,
           std::string("a section has no name: by its contents it is ") + kSectionNames[kind]);
  m_context.apply(*head, {.title = kSectionNames[kind]});
  enterNamed(head);
}

void RecoverStructure::enterNamed(RecoverRecord* head) {
  const Kind kind = kindNamed(head->title);
  const bool isTwice = kind != kOther && kind != kClasses && m_known[kind];
  if (isTwice) {
    repaired("section-twice", head,
             "a second section " + std::string(head->title) + ": its contents are added to the first");
    if (kind == kHeader) m_header.merge(*head);
    m_declared = m_known[kind];
  } else {
    m_declared = &m_sections.emplace_back();
    m_declared->kind = kind;
    m_declared->head = head;
    if (kind != kOther) m_known[kind] = m_declared;
    if (kind != kOther && kind != kClasses && kind < m_lastRank)
      repaired("section-order", head,
               "section " + std::string(head->title) + " stands behind section " + kSectionNames[m_lastRank] +
                   ": it is moved before it");
    if (kind != kOther && kind != kClasses) m_lastRank = std::max<int>(m_lastRank, kind);
  }
  m_current = m_declared;
}

void RecoverStructure::closeSection(RecoverRecord* end) {
  closePart();
  if (end && end->holdsVariables) {
    takeVariables(*end);
    end = m_context.make("ENDSEC", {});
  }
  if (m_declared && !m_declared->end) m_declared->end = end;
  if (!m_current && !m_isLeftOut && end)
    repaired("endsec-alone", end, "ENDSEC closes no section: it is left out");
  m_declared = m_current = nullptr;
  m_isLeftOut = false;
}

void RecoverStructure::takeVariables(const RecoverRecord& record) {
  repaired("variables-outside-header", &record,
           "variables stand outside of the header: those that it does not have are added to it");
  m_header.merge(record);
  if (!m_current) m_isLeftOut = true; // the section whose end follows
}

bool RecoverStructure::fits(const Section* section, Kind home, const RecoverRecord& record) const {
  if (!section) return false;
  switch (section->kind) {
  case kOther: return true;
  case kHeader: return false;
  case kTables: return home == kTables || (home == kOther && m_part && !isTableName(m_part->head->title));
  case kBlocks:
    return home == kBlocks || ((home == kEntities || home == kOther || record.isMember()) && m_part);
  case kClasses: return home == kClasses || home == kOther;
  default: return home == section->kind || home == kOther;
  }
}

void RecoverStructure::moveTo(Kind home, const RecoverRecord& record) {
  if (home == kOther) home = record.owner != 0 && !record.isMember() ? kObjects : kEntities;
  const std::string from = m_current ? " stands in section " + std::string(m_current->head->title)
                                     : " stands outside of every section";
  repaired("record-misplaced", &record,
           RecoverContext::describe(record) + from + ": it is put into section " + kSectionNames[home]);
  closePart();
  m_current = &demand(home);
}

/// Whether a record ends the stay in a section other than the declared one.
bool RecoverStructure::returns(Kind home, const RecoverRecord& record) const {
  if (!fits(m_current, home, record)) return true;
  if (!m_declared) return false;
  const bool isFree = m_declared->kind == kEntities || m_declared->kind == kObjects;
  if (home == kOther && !record.isMember()) return isFree;
  // Entities of another owner do not belong to a block that was opened among them.
  return home == kEntities && m_declared->kind == kEntities && m_part && record.owner != 0 &&
         !record.isMember() && record.owner != m_part->head->owner;
}

void RecoverStructure::place(RecoverRecord* record) {
  const Kind home = homeOf(*record);
  if (m_current != m_declared && returns(home, *record)) {
    closePart();
    m_current = m_declared;
  }
  if (!fits(m_current, home, *record)) moveTo(home, *record);
  if (m_current->kind == kTables) return placeInTables(record);
  if (m_current->kind == kBlocks) return placeInBlocks(record);
  if (m_current->parts.empty()) m_current->parts.emplace_back();
  Part& part = m_current->parts.front();
  if (m_current->kind == kEntities)
    addEntity(record, part);
  else
    part.members.push_back(record);
}

// --- tables and blocks ---

RecoverStructure::Part& RecoverStructure::table(const std::string& name) {
  Part*& part = m_tables[name];
  if (!part) {
    part = &demand(kTables).parts.emplace_back();
    part->head = m_context.make("TABLE", {{2, name}});
    part->end = m_context.make("ENDTAB", {});
  }
  return *part;
}

void RecoverStructure::placeInTables(RecoverRecord* record) {
  if (m_namelessTable && isTableName(record->name)) {
    RecoverRecord* head = std::exchange(m_namelessTable, nullptr);
    repaired("table-without-name", head,
             "a table has no name: by its records it is " + std::string(record->name));
    m_context.apply(*head, {.title = std::string(record->name)});
    openTable(head);
  }
  if (record->name == "TABLE") {
    openTable(record);
  } else if (record->name == "ENDTAB") {
    if (m_part && !m_part->end)
      m_part->end = record;
    else if (!m_part && !m_namelessTable)
      repaired("endtab-alone", record, "ENDTAB closes no table: it is left out");
    m_part = nullptr;
    closePart();
  } else {
    // Records of kinds that no table is named after belong to the open one.
    const bool isForeign = isTableName(record->name) && (!m_part || m_part->head->title != record->name);
    if (isForeign)
      repaired("record-outside-table", record,
               RecoverContext::describe(*record) + " stands outside of the table " +
                   std::string(record->name) + ": it is put there");
    Part& part = isForeign || !m_part ? table(std::string(record->name)) : *m_part;
    part.members.push_back(record);
  }
}

void RecoverStructure::openTable(RecoverRecord* head) {
  if (m_part) repaired("table-not-closed", head, "expected ENDTAB, met TABLE: the table before it is closed");
  m_part = nullptr;
  closePart();
  if (!head->hasTitle()) {
    m_namelessTable = head;
    return;
  }
  Part*& known = m_tables[std::string(head->title)];
  if (!known)
    known = &m_current->parts.emplace_back();
  else if (known->head->where != 0)
    repaired("table-twice", head,
             "a second table " + std::string(head->title) + ": its records are added to the first");
  if (!known->head || known->head->where == 0) known->head = head;
  m_part = known;
}

void RecoverStructure::placeInBlocks(RecoverRecord* record) {
  if (record->name == "BLOCK") {
    openBlock(record);
  } else if (record->name == "ENDBLK") {
    if (m_part) {
      endSequence(*m_part);
      m_part->end = record;
    } else {
      repaired("endblk-alone", record, "ENDBLK closes no block: it is left out");
    }
    m_part = nullptr;
  } else {
    addEntity(record, *m_part);
  }
}

void RecoverStructure::openBlock(RecoverRecord* head) {
  closePart();
  m_part = &m_current->parts.emplace_back();
  m_part->head = head;
}

/// Closes what the file leaves open where a part or a section ends.
void RecoverStructure::closePart() {
  if (m_namelessTable) {
    repaired("table-without-name", m_namelessTable, "an empty table without a name is left out");
    m_namelessTable = nullptr;
  }
  if (!m_part) return;
  const bool isBlock = m_part->head->name == "BLOCK";
  if (isBlock) endSequence(*m_part);
  repaired(isBlock ? "block-not-closed" : "table-not-closed", m_part->head,
           RecoverContext::describe(*m_part->head) + " is not closed: its end is put behind its last record");
  m_part = nullptr;
}

// --- entities ---

void RecoverStructure::addEntity(RecoverRecord* record, Part& part) {
  if (!record->isMember()) {
    endSequence(part);
    part.members.push_back(record);
    if (record->name == "INSERT" || record->name == "POLYLINE") part.sequence = record;
    return;
  }
  const bool isEnd = record->name == "SEQEND";
  if (part.sequence && (isEnd || (record->name == "ATTRIB") == (part.sequence->name == "INSERT"))) {
    part.members.push_back(record);
    part.hasSequenceMembers = !isEnd;
    if (isEnd) part.sequence = nullptr;
  } else if (isEnd) {
    repaired("seqend-alone", record, "SEQEND closes nothing: it is left out");
  } else {
    orphans.push_back(record);
  }
}

void RecoverStructure::endSequence(Part& part) {
  if (part.sequence && part.hasSequenceMembers)
    repaired("sequence-not-closed", part.sequence,
             RecoverContext::describe(*part.sequence) +
                 " has no SEQEND behind its members: one is put there");
  part.sequence = nullptr;
  part.hasSequenceMembers = false;
}

// --- the end ---

void RecoverStructure::finish() {
  if (m_undecided) nameSection(nullptr);
  if (m_declared)
    repaired("section-not-closed", m_declared->head,
             "section " + std::string(m_declared->head->title) +
                 " is not closed: its end is put behind its last record");
  closeSection(nullptr);
  for (Section& section : m_sections) {
    if (section.kind == kEntities)
      for (Part& part : section.parts) endSequence(part);
    if (!section.end) section.end = m_context.make("ENDSEC", {});
    for (Part& part : section.parts) {
      if (!part.end && section.kind == kTables) part.end = m_context.make("ENDTAB", {});
      if (!part.end && section.kind == kBlocks) part.end = m_context.make("ENDBLK", {{8, "0"}});
    }
  }
}

/// In the order that the reader demands, sections of unknown kinds last.
std::vector<RecoverStructure::Section*> RecoverStructure::ordered() {
  if (m_header.record() && !m_known[kHeader]) demand(kHeader).head = m_header.record(); // was made
  std::vector<std::pair<int, Section*>> ranked;
  for (Section& section : m_sections) {
    if (!section.end) section.end = m_context.make("ENDSEC", {}); // made behind the end of the file
    ranked.emplace_back(section.kind, &section);
  }
  std::stable_sort(ranked.begin(), ranked.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<Section*> result;
  result.reserve(ranked.size());
  for (const auto& [order, section] : ranked) result.push_back(section);
  return result;
}
