#pragma once
// Layouts and the block records with their contents, which must point to each other. Internal to the audit.
#include "AuditContext.h"

class AuditLayouts {
public:
  explicit AuditLayouts(AuditContext& context) : m_context(context) {}
  void check();

private:
  void collect();
  void settle(OdDbStub* layout, OdDbStub* block);
  /// The block for a layout that has lost its own; null when there is none to take.
  OdDbStub* lostBlock(const OdDbStub* layout);
  OdDbStub* nextFreeSheet();
  void checkListed(OdDbStub* layout) const;
  void checkBlock(OdDbStub* block);
  void makeLayout(OdDbStub* block);

  AuditContext& m_context;
  std::vector<OdDbStub*> m_layouts;
  std::vector<OdDbStub*> m_blocks;                                ///< all block records
  std::unordered_map<const OdDbStub*, OdUInt64> m_told;           ///< the layout that a block record tells
  std::unordered_map<OdUInt64, OdDbStub*> m_tellers;              ///< the same the other way
  std::unordered_map<const OdDbStub*, OdDbStub*> m_layoutOfBlock; ///< as it is to be
  std::size_t m_nextSheet = 0; ///< block records before it are no free sheets
};
