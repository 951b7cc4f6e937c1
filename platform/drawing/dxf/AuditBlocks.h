#pragma once
// Block definitions: that there is one for each block record, that their flags are true, and that none
// contains itself. Internal to the audit.
#include "AuditContext.h"

class AuditBlocks {
public:
  explicit AuditBlocks(AuditContext& context) : m_context(context) {}
  void checkDefinitions();
  /// Notes what a block contains.
  void noteObject(const OdDbStub* stub, const OdDbGroupList& groups);
  /// To be called when all objects were noted.
  void checkFlags();
  void checkCycles();

private:
  struct Use {
    const OdDbStub* reference;
    OdDbStub* block;
  };
  struct Contents {
    std::vector<Use> uses;
    bool hasDefinitions = false; ///< of attributes that vary
    enum { kNew, kOpen, kDone } state = kNew;
  };
  static std::string nameOf(const OdDbStub* block);

  AuditContext& m_context;
  std::unordered_map<const OdDbStub*, Contents> m_contents; ///< by block record
};
