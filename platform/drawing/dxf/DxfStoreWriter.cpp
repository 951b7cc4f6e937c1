#include "DxfStoreWriter.h"
#include "DbObject.h"
#include "DxfForm.h"
#include "DxfHeaderText.h"
#include "DxfRecord.h"
#include "OldRelease.h"
#include <algorithm>

namespace {

constexpr int kFollowsCode = 66;

constexpr std::string_view kSectionOrder[] = {"HEADER", "CLASSES", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"};

/// The place of a section in the canonical order; kUnranked for those that the format does not define.
constexpr std::ptrdiff_t kUnranked = std::size(kSectionOrder);
std::ptrdiff_t rankOf(std::string_view section) {
  return std::find(std::begin(kSectionOrder), std::end(kSectionOrder), section) - std::begin(kSectionOrder);
}

bool isLive(const OdDbStub* stub) { return (stub->flags & (OdDbStub::kErased | OdDbStub::kDetached)) == 0; }

bool anyLive(const OdDbStubList* list) {
  for (const OdDbStub* stub = list ? list->first : nullptr; stub; stub = stub->next)
    if (!stub->isErased()) return true;
  return false;
}

bool isSequenceEnd(const OdDbStub* stub) { return stub->dxfName() == "SEQEND"; }

const OdDbDxfTextCodec& codecOf(OdDbStore& store) {
  if (!store.codec) store.codec = OdDbDxfTextCodec::forDrawing(store.version, "");
  return static_cast<const OdDbDxfTextCodec&>(*store.codec);
}

/// Null for a drawing that was not read from a file.
const DxfParser* parserOf(const OdDbStore& store) {
  return static_cast<const DxfParser*>(store.parser.get());
}

int followsIndex(const OdDbGroupList& groups) {
  for (int i = 0; i < groups.size() && groups[i].code < 1000; ++i)
    if (groups[i].code == kFollowsCode) return i;
  return -1;
}

/// Whether the record of a reference tells that attributes follow it.
bool tellsAttributes(const OdDbStub* stub) {
  if (!stub->groups) return (stub->flags & OdDbStub::kSequenceFollows) != 0;
  const int at = followsIndex(*stub->groups);
  return at >= 0 && (*stub->groups)[at].integer != 0;
}

/// The groups of a reference with group 66 set or removed.
OdDbGroupListPtr withAttributesFlag(const OdDbStub* stub, bool follow) {
  OdDbGroupListPtr groups(new OdDbGroupList(*stub->content()));
  for (int at; (at = followsIndex(*groups)) >= 0;) groups->erase(at, at + 1);
  const auto name = std::find_if(groups->items.begin(), groups->items.end(),
                                 [](const OdDbGroup& group) { return group.code == 2; });
  if (follow) groups->items.insert(name, OdDbGroup::ofInteger(kFollowsCode, 1));
  return groups;
}

} // namespace

DxfStyle DxfStoreWriter::styleOf(const OdDbStore& store) {
  const DxfParser* parser = parserOf(store);
  if (!parser) return {};
  const std::string_view image = parser->text().bytes;
  const auto section =
      std::find_if(store.sections.begin(), store.sections.end(), [image](const OdDbSection& candidate) {
        const char* at = candidate.raw.data();
        const std::less<> before;
        return !candidate.name.empty() && !before(at, image.data()) &&
               before(at, image.data() + image.size());
      });
  return section == store.sections.end() ? DxfStyle() : parser->style(section->raw.data());
}

DxfStoreWriter::DxfStoreWriter(OdDbStore& store, DxfOutput& output)
    : m_store(store), m_output(output), m_filer(output, codecOf(store), store.database),
      m_modelSpace(store.space(false)), m_paperSpace(store.space(true)),
      m_missingClasses(dxfMissingClasses(store)) {}

const OdDbGroupList* DxfStoreWriter::replacement(const OdDbStub* stub) const {
  const auto found = m_replacements.find(stub);
  return found == m_replacements.end() ? nullptr : found->second.get();
}

void DxfStoreWriter::write() {
  for (const OdDbSection& section : plannedSections()) writeSection(section);
  if (m_store.tail.empty())
    m_output.text(0, "EOF");
  else
    m_output.slice(m_store.tail);
  m_output.finish();
}

// --- sections ---

bool DxfStoreWriter::isStored(const std::string& tableName) const {
  return tableName != "BLOCK_RECORD" || m_store.hasBlockRecords;
}

bool DxfStoreWriter::hasContents(std::string_view section) const {
  if (section == "HEADER") return !m_store.header.empty();
  if (section == "CLASSES") return !m_missingClasses.empty();
  if (section == "TABLES")
    return std::any_of(m_store.tables.begin(), m_store.tables.end(),
                       [this](const auto& table) { return isStored(table.first) && isLive(table.second); });
  if (section == "BLOCKS") return std::any_of(m_store.blockOrder.begin(), m_store.blockOrder.end(), isLive);
  if (section == "ENTITIES") {
    const std::vector<const OdDbStub*> records = spaces();
    return std::any_of(records.begin(), records.end(),
                       [](const OdDbStub* record) { return anyLive(record->children); });
  }
  return section == "OBJECTS" && m_store.hasBlockRecords && anyLive(&m_store.objects);
}

/// Where a section of that rank belongs: behind the last one that ranks before it. Sections that the format
/// does not define may stand anywhere and say nothing about the place.
static std::vector<OdDbSection>::iterator placeFor(std::ptrdiff_t rank, std::vector<OdDbSection>& planned) {
  const auto next = std::find_if(planned.begin(), planned.end(), [rank](const OdDbSection& section) {
    return rankOf(section.name) > rank && rankOf(section.name) < kUnranked;
  });
  for (auto behind = next; behind != planned.begin(); --behind)
    if (rankOf(std::prev(behind)->name) < rank) return behind;
  return std::find_if(planned.begin(), planned.end(),
                      [](const OdDbSection& section) { return !section.name.empty(); });
}

/// The sections of the file, and those that have become necessary, in their canonical places.
std::vector<OdDbSection> DxfStoreWriter::plannedSections() const {
  std::vector<OdDbSection> planned = m_store.sections;
  for (const std::string_view name : kSectionOrder) {
    const auto isNamed = [name](const OdDbSection& section) { return section.name == name; };
    if (std::any_of(planned.begin(), planned.end(), isNamed) || !hasContents(name)) continue;
    planned.insert(placeFor(rankOf(name), planned), {std::string(name), {}});
  }
  return planned;
}

void DxfStoreWriter::writeSection(const OdDbSection& section) {
  if (section.name.empty()) {
    m_output.slice(section.raw);
    return;
  }
  if (section.head.empty()) {
    m_output.text(0, "SECTION");
    m_output.text(2, section.name);
  } else {
    m_output.slice(section.head);
  }
  if (section.name == "TABLES" || section.name == "BLOCKS" || section.name == "ENTITIES" ||
      section.name == "OBJECTS")
    m_output.slice(section.lead);
  if (section.name == "HEADER")
    writeHeader(section.raw);
  else if (section.name == "TABLES")
    writeTables();
  else if (section.name == "BLOCKS")
    writeBlocks();
  else if (section.name == "ENTITIES")
    writeSpaces();
  else if (section.name == "OBJECTS")
    writeList(&m_store.objects);
  else if (section.name == "CLASSES")
    writeClasses(section.raw);
  else
    m_output.slice(section.raw);
  if (section.foot.empty())
    m_output.text(0, "ENDSEC");
  else
    m_output.slice(section.foot);
}

void DxfStoreWriter::writeHeader(std::string_view asRead) {
  const DxfHeaderText text(parserOf(m_store), *m_store.codec, asRead);
  if (text.holds(m_store.header)) {
    m_output.slice(asRead);
    return;
  }
  for (const OdDbHeaderVariable& variable : m_store.header) {
    const std::string_view slice = text.slice(variable);
    if (!slice.empty()) {
      m_output.slice(slice);
      continue;
    }
    m_output.text(9, variable.name);
    for (const OdDbGroup& group : variable.groups->items) m_filer.wrStored(*variable.groups, group);
  }
}

/// What is missing is declared in the first of these sections; only damaged files have more than one.
void DxfStoreWriter::writeClasses(std::string_view asRead) {
  m_output.slice(asRead);
  for (const DxfClassRecord& record : m_missingClasses) dxfWriteClass(m_filer, record, m_store.version);
  m_missingClasses.clear();
}

void DxfStoreWriter::writeTables() {
  for (const auto& [name, table] : m_store.tables) {
    if (!isStored(name) || !isLive(table)) continue;
    writeRecord(table);
    writeList(table->children);
    if (const auto tail = m_store.tableTails.find(table); tail != m_store.tableTails.end())
      m_output.slice(tail->second);
    else
      m_output.text(0, "ENDTAB");
  }
}

void DxfStoreWriter::writeBlocks() {
  for (OdDbStub* record : m_store.blockOrder) {
    const OdDbStore::BlockEnds ends = m_store.blockEnds[record];
    if (!isLive(record) || !ends.begin || !ends.end) continue;
    writeRecord(ends.begin);
    if (record != m_modelSpace && record != m_paperSpace && record->children)
      for (OdDbStub* entity = record->children->first; entity; entity = entity->next) writeEntity(entity);
    writeRecord(ends.end);
  }
}

/// The block records whose entities stand in ENTITIES: both spaces, and those without a definition of their
/// own, which only careless programs store.
std::vector<const OdDbStub*> DxfStoreWriter::spaces() const {
  std::vector<const OdDbStub*> result;
  const OdDbStub* table = m_store.table("BLOCK_RECORD");
  const OdDbStubList* records = table ? table->children : nullptr;
  for (OdDbStub* record = records ? records->first : nullptr; record; record = record->next) {
    const auto ends = m_store.blockEnds.find(record);
    const bool isDefined = ends != m_store.blockEnds.end() && ends->second.begin && ends->second.end;
    const bool isSpace = record == m_modelSpace || record == m_paperSpace;
    if (isLive(record) && record->children && (isSpace || !isDefined)) result.push_back(record);
  }
  return result;
}

/// Files may mix the entities of the spaces. What was read keeps the order of the file; what has no place
/// there follows its predecessor.
void DxfStoreWriter::writeSpaces() {
  struct Queue {
    OdDbStub* next;
    std::size_t order; ///< among those without a place
    const char* place = nullptr;
    void look() {
      if (next && next->raw) place = next->raw;
    }
  };
  const auto isLater = [](const Queue& a, const Queue& b) {
    if (a.place != b.place) return std::less<>()(b.place, a.place);
    return b.order < a.order;
  };
  std::vector<Queue> queues;
  for (const OdDbStub* record : spaces()) {
    queues.push_back({record->children->first, queues.size()});
    queues.back().look();
  }
  std::make_heap(queues.begin(), queues.end(), isLater);
  while (!queues.empty()) {
    std::pop_heap(queues.begin(), queues.end(), isLater);
    Queue& queue = queues.back();
    if (queue.next) {
      writeEntity(queue.next);
      queue.next = queue.next->next;
      queue.look();
      std::push_heap(queues.begin(), queues.end(), isLater);
    } else {
      queues.pop_back();
    }
  }
}

// --- records ---

void DxfStoreWriter::writeList(const OdDbStubList* list) {
  for (OdDbStub* stub = list ? list->first : nullptr; stub; stub = stub->next)
    if (!stub->isErased()) writeRecord(stub);
}

void DxfStoreWriter::writeEntity(OdDbStub* stub) {
  if (!isLive(stub)) return;
  if (stub->dxfName() == "INSERT") {
    writeReference(stub);
  } else {
    writeRecord(stub);
    if (stub->children) writeList(stub->children);
  }
}

/// A reference tells whether attributes follow, and an end mark closes them.
void DxfStoreWriter::writeReference(OdDbStub* stub) {
  bool attributes = false;
  bool endOnly = stub->children != nullptr;
  for (const OdDbStub* member = stub->children ? stub->children->first : nullptr; member;
       member = member->next) {
    if (isSequenceEnd(member)) continue;
    endOnly = false;
    attributes |= isLive(member);
  }
  const bool told = tellsAttributes(stub);
  const bool follow = attributes || (endOnly && told);
  if (follow != told) m_replacements[stub] = withAttributesFlag(stub, follow);
  writeRecord(stub);
  if (follow) writeList(stub->children);
}

void DxfStoreWriter::writeRecord(OdDbStub* stub) {
  m_written.push_back(stub);
  if (OdDbGroupListPtr form = dxfReleaseForm(*stub, replacement(stub)))
    m_replacements[stub] = std::move(form);
  if (const OdDbGroupList* groups = replacement(stub)) {
    m_output.text(0, stub->dxfName());
    for (const OdDbGroup& group : groups->items) {
      if (group.flags & OdDbGroup::kOwnHandle)
        m_filer.wrHandle(group.code, OdDbHandle(stub->handle));
      else if (group.flags & OdDbGroup::kOwner)
        m_filer.wrObjectId(group.code, OdDbObjectId(stub->owner));
      else
        m_filer.wrStored(*groups, group);
    }
  } else if (stub->raw) {
    const char* begin = parserOf(m_store)->recordBegin(stub->raw, stub->dxfName());
    m_output.slice({begin, static_cast<std::size_t>(stub->raw + stub->rawSize - begin)});
  } else {
    const OdDbObjectPtr object = OdDbObjectId(stub).openObject(OdDb::kForRead, true);
    m_output.text(0, stub->dxfName()); // the bytes as read, whatever they mean
    object->dxfOutGroups(&m_filer);
  }
}
