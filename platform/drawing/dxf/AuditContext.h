#pragma once
// What the parts of the audit share. Internal to the audit.
#include "DbStore.h"
#include "DrawingAudit.h"

/// Changes to the groups of one object, applied together.
struct AuditEdits {
  struct Edit {
    int first, last;               ///< the groups that go
    std::vector<OdDbGroup> groups; ///< those that come
    OdString text;                 ///< where not empty, the new value of the one group, which stays
  };
  std::vector<Edit> edits; ///< none overlaps another
  void remove(int first, int last) { edits.push_back({first, last, {}, {}}); }
  void replace(int index, const OdDbGroup& group) { edits.push_back({index, index + 1, {group}, {}}); }
  void insert(int index, const OdDbGroup& group) { edits.push_back({index, index, {group}, {}}); }
  void replaceText(int index, const OdString& text) { edits.push_back({index, index + 1, {}, text}); }
};

class AuditContext {
public:
  AuditContext(OdDbDatabase& drawing, OdDbAuditMode mode, OdDbDxfFindings& findings)
      : database(drawing), store(drawing.store()), repairs(mode == OdDbAuditMode::repair),
        m_findings(findings) {}

  OdDbDatabase& database;
  OdDbStore& store;
  const bool repairs;        ///< whether the drawing may be changed
  bool tellsRemedies = true; ///< whether sentences say what repair does

  void error(const char* id, const OdDbStub* stub, const std::string& fault);
  /// `remedy` says what repair does.
  void repair(const char* id, const OdDbStub* stub, const std::string& fault, const std::string& remedy);
  /// Applies the changes in repair mode.
  void apply(OdDbStub* stub, AuditEdits& edits) const;

  static std::string describe(const OdDbStub* stub);
  static std::string quoted(const OdString& name) { return "\"" + name.toUtf8() + "\""; }

private:
  OdDbDxfFindings& m_findings;
};
