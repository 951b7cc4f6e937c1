#pragma once
// The names of table records, and the records that objects name. Internal to the audit.
#include "AuditContext.h"
#include "DbNameUses.h"
#include <deque>
#include <unordered_set>

class AuditNames {
public:
  explicit AuditNames(AuditContext& context);
  /// Looks at the records of all tables; to be called first.
  void checkRecords();
  void checkObject(const OdDbStub* stub, const OdDbGroupList& groups, AuditEdits& edits);
  void checkHeader();
  /// Makes the records that were missed; to be called last.
  void makeMissing();

private:
  struct Table {
    std::string name;
    OdDbStub* stub = nullptr;
    std::unordered_map<std::wstring, OdString> renamed; ///< new names by folded old ones
    std::unordered_set<std::string> known;              ///< names that are in order, as files store them
    std::vector<OdString> missing;
    std::unordered_set<std::wstring> missed;           ///< those of `missing`, folded
    std::unordered_map<std::wstring, int> lastNumbers; ///< of the names that were made from a name
  };
  void checkRecord(Table& table, OdDbStub* record, std::unordered_set<std::wstring>& names);
  void rename(Table& table, OdDbStub* record, const OdDbGroupList& groups, const OdString& name);
  OdString freeName(Table& table, const OdString& like, const std::unordered_set<std::wstring>& names);
  void checkUse(Table& table, const OdDbStub* stub, const OdDbGroupList& groups, int index,
                AuditEdits& edits);
  void miss(Table& table, const OdDbStub* stub, const OdString& name);
  const std::vector<std::pair<const OdDbNameUse*, Table*>>& usesOf(const OdDbStub* stub);
  Table* table(std::string_view name);
  bool makes(const Table& table) const;

  AuditContext& m_context;
  std::deque<Table> m_tables;
  /// By type of object.
  std::unordered_map<OdUInt16, std::vector<std::pair<const OdDbNameUse*, Table*>>> m_uses;
};
