#pragma once
// The contents of a database: stubs, their lists and indexes, the file sections kept as read. Internal to the
// drawing library; the reader fills it, the writer walks it.
#include "DbStub.h"
#include "DbUndo.h"
#include "OdError.h"
#include <limits>
#include <map>
#include <memory>
#include <memory_resource>
#include <unordered_map>

/// Parses file slices. Implemented by the readers of each file form.
class OdDbRawParser {
public:
  virtual ~OdDbRawParser() = default;
  static constexpr int kEveryGroup = std::numeric_limits<int>::min();
  /// Appends the groups of a slice to `out`, those behind the first one with the code `last` left out. A
  /// malformed group throws eDxfReadError that names its place.
  virtual void parse(std::string_view raw, OdDbGroupList& out, int last = kEveryGroup) const = 0;
};

/// A record name of drawing files and the class that models it; `cls` is never null.
struct OdDbType {
  std::string dxfName;
  const OdRxClass* cls;
  bool isShared = false; ///< several classes have the name; the contents of a record tell which
  bool wasMade = false;  ///< some object of it was made since reading; it may have been erased again
};

/// A section of the file in its place. `raw` is everything between the section's name and its ENDSEC, for
/// sections that are kept as read (also the comments before the first section, with an empty name).
struct OdDbSection {
  std::string name;
  std::string_view raw;
  std::string_view lead = {}; ///< comments between the name and the first record
  std::string_view head = {}; ///< the bytes of the record that begins the section, up to its name
  std::string_view foot = {}; ///< the bytes of the record that ends it
};

/// A variable of the header with its groups.
struct OdDbHeaderVariable {
  std::string name; ///< with its $
  OdDbGroupListPtr groups;
};

/// Hash index from handles to stubs: open addressing, 8 bytes an entry.
class OdDbHandleIndex {
public:
  OdDbHandleIndex();
  OdDbStub* find(OdUInt64 handle) const;
  /// False when the handle is taken.
  bool insert(OdDbStub* stub);
  void reserve(std::size_t count);
  std::size_t size() const { return m_count; }

private:
  static constexpr std::size_t kLine = 8; ///< slots in a line of the processor's cache
  std::size_t slot(OdUInt64 handle) const;
  std::pmr::vector<OdDbStub*> m_slots; ///< a power of two
  int m_shift = 0;                     ///< leaves as many bits of a hash as there are lines
  std::size_t m_count = 0;
};

class OdDbStore {
public:
  explicit OdDbStore(OdDbDatabase* database);
  ~OdDbStore();
  OdDbStore(const OdDbStore&) = delete;
  OdDbStore& operator=(const OdDbStore&) = delete;

  OdDbDatabase* const database;
  /// The same for what may outlive the drawing: it expires with it.
  const std::shared_ptr<OdDbDatabase* const> token = std::make_shared<OdDbDatabase* const>(database);
  OdDbUndoLog undo;

  // --- the file as read ---
  std::shared_ptr<void> image;                 ///< keeps the bytes alive that `raw` views point into
  std::shared_ptr<const OdDbRawParser> parser; ///< for slices of the image
  std::shared_ptr<OdDbTextCodec> codec;
  OdString fileName;
  OdDb::DwgVersion version = OdDb::vAC32;
  /// Whether the records of the drawing have handles, and whether they have subclass markers and owners. The
  /// oldest releases have neither; objects have handles all the same while the drawing is open.
  bool hasHandles = true;
  bool hasMarkers = true;
  bool tableRecordsHaveHandles = true; ///< of releases before R13, some files have them and some have not
  bool hasBlockRecords = true; ///< whether they are stored; the oldest releases know blocks by name only
  std::vector<OdDbSection> sections; ///< in file order
  std::string_view tail;             ///< EOF and what follows it, kept

  // --- header ---
  std::vector<OdDbHeaderVariable> header;
  OdDbHeaderVariable* headerVariable(std::string_view name);
  /// Replaces (or, with null, removes) a variable; recorded for undo.
  void setHeaderVariable(const std::string& name, OdDbGroupListPtr groups);
  /// Without recording; for the undo log and the reader.
  void storeHeaderVariable(const std::string& name, OdDbGroupListPtr groups);

