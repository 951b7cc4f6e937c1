#pragma once
// Walks the store of a database and writes its records. Internal to the file writers.
#include "ClassRecords.h"
#include "DbStore.h"
#include "DxfFileFiler.h"
#include <unordered_map>

class DxfStoreWriter {
public:
  DxfStoreWriter(OdDbStore& store, DxfOutput& output);
  void write();

  /// The layout of the file that the store was read from.
  static DxfStyle styleOf(const OdDbStore& store);
  /// The objects in the order they were written.
  const std::vector<const OdDbStub*>& written() const { return m_written; }
  /// What was written of an object instead of its own groups; null for most.
  const OdDbGroupList* replacement(const OdDbStub* stub) const;

private:
  std::vector<OdDbSection> plannedSections() const;
  bool hasContents(std::string_view section) const;
  void writeSection(const OdDbSection& section);
  void writeHeader(std::string_view asRead);
  void writeClasses(std::string_view asRead);
  void writeTables();
  void writeBlocks();
  std::vector<const OdDbStub*> spaces() const;
  void writeSpaces();
  void writeList(const OdDbStubList* list);
  void writeEntity(OdDbStub* stub);
  void writeReference(OdDbStub* stub);
  void writeRecord(OdDbStub* stub);
  bool isStored(const std::string& tableName) const;

  OdDbStore& m_store;
  DxfOutput& m_output;
  OdDbDxfFileFiler m_filer;
  OdDbStub* m_modelSpace;
  OdDbStub* m_paperSpace;
  std::vector<DxfClassRecord> m_missingClasses; ///< not declared yet
  std::vector<const OdDbStub*> m_written;
  std::unordered_map<const OdDbStub*, OdDbGroupListPtr> m_replacements;
};
