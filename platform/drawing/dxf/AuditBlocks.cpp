#include "AuditBlocks.h"
#include "DbBlockBegin.h"
#include "DbBlockTableRecord.h"
#include "DbSchema.h"
#include "DxfRecord.h"

namespace {

constexpr int kNameCode = 2;
constexpr int kFlagsCode = 70;
constexpr int kConstantBit = 2;       // of attribute definitions
constexpr int kHasDefinitionsBit = 2; // of blocks
constexpr int kExternalBits = 4 | 8;

const OdDbSubclass kReferenceSection{"AcDbBlockReference", {}, "AcDbMInsertBlock"};
const OdDbSubclass kDefinitionSection{"AcDbAttributeDefinition", {}};
const OdDbSubclass kBeginSection{"AcDbBlockBegin", {}};

OdInt64 flagsIn(const OdDbGroupList& groups, const OdDbSubclass& section) {
  const int at = odDbGroups::find(groups, section, kFlagsCode);
  return at < 0 ? 0 : groups[at].integer;
}

} // namespace

std::string AuditBlocks::nameOf(const OdDbStub* block) {
  return AuditContext::quoted(OdDbStore::recordName(*block->content()));
}

void AuditBlocks::checkDefinitions() {
  const OdDbStub* table = m_context.store.table("BLOCK_RECORD");
  if (!table || !table->children || !dxfStoresBlockRecords(m_context.store.version)) return;
  for (OdDbStub* record = table->children->first; record; record = record->next) {
    const auto ends = m_context.store.blockEnds.find(record);
    const bool isDefined = ends != m_context.store.blockEnds.end() && ends->second.begin;
    if (record->isErased() || isDefined) continue;
    m_context.error("missing-definition", record,
                    "the block " + nameOf(record) + " has a block record, but no definition" +
                        (m_context.repairs ? ": an empty one is made" : ""));
    if (!m_context.repairs) continue;
    const OdDbBlockTableRecordPtr block =
        OdDbBlockTableRecord::cast(OdDbObjectId(record).openObject(OdDb::kForWrite));
    if (block.isNull()) continue;
    block->appended();
    // A damaged record may have its name where its class does not look for it.
    const OdDbBlockBeginPtr begin = OdDbBlockBegin::cast(
        OdDbObjectId(m_context.store.blockEnds[record].begin).openObject(OdDb::kForWrite));
    if (!begin.isNull()) begin->setBlockName(OdDbStore::recordName(*record->content()));
  }
}

void AuditBlocks::noteObject(const OdDbStub* stub, const OdDbGroupList& groups) {
  if (!(stub->flags & OdDbStub::kEntity) || !stub->owner) return;
  const std::string& kind = stub->dxfName();
  if (kind == "INSERT") {
    const int name = odDbGroups::find(groups, kReferenceSection, kNameCode);
    if (name < 0) return;
    OdDbStub* block =
        m_context.store.findRecord(m_context.store.table("BLOCK_RECORD"), groups.text(name).str());
    if (block) m_contents[stub->owner].uses.push_back({stub, block});
  } else if (kind == "ATTDEF" && !(flagsIn(groups, kDefinitionSection) & kConstantBit)) {
    m_contents[stub->owner].hasDefinitions = true;
  }
}

void AuditBlocks::checkFlags() {
  for (OdDbStub* record : m_context.store.blockOrder) {
    // Programs disagree on what the flag of a space means.
    const std::wstring& name = m_context.store.foldedName(record);
    const bool isSpace = record == m_context.store.space(false) || record == m_context.store.space(true);
    if (isSpace || name.starts_with(L"*paper_space")) continue;
    const auto ends = m_context.store.blockEnds.find(record);
    if (record->isErased() || ends == m_context.store.blockEnds.end() || !ends->second.begin) continue;
    OdDbStub* begin = ends->second.begin;
    const OdDbGroupListPtr groups = begin->content();
    const int at = odDbGroups::find(*groups, kBeginSection, kFlagsCode);
    if (at < 0 || ((*groups)[at].integer & kExternalBits)) continue;
    const auto contents = m_contents.find(record);
    const bool has = contents != m_contents.end() && contents->second.hasDefinitions;
    const OdInt64 flags = (*groups)[at].integer;
    if (has == ((flags & kHasDefinitionsBit) != 0)) continue;
    m_context.repair(
        "block-flag", begin,
        "the block " + nameOf(record) +
            (has ? " does not say that it has attributes" : " says that it has attributes, but has none"),
        has ? "it says so" : "it says so no longer");
    AuditEdits edits;
    edits.replace(at, OdDbGroup::ofInteger(kFlagsCode, flags ^ kHasDefinitionsBit));
    m_context.apply(begin, edits);
  }
}

/// Walks down the references of each block, without recursion: a drawing may nest them as deep as it likes.
void AuditBlocks::checkCycles() {
  struct Step {
    const OdDbStub* block;
    std::size_t next;
  };
  for (const OdDbStub* start : m_context.store.blockOrder) {
    std::vector<Step> path;
    const auto open = [&](const OdDbStub* block) {
      m_contents[block].state = Contents::kOpen;
      path.push_back({block, 0});
    };
    if (m_contents[start].state == Contents::kNew) open(start);
    while (!path.empty()) {
      Step& step = path.back();
      Contents& contents = m_contents[step.block];
      if (step.next == contents.uses.size()) {
        contents.state = Contents::kDone;
        path.pop_back();
        continue;
      }
      const Use& use = contents.uses[step.next++];
      const auto state = m_contents[use.block].state;
      if (state == Contents::kOpen)
        m_context.error("block-cycle", use.reference,
                        "the block " + nameOf(use.block) + " contains itself by way of " +
                            AuditContext::describe(use.reference));
      else if (state == Contents::kNew)
        open(use.block);
    }
  }
}