  // --- objects ---
  /// Grows with each change of an object or of a list of objects, recorded or not.
  OdUInt64 revision = 0;
  std::vector<OdDbType> types;
  /// Index of the type with this record name; unknown names get the class for kept entities or objects.
  OdUInt16 typeIndex(std::string_view dxfName, bool entity);
  /// The class that an object is opened as.
  const OdRxClass* classOf(const OdDbStub& stub) const;
  /// The type of a TABLE record: its record name is "TABLE", its class the one registered under "TABLE LAYER"
  /// and so on.
  OdUInt16 tableTypeIndex(std::string_view tableName);
  /// A new stub, not linked anywhere. Handle 0 takes the next free one. A handle that is taken gives null.
  OdDbStub* makeStub(OdUInt16 type, OdUInt64 handle, OdDbStub* owner);
  OdDbStub* find(OdUInt64 handle) const { return m_index.find(handle); }
  /// How many objects there are, erased ones too.
  std::size_t objectCount() const { return m_index.size(); }
  OdDbStubList* childrenOf(OdDbStub* container);
  OdDbStubList objects; ///< the OBJECTS section
  OdDbStub* table(std::string_view name) const;
  /// The block record of model space, or that of the paper space that was current; null when there is none.
  OdDbStub* space(bool paper);
  /// The block record that the entities outside of paper space tell as their owner; it holds model space
  /// where no record has that name.
  OdDbStub* unnamedModelSpace = nullptr;
  std::vector<std::pair<std::string, OdDbStub*>> tables; ///< in file order, by name ("LAYER")
  std::unordered_map<const OdDbStub*, std::string_view>
      tableTails; ///< the bytes of the records that end tables
  /// The block definition a block record owns in the file: the BLOCK and ENDBLK records.
  struct BlockEnds {
    OdDbStub* begin = nullptr;
    OdDbStub* end = nullptr;
  };
  std::unordered_map<OdDbStub*, BlockEnds> blockEnds; ///< by block record
  std::vector<OdDbStub*> blockOrder;                  ///< block records in the order of the BLOCKS section
  OdUInt64 nextHandle = 1;                            ///< grows only; the stored seed is a header variable

  /// Puts the stub into its list, behind `after` or at the end (but before the end mark of a sequence), and
  /// records that.
  void link(OdDbStub* stub, OdDbStub* after = nullptr);
  /// A stub for a new object: takes a free handle and records the new handle seed.
  OdDbStub* makeNewStub(const OdRxClass* cls, std::string_view dxfName, OdDbStub* owner, OdUInt64 handle = 0);
  /// Makes `object` the open instance of the stub.
  void attach(OdDbStub* stub, OdDbObject* object);
  /// The open instance of the stub, made when there is none. The caller owns one reference.
  OdDbObject* open(OdDbStub* stub);
  /// Makes room for about as many objects.
  void reserve(std::size_t objectCount);
  std::pmr::memory_resource& arena() { return m_arena; }

  // --- names of table records, without regard to case ---
  /// The first record of the table, not erased, whose name folds to the same; null when there is none.
  OdDbStub* findRecord(OdDbStub* table, std::wstring_view name);
  /// To be called when a record got another name, was added, or its groups were replaced.
  void refreshRecordName(OdDbStub* record);
  /// The folded name of a record of a table; empty for anything else.
  const std::wstring& foldedName(OdDbStub* record);
  /// The name of a table record: its first group 2.
  static OdString recordName(const OdDbGroupList& groups);

  /// Number of instances that are open.
  int liveCount() const { return m_liveCount; }

private:
  struct NameIndex {
    struct Entry {
      std::wstring folded;
      OdUInt64 number; ///< counts the namings, so that of equal names the first stays the first
    };
    /// By folded name. Damaged drawings can have any number of one name, which are renamed one by one.
    std::unordered_map<std::wstring, std::map<OdUInt64, OdDbStub*>> records;
    std::unordered_map<OdDbStub*, Entry> names;
    OdUInt64 nextNumber = 0;
    void set(OdDbStub* record, std::wstring folded);
  };
  NameIndex& nameIndex(OdDbStub* table);
  void addChunk(std::size_t capacity);

  std::pmr::monotonic_buffer_resource m_arena;
  OdDbHandleIndex m_index;
  std::unordered_map<OdDbStub*, NameIndex> m_names;
  std::map<std::pair<std::string, bool>, OdUInt16, std::less<>> m_typeByName;
  std::vector<OdDbStub*> m_changed; ///< stubs that own groups, for the destructor
  /// None grows beyond its capacity, so that stubs stay where they are.
  std::vector<std::pmr::vector<OdDbStub>> m_stubs;
  int m_liveCount = 0;
  OdUInt32 m_seedEpoch = 0;
  friend class OdDbStub;
  friend class OdDbObject;
};
