#pragma once
// Fills the store of a database with the records of a file. Internal to the file readers.
#include "DbStore.h"
#include "DxfReader.h"
#include "DxfRecord.h"
#include "DxfText.h"
#include <unordered_set>

class DxfBuilder {
public:
  DxfBuilder(OdDbStore& store, const DxfText& text, DxfRecordSource& source,
             const OdDbDxfReadOptions& options);
  /// Reads everything. Throws OdError_FileException.
  void build();

private:
  /// Beyond this, a drawing could run out of handles for new objects.
  static constexpr OdUInt64 kLargestHandle = 0xFFFFFFFF00000000;

  bool next();
  [[noreturn]] void fail(const std::string& sentence) const { m_text.fail(m_record.place, sentence); }
  void reportProgress();

  // --- sections ---
  void readSection();
  void noteOrder(std::string_view name);
  /// Gives texts an encoding where no header has told it.
  void assumeCodec();
  void keepComments(std::string_view raw);
  /// The next record of the section; false at its end. Where the file or another section begins instead,
  /// fails.
  bool nextIn(const char* section);
  void skipSection();
  void readHeader();
  void readRelease(const OdDbGroupList& all);
  OdInt64 integerVariable(std::string_view name) const;
  OdUInt64 storedSeed() const;
  void readTables();
  void readTable();
  void readBlocks();
  void readBlock();
  void readEntities();
  void failOutOfPlace() const;
  void readObjects();
  void resolveOwners();
  void noteForm();
  void finishSeed();
  /// A file that does not tell its release may hold them all the same.
  bool storesBlockRecords() const {
    return dxfStoresBlockRecords(m_store.version) || m_tableNames.contains("BLOCK_RECORD");
  }

  // --- objects ---
  OdUInt16 type(bool entity);
  OdUInt16 checked(OdUInt16 type) const;
  OdDbStub* makeStub(OdUInt16 type, OdDbStub* owner);
  OdDbStub* makeEntity(OdDbStub* owner);
  /// A handle that nothing in the file has.
  OdUInt64 freeHandle();
  void readEntity(OdDbStub* block);
  void readMember();
  void closeSequence();
  OdDbStub* makeNew(OdUInt16 type, OdDbStub* owner, const OdDbGroupListPtr& groups);
  [[noreturn]] void failDuplicate() const;

  // --- block records ---
  OdDbStub* blockTable();
  OdDbStub* blockRecordOf(const DxfRecord& block);
  OdDbStub* makeBlockRecord(const OdString& name);
  OdDbStub* space(bool paper);
  void makeBlockEnds(OdDbStub* record, const OdString& name);
  OdDbStub* entityBlock();
  void checkOwner(const OdDbStub* block) const;
  bool isMember() const;

  struct Unresolved {
    OdDbStub* stub;
    OdUInt64 owner;
  };
  struct TypeSlot {
    std::string_view name;
    OdUInt16 type = 0;
    bool entity = false;
  };

  OdDbStore& m_store;
  const DxfText& m_text;
  DxfRecordSource& m_source;
  const OdDbDxfReadOptions& m_options;
  DxfRecord m_record;
  const char* m_nextReport;
  int m_lastRank = -1;
  std::string m_lastRanked;
  OdDbStub* m_sequence = nullptr; ///< the reference or polyline whose members may follow
  std::vector<Unresolved> m_unresolved;
  std::unordered_set<std::string> m_tableNames;
  OdDbStub* m_spaces[2] = {};
  bool m_hasHandles = false; ///< whether any record of the file has one
  bool m_tableRecordsHaveHandles = false;
  bool m_handlesAreFree = false; ///< whether the store's next handle is beyond every handle of the file
  OdDbStub* m_blockTable = nullptr;
  OdUInt64 m_largestHandle = 0; ///< of those that are stored, now or in the next file
  static constexpr std::size_t kTypeSlots = 64;
  TypeSlot m_types[kTypeSlots];
};
