#pragma once
// What every object may hold wrong by itself: handles that lead to nothing, numbers that are none, a flag
// that is untrue. Internal to the audit.
#include "AuditContext.h"

class AuditObjects {
public:
  explicit AuditObjects(AuditContext& context) : m_context(context) {}
  void checkObject(const OdDbStub* stub, const OdDbGroupList& groups, AuditEdits& edits);

private:
  void checkNumbers(const OdDbStub* stub, const OdDbGroupList& groups, AuditEdits& edits);
  void checkBraces(const OdDbStub* stub, const OdDbGroupList& groups, AuditEdits& edits);
  void checkEntries(const OdDbStub* stub, const OdDbGroupList& groups, AuditEdits& edits);
  void checkAttributesFollow(const OdDbStub* stub, const OdDbGroupList& groups, AuditEdits& edits);
  bool leadsNowhere(const OdDbGroup& group) const;

  AuditContext& m_context;
};
