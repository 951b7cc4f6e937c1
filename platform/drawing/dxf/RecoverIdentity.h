#pragma once
// Handles and owners of a file that is being recovered: each handle once, each owner there and of the right
// kind. Internal to the recovering reader.
#include "RecoverStructure.h"
#include <unordered_set>

class RecoverIdentity {
public:
  RecoverIdentity(RecoverStructure& structure, RecoverHeader& header, RecoverContext& context,
                  std::shared_ptr<const OdDbTextCodec> codec)
      : m_structure(structure), m_header(header), m_context(context),
        m_storesBlockRecords(header.storesBlockRecords()), m_codec(std::move(codec)) {}
  void repair();

private:
  void findLargestHandle();
  void indexHandles();
  void indexHandle(RecoverRecord& record);
  void giveHandle(RecoverRecord& record);
  void adoptOrphans();
  void indexBlockRecords();
  void repairTables();
  void repairBlocks();
  RecoverRecord* blockRecordOf(RecoverRecord& head);
  RecoverRecord* makeBlockRecord(const RecoverRecord& head, OdUInt64 handle);
  void repairBlock(RecoverStructure::Part& block, const RecoverRecord* record);
  void repairEntities();
  void repairObjects();
  void setOwner(RecoverRecord& record, OdUInt64 owner, const char* id);
  std::string freeName(std::string_view like);
  std::wstring folded(std::string_view name) const;
  RecoverRecord* recordAt(OdUInt64 handle) const;
  RecoverRecord* blockRecordAt(OdUInt64 handle) const;
  void repairSeed();
  void tell(OdDbDxfFinding::Kind kind, const char* id, const RecoverRecord& record,
            const std::string& sentence);

  RecoverStructure& m_structure;
  RecoverHeader& m_header;
  RecoverContext& m_context;
  const bool m_storesBlockRecords;
  const std::shared_ptr<const OdDbTextCodec> m_codec; ///< as the reader is going to decode names
  OdUInt64 m_largest = 0;                             ///< of the handles given out
  OdUInt64 m_largestRead = 0;
  std::unordered_map<OdUInt64, RecoverRecord*> m_byHandle;
  std::unordered_map<OdUInt64, RecoverRecord*> m_renumbered; ///< block records by the handle that they lost
  std::unordered_set<const RecoverRecord*> m_blockRecords;
  std::unordered_map<std::wstring, RecoverRecord*> m_blockRecordsByName;
  std::unordered_set<std::wstring> m_blockNames;      ///< folded; of all blocks
  std::unordered_map<std::string, int> m_lastNumbers; ///< of the names that were made from a name
  std::unordered_set<const RecoverRecord*> m_defined; ///< block records whose block was met
};
