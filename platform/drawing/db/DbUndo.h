#pragma once
// The undo log of a database. Internal to the drawing library.
#include "DbStub.h"
#include <string>
#include <variant>
#include <vector>

class OdDbUndoLog {
public:
  explicit OdDbUndoLog(OdDbStore& store) : m_store(store) {}

  /// To be called before the stub's state changes. Costs nothing when the state was saved since the last
  /// boundary.
  void noteChange(OdDbStub* stub);
  /// To be called after a stub was linked into its list for the first time.
  void noteLink(OdDbStub* stub);
  /// To be called before a header variable changes; its groups as they are, empty when it does not exist.
  void noteHeader(const std::string& name, OdDbGroupListPtr groups);

  void startRecord();
  void setMark();
  /// Takes back everything since the last record start (or mark, whichever is asked for). False: nothing to
  /// undo.
  bool undo(bool toMark);
  /// Takes back everything since the last record start as if the record had never been begun: nothing to
  /// redo.
  void cancelRecord();
  bool redo();
  bool hasUndo() const;
  bool hasRedo() const { return !m_redo.empty(); }
  /// Grows whenever something changes that is recorded, also by undo and redo: equal values mean an equal
  /// drawing.
  OdUInt64 changes() const { return m_changes; }
  void clear();
  void setRecording(bool on);
  bool isRecording() const { return m_recording; }
  /// Grows whenever the log changes hands between "saved" and "not yet saved" states.
  OdUInt32 epoch() const { return m_epoch; }

  void startTransaction();
  /// Throws eNoActiveTransactions without one.
  void endTransaction();
  void abortTransaction();
  int transactions() const { return static_cast<int>(m_transactions.size()); }

private:
  struct Changed {
    OdDbStub* stub;
    OdDbStubState state;
  };
  struct Linked {
    OdDbStub* stub;
    OdDbStub* after;
    bool linked;
  };
  struct Header {
    std::string name;
    OdDbGroupListPtr groups;
  };
  struct Boundary {
    bool mark;
  };
  using Entry = std::variant<Changed, Linked, Header, Boundary>;

  bool wanted() const { return (m_recording || !m_transactions.empty()) && !m_replaying; }
  void push(Entry entry);
  void nextEpoch() { ++m_epoch; }
  /// Replays entries backwards down to `size` and returns their inverses in the order of replay.
  std::vector<Entry> rollBack(std::vector<Entry>& entries, std::size_t size);
  void invert(Entry& entry);

  OdDbStore& m_store;
  std::vector<Entry> m_entries;
  std::vector<std::vector<Entry>> m_redo;
  std::vector<std::size_t> m_transactions;
  OdUInt32 m_epoch = 1;
  OdUInt64 m_changes = 0;
  bool m_recording = true;
  bool m_replaying = false;
};
