#include "AuditLayouts.h"
#include "DbBlockTableRecord.h"
#include "DbDictionary.h"
#include "DbLayout.h"
#include "DxfRecord.h"

namespace {

constexpr int kNameCode = 1;
constexpr int kLayoutCode = 340;
constexpr int kBlockCode = 330;
const OdDbSubclass kRecordSection{"AcDbBlockTableRecord", {}};
const OdDbSubclass kLayoutSection{"AcDbLayout", {}};

OdUInt64 handleIn(const OdDbStub* stub, const OdDbSubclass& section, int code) {
  const OdDbGroupListPtr groups = stub->content();
  const int at = odDbGroups::find(*groups, section, code);
  return at >= 0 && (*groups)[at].kind == OdDbGroupKind::kHandle ? (*groups)[at].handle : 0;
}

bool isSheet(OdDbStub* block) { return block->store->foldedName(block).starts_with(L"*paper_space"); }

std::string nameOf(const OdDbStub* layout) {
  const OdDbLayoutPtr opened = OdDbLayout::cast(OdDbObjectId(const_cast<OdDbStub*>(layout)).openObject());
  return opened.isNull() ? std::string("\"\"") : AuditContext::quoted(opened->getLayoutName());
}

} // namespace

void AuditLayouts::check() {
  if (!dxfStoresBlockRecords(m_context.store.version)) return;
  collect();
  std::vector<OdDbStub*> lost;
  std::vector<OdDbStub*> untold;
  for (OdDbStub* layout : m_layouts) {
    OdDbStub* block = m_context.store.find(handleIn(layout, kLayoutSection, kBlockCode));
    if (!block || !m_told.contains(block))
      lost.push_back(layout);
    else if (m_told[block] == layout->handle)
      m_layoutOfBlock.emplace(block, layout);
    else
      untold.push_back(layout);
  }
  for (OdDbStub* layout : untold) {
    OdDbStub* block = m_context.store.find(handleIn(layout, kLayoutSection, kBlockCode));
    if (m_layoutOfBlock.contains(block))
      lost.push_back(layout);
    else
      settle(layout, block);
  }
  for (OdDbStub* layout : lost) {
    if (OdDbStub* block = lostBlock(layout))
      settle(layout, block);
    else
      m_context.error("layout-without-block", layout,
                      "the layout " + nameOf(layout) + " has no block record with its contents");
  }
  for (OdDbStub* layout : m_layouts) checkListed(layout);
  for (OdDbStub* block : m_blocks) checkBlock(block);
}

void AuditLayouts::collect() {
  for (OdDbStub* stub = m_context.store.objects.first; stub; stub = stub->next)
    if (stub->dxfName() == "LAYOUT" && !stub->isErased()) {
      if (odDbGroups::find(*stub->content(), kLayoutSection, kNameCode) >= 0)
        m_layouts.push_back(stub);
      else
        m_context.error("layout-without-name", stub, AuditContext::describe(stub) + " has no name");
    }
  const OdDbStub* table = m_context.store.table("BLOCK_RECORD");
  for (OdDbStub* block = table && table->children ? table->children->first : nullptr; block;
       block = block->next) {
    if (block->isErased() || block->dxfName() != "BLOCK_RECORD") continue;
    m_blocks.push_back(block);
    m_told[block] = handleIn(block, kRecordSection, kLayoutCode);
    m_tellers.emplace(m_told[block], block);
  }
}

OdDbStub* AuditLayouts::nextFreeSheet() {
  for (; m_nextSheet < m_blocks.size(); ++m_nextSheet)
    if (isSheet(m_blocks[m_nextSheet]) && !m_layoutOfBlock.contains(m_blocks[m_nextSheet]))
      return m_blocks[m_nextSheet];
  return nullptr;
}

OdDbStub* AuditLayouts::lostBlock(const OdDbStub* layout) {
  const auto teller = m_tellers.find(layout->handle);
  if (teller != m_tellers.end() && !m_layoutOfBlock.contains(teller->second)) return teller->second;
  const OdDbLayoutPtr opened = OdDbLayout::cast(OdDbObjectId(const_cast<OdDbStub*>(layout)).openObject());
  if (opened.isNull() || opened->getLayoutName().iCompare(L"Model") != 0) return nextFreeSheet();
  OdDbStub* model = m_context.database.getModelSpaceId().stub();
  return model && !m_layoutOfBlock.contains(model) ? model : nullptr;
}

