#include "DxfBuilder.h"
#include "DbStoreWalk.h"
#include "TextCodec.h"
#include <algorithm>

namespace {

constexpr const char* kReleaseVariable = "$ACADVER";
constexpr const char* kCodePageVariable = "$DWGCODEPAGE";
constexpr int kVariableCode = 9;
constexpr int kMarkerCode = 100;
constexpr int kReportSteps = 200;
/// What a record takes on average; only a first guess for the size of the handle index.
constexpr std::size_t kTypicalRecord = 210;

struct Release {
  std::string_view name;
  OdDb::DwgVersion version;
};
constexpr Release kReleases[] = {
    {"MC0.0", OdDb::vAC02},  {"AC1.2", OdDb::vAC02},  {"AC1.4", OdDb::vAC02},  {"AC1.50", OdDb::vAC02},
    {"AC2.10", OdDb::vAC02}, {"AC1001", OdDb::vAC02}, {"AC1002", OdDb::vAC02}, {"AC1003", OdDb::vAC02},
    {"AC1004", OdDb::vAC04}, {"AC1006", OdDb::vAC06}, {"AC1009", OdDb::vAC09}, {"AC1012", OdDb::vAC12},
    {"AC1014", OdDb::vAC14}, {"AC1015", OdDb::vAC15}, {"AC1018", OdDb::vAC18}, {"AC1021", OdDb::vAC21},
    {"AC1024", OdDb::vAC24}, {"AC1027", OdDb::vAC27}, {"AC1032", OdDb::vAC32},
};

/// The sections whose order matters: what stands in the later ones refers to the earlier ones.
constexpr std::string_view kRanks[] = {"HEADER", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"};

std::string hexadecimal(OdUInt64 handle) { return OdDbHandle(handle).ascii().toUtf8(); }

} // namespace

DxfBuilder::DxfBuilder(OdDbStore& store, const DxfText& text, DxfRecordSource& source,
                       const OdDbDxfReadOptions& options)
    : m_store(store), m_text(text), m_source(source), m_options(options), m_nextReport(text.bytes.data()) {
  if (m_options.encoding.isEmpty()) return;
  m_store.codec = OdDbDxfTextCodec::named(m_options.encoding.toUtf8());
  if (!m_store.codec)
    throw OdError(eInvalidInput, L"The encoding \"" + m_options.encoding + L"\" is not known.");
}

void DxfBuilder::build() {
  m_store.version = OdDb::vUnknown;
  m_store.reserve(m_text.bytes.size() / kTypicalRecord);
  keepComments(m_source.preamble());
  while (next() && m_record.name != "EOF") {
    if (m_record.name != "SECTION")
      fail("expected the beginning of a section or EOF, met " + dxfQuoted(m_record.name));
    readSection();
  }
  if (m_record.name != "EOF")
    m_text.fail(m_text.bytes.data() + m_text.bytes.size(), "the file ends without EOF");
  m_store.tail = m_source.tail();
  assumeCodec();
  space(false);
  resolveOwners();
  noteForm();
  finishSeed();
  m_store.undo.clear();
}

bool DxfBuilder::next() {
  if (!m_source.next(m_record)) return false;
  if (m_record.place >= m_nextReport) reportProgress();
  return true;
}

void DxfBuilder::reportProgress() {
  const char* begin = m_text.bytes.data();
  m_nextReport = m_record.place + m_text.bytes.size() / kReportSteps + 1;
  const auto done = static_cast<double>(m_record.place - begin);
  if (m_options.progress && !m_options.progress(done / static_cast<double>(m_text.bytes.size())))
    throw OdError_FileException(eUserBreak, m_text.fileName + L": reading was cancelled");
}

// --- sections ---

void DxfBuilder::readSection() {
  if (m_record.title.empty()) fail("a section has no name (group 2)");
  const std::string name(m_record.title);
  const char* begin = m_record.behindTitle;
  const std::string_view head(m_record.place, static_cast<std::size_t>(begin - m_record.place));
  const char* recordEnd = m_record.raw.data() + m_record.raw.size();
  const std::string_view lead(begin, static_cast<std::size_t>(recordEnd - begin));
  noteOrder(name);
  if (name != "HEADER") assumeCodec();
  if (name == "HEADER")
    readHeader();
  else if (name == "TABLES")
    readTables();
  else if (name == "BLOCKS")
    readBlocks();
  else if (name == "ENTITIES")
    readEntities();
  else if (name == "OBJECTS")
    readObjects();
  else
    skipSection();
  const std::string_view foot(m_record.place, static_cast<std::size_t>(m_record.raw.data() - m_record.place));
  m_store.sections.push_back(
      {name, {begin, static_cast<std::size_t>(m_record.place - begin)}, lead, head, foot});
  keepComments(m_record.raw);
}

void DxfBuilder::assumeCodec() {
  if (!m_store.codec) m_store.codec = OdDbDxfTextCodec::forDrawing(OdDb::vUnknown, "");
}

void DxfBuilder::noteOrder(std::string_view name) {
  const auto* at = std::find(std::begin(kRanks), std::end(kRanks), name);
  if (at == std::end(kRanks)) return;
  const int rank = static_cast<int>(at - kRanks);
  if (rank == m_lastRank) fail("a second section " + std::string(name));
  if (rank < m_lastRank) fail("section " + std::string(name) + " stands behind section " + m_lastRanked);
  m_lastRank = rank;
  m_lastRanked = name;
}

void DxfBuilder::keepComments(std::string_view raw) {
  if (!raw.empty()) m_store.sections.push_back({"", raw});
}

bool DxfBuilder::nextIn(const char* section) {
  if (!next())
    m_text.fail(m_text.bytes.data() + m_text.bytes.size(),
                std::string("the file ends inside section ") + section + ", before ENDSEC");
  if (m_record.name == "SECTION" || m_record.name == "EOF")
    fail(std::string("section ") + section + " is not closed: expected ENDSEC, met " +
         std::string(m_record.name));
  if (m_record.name.empty()) fail(std::string("a record of section ") + section + " has no name");
  return m_record.name != "ENDSEC";
}

/// What begins or ends something is no object.
void DxfBuilder::failOutOfPlace() const {
  constexpr std::string_view kMarks[] = {"TABLE", "ENDTAB", "BLOCK", "ENDBLK"};
  if (std::find(std::begin(kMarks), std::end(kMarks), m_record.name) != std::end(kMarks))
    fail(std::string(m_record.name) + " has no place here");
}

void DxfBuilder::skipSection() {
  const std::string name(m_record.title);
  while (nextIn(name.c_str())) {}
}

// --- header ---

void DxfBuilder::readHeader() {
  const char* begin = m_record.behindTitle;
  const char* end = m_record.raw.data() + m_record.raw.size();
  if (nextIn("HEADER"))
    fail("section HEADER holds variables only: expected ENDSEC, met " + dxfQuoted(m_record.name));
  OdDbGroupList all;
  m_store.parser->parse({begin, static_cast<std::size_t>(end - begin)}, all);
  readRelease(all);
  OdDbGroupListPtr variable;
  for (OdDbGroup& group : all.items) {
    group.flags = OdDbGroup::kNone;
    if (group.code == kVariableCode) {
      variable.reset(new OdDbGroupList);
      variable->codec = m_store.codec.get();
      m_store.header.push_back({std::string(group.bytes()), variable});
    } else if (variable) {
      variable->append(group);
    }
  }
  const OdUInt64 seed = storedSeed();
  if (seed <= kLargestHandle) m_store.nextHandle = std::max(m_store.nextHandle, seed);
}

/// The first group of a variable among all groups of the header, or null.
static const OdDbGroup* variableValue(const OdDbGroupList& all, std::string_view name) {
  for (int i = 0; i + 1 < all.size(); ++i)
    if (all[i].code == kVariableCode && all[i].bytes() == name && all[i + 1].isText()) return &all[i + 1];
  return nullptr;
}

void DxfBuilder::readRelease(const OdDbGroupList& all) {
  const OdDbGroup* release = variableValue(all, kReleaseVariable);
  const OdDbGroup* codePage = variableValue(all, kCodePageVariable);
  if (release) {
    const auto* known =
        std::find_if(std::begin(kReleases), std::end(kReleases),
                     [&](const Release& candidate) { return candidate.name == release->bytes(); });
    if (known == std::end(kReleases))
      m_text.fail(release->text,
                  "the drawing is of release " + dxfQuoted(release->bytes()) + ", which is not known");
    m_store.version = known->version;
  }
  if (m_options.encoding.isEmpty())
    m_store.codec =
        OdDbDxfTextCodec::forDrawing(m_store.version, codePage ? codePage->bytes() : std::string_view());
}

OdInt64 DxfBuilder::integerVariable(std::string_view name) const {
  const OdDbHeaderVariable* variable = m_store.headerVariable(name);
  const bool isInteger =
      variable && variable->groups->size() > 0 && (*variable->groups)[0].kind == OdDbGroupKind::kInteger;
  return isInteger ? (*variable->groups)[0].integer : 0;
}

OdUInt64 DxfBuilder::storedSeed() const {
  const OdDbHeaderVariable* seed = m_store.headerVariable("$HANDSEED");
  const bool isHandle = seed && seed->groups->size() > 0 && (*seed->groups)[0].kind == OdDbGroupKind::kHandle;
  return isHandle ? (*seed->groups)[0].handle : 0;
}

/// Whether the record of a layer, a block or an entity has a subclass marker.
static bool hasMarker(const OdDbStub* stub) {
  const OdDbGroupListPtr groups = stub->content();
  return std::any_of(groups->items.begin(), groups->items.end(),
                     [](const OdDbGroup& group) { return group.code == kMarkerCode; });
}

/// A drawing that does not tell its release is old unless its records look new.
void DxfBuilder::noteForm() {
  m_store.hasBlockRecords = storesBlockRecords();
  if (dxfStoresBlockRecords(m_store.version)) return;
  m_store.hasHandles = m_hasHandles || integerVariable("$HANDLING") != 0;
  m_store.tableRecordsHaveHandles = m_tableRecordsHaveHandles;
  const OdDbStub* sample = nullptr;
  if (m_store.version == OdDb::vUnknown)
    odDbVisitAll(m_store, [&sample](const OdDbStub* stub) {
      if (!sample && stub->raw && stub->dxfName() != "TABLE") sample = stub;
    });
  m_store.hasMarkers = m_store.hasBlockRecords || (sample && hasMarker(sample));
}

void DxfBuilder::finishSeed() {
  // A seed that is too low would let other programs give a handle twice.
  if (!storesBlockRecords() || storedSeed() > m_largestHandle) return;
  OdDbGroupListPtr seed(new OdDbGroupList);
  seed->append(OdDbGroup::ofHandle(5, m_store.nextHandle));
  m_store.storeHeaderVariable("$HANDSEED", std::move(seed));
}

// --- tables and blocks ---

void DxfBuilder::readTables() {
  while (nextIn("TABLES")) {
    if (m_record.name != "TABLE") fail("expected a TABLE or ENDSEC, met " + dxfQuoted(m_record.name));
    readTable();
  }
}

void DxfBuilder::readTable() {
  if (m_record.title.empty()) fail("a table has no name (group 2)");
  const std::string name(m_record.title);
  if (!m_tableNames.insert(name).second) fail("a second table " + name);
  OdDbStub* table = makeStub(checked(m_store.tableTypeIndex(name)), nullptr);
  m_store.tables.emplace_back(name, table);
  OdDbStubList* records = m_store.childrenOf(table);
  for (;;) {
    if (!nextIn("TABLES")) fail("table " + name + " is not closed: expected ENDTAB, met ENDSEC");
    if (m_record.name == "ENDTAB") {
      const char* end = m_record.raw.data() + m_record.raw.size();
      m_store.tableTails.emplace(
          table, std::string_view(m_record.place, static_cast<std::size_t>(end - m_record.place)));
      return;
    }
    if (m_record.name == "TABLE") fail("table " + name + " is not closed: expected ENDTAB, met TABLE");
    failOutOfPlace();
    m_tableRecordsHaveHandles |= m_record.handle != 0;
    records->link(makeStub(type(false), table), records->last);
  }
}

void DxfBuilder::readBlocks() {
  while (nextIn("BLOCKS")) {
    if (m_record.name != "BLOCK") fail("expected a BLOCK or ENDSEC, met " + dxfQuoted(m_record.name));
    readBlock();
  }
}

void DxfBuilder::readBlock() {
  OdDbStub* block = blockRecordOf(m_record);
  const std::string name = dxfQuoted(m_record.title);
  OdDbStore::BlockEnds& ends = m_store.blockEnds[block];
  if (ends.begin) fail("block " + name + " is defined twice");
  ends.begin = makeEntity(block);
  m_store.blockOrder.push_back(block);
  for (;;) {
    if (!nextIn("BLOCKS")) fail("block " + name + " is not closed: expected ENDBLK, met ENDSEC");
    if (m_record.name == "BLOCK") fail("block " + name + " is not closed: expected ENDBLK, met BLOCK");
    if (m_record.name == "ENDBLK") break;
    failOutOfPlace();
    checkOwner(block);
    readEntity(block);
  }
  closeSequence();
  ends.end = makeEntity(block);
}

// --- entities and objects ---

void DxfBuilder::readEntities() {
  while (nextIn("ENTITIES")) {
    failOutOfPlace();
    readEntity(entityBlock());
  }
  closeSequence();
}

void DxfBuilder::readObjects() {
  OdDbStubList& objects = m_store.objects;
  while (nextIn("OBJECTS")) {
    failOutOfPlace();
    OdDbStub* stub = makeStub(type(false), nullptr);
    stub->flags |= OdDbStub::kInObjects;
    objects.link(stub, objects.last);
    if (m_record.owner != 0) m_unresolved.push_back({stub, m_record.owner});
  }
}

void DxfBuilder::resolveOwners() {
  for (const Unresolved& object : m_unresolved) {
    object.stub->owner = m_store.find(object.owner);
    if (!object.stub->owner)
      m_text.fail(object.stub->raw, "the owner " + hexadecimal(object.owner) + " of " +
                                        object.stub->dxfName() + " " + hexadecimal(object.stub->handle) +
                                        " does not exist");
  }
}