/// Has a layout and a block record point to each other.
void AuditLayouts::settle(OdDbStub* layout, OdDbStub* block) {
  m_layoutOfBlock[block] = layout;
  const std::string names =
      "the layout " + nameOf(layout) + " and the block record " + OdDbHandle(block->handle).ascii().toUtf8();
  m_context.repair("layout-link", layout, names + " do not point to each other", "they do");
  if (!m_context.repairs) return;
  const OdDbLayoutPtr opened = OdDbLayout::cast(OdDbObjectId(layout).openObject(OdDb::kForWrite));
  const OdDbBlockTableRecordPtr record =
      OdDbBlockTableRecord::cast(OdDbObjectId(block).openObject(OdDb::kForWrite));
  if (opened.isNull() || record.isNull()) return;
  opened->setBlockTableRecordId(OdDbObjectId(block));
  record->setLayoutId(OdDbObjectId(layout));
}

void AuditLayouts::checkListed(OdDbStub* layout) const {
  const OdDbObjectId listId = m_context.database.getLayoutDictionaryId(false);
  const OdDbDictionaryPtr list = OdDbDictionary::cast(listId.openObject(OdDb::kForWrite));
  if (list.isNull() || list->has(OdDbObjectId(layout))) return;
  const OdDbLayoutPtr opened = OdDbLayout::cast(OdDbObjectId(layout).openObject(OdDb::kForWrite));
  if (opened.isNull()) return;
  const OdString name = opened->getLayoutName();
  const std::string fault =
      "the layout " + AuditContext::quoted(name) + " is not in the dictionary of layouts";
  if (name.isEmpty() || list->has(name)) return m_context.error("layout-not-listed", layout, fault);
  m_context.repair("layout-not-listed", layout, fault, "it is put there");
  if (m_context.repairs) list->setAt(name, opened);
}

/// A block record that no layout has must not tell one; sheets need a layout.
void AuditLayouts::checkBlock(OdDbStub* block) {
  if (m_layoutOfBlock.contains(block)) return;
  const OdUInt64 told = m_told[block];
  const std::string described = AuditContext::describe(block);
  if (told != 0) {
    m_context.repair("missing-layout", block,
                     described + " points to the layout " + OdDbHandle(told).ascii().toUtf8() +
                         ", which does not exist or has another block",
                     "it points to none");
    if (m_context.repairs) {
      const OdDbBlockTableRecordPtr record =
          OdDbBlockTableRecord::cast(OdDbObjectId(block).openObject(OdDb::kForWrite));
      if (!record.isNull()) record->setLayoutId({});
    }
  }
  const bool hasLayouts = !m_layouts.empty() && !m_context.database.getLayoutDictionaryId(false).isNull();
  const bool isModel = block == m_context.database.getModelSpaceId().stub();
  if (!hasLayouts || (!isModel && !isSheet(block))) return;
  const std::string fault = described + " holds the contents of a layout that does not exist";
  const OdDbDictionaryPtr list =
      OdDbDictionary::cast(m_context.database.getLayoutDictionaryId(false).openObject());
  if (isModel && !list.isNull() && list->has(L"Model"))
    return m_context.error("sheet-without-layout", block, fault);
  m_context.repair("sheet-without-layout", block, fault, "a layout is made");
  if (m_context.repairs) makeLayout(block);
}

void AuditLayouts::makeLayout(OdDbStub* block) {
  const OdDbDictionaryPtr list =
      OdDbDictionary::cast(m_context.database.getLayoutDictionaryId(false).openObject(OdDb::kForWrite));
  const OdDbBlockTableRecordPtr record =
      OdDbBlockTableRecord::cast(OdDbObjectId(block).openObject(OdDb::kForWrite));
  if (list.isNull() || record.isNull()) return;
  const bool isModel = block == m_context.database.getModelSpaceId().stub();
  OdString name = L"Model";
  for (std::size_t number = m_layouts.size(); !isModel && (name == L"Model" || list->has(name)); ++number)
    name = L"Layout" + OdString(std::to_wstring(number));
  if (list->has(name)) return;
  const OdDbLayoutPtr layout = OdDbLayout::createObject();
  list->setAt(name, layout);
  layout->setLayoutName(name);
  layout->setTabOrder(isModel ? 0 : static_cast<int>(m_layouts.size()));
  layout->setBlockTableRecordId(OdDbObjectId(block));
  record->setLayoutId(layout->objectId());
  m_layouts.push_back(layout->objectId().stub());
}
