#include "DbUndo.h"
#include "DbStore.h"
#include "OdError.h"
#include <algorithm>

void OdDbUndoLog::push(Entry entry) {
  ++m_changes;
  m_redo.clear();
  m_entries.push_back(std::move(entry));
}

void OdDbUndoLog::noteChange(OdDbStub* stub) {
  if (!wanted() || stub->loggedEpoch == m_epoch) return;
  stub->loggedEpoch = m_epoch;
  push(Changed{stub, stub->state()});
}

void OdDbUndoLog::noteLink(OdDbStub* stub) {
  if (!wanted()) return;
  stub->loggedEpoch = m_epoch; // taking the object back takes all its changes back
  push(Linked{stub, stub->previous, true});
}

void OdDbUndoLog::noteHeader(const std::string& name, OdDbGroupListPtr groups) {
  if (wanted()) push(Header{name, std::move(groups)});
}

void OdDbUndoLog::startRecord() {
  if (m_recording) m_entries.push_back(Boundary{false});
  nextEpoch();
}

void OdDbUndoLog::setMark() {
  if (m_recording) m_entries.push_back(Boundary{true});
  nextEpoch();
}

void OdDbUndoLog::invert(Entry& entry) {
  if (!std::holds_alternative<Boundary>(entry)) ++m_changes;
  if (auto* changed = std::get_if<Changed>(&entry)) {
    changed->stub->exchange(changed->state);
  } else if (auto* linked = std::get_if<Linked>(&entry)) {
    OdDbStubList* list = linked->stub->list();
    if (linked->linked) {
      list->unlink(linked->stub);
      linked->stub->flags |= OdDbStub::kDetached;
    } else {
      list->link(linked->stub, linked->after);
      linked->stub->flags &= static_cast<OdUInt16>(~OdDbStub::kDetached);
    }
    linked->linked = !linked->linked;
    ++m_store.revision;
    m_store.refreshRecordName(linked->stub);
  } else if (auto* header = std::get_if<Header>(&entry)) {
    const OdDbHeaderVariable* variable = m_store.headerVariable(header->name);
    OdDbGroupListPtr current = variable ? variable->groups : OdDbGroupListPtr();
    m_store.storeHeaderVariable(header->name, header->groups);
    header->groups = std::move(current);
  }
}

std::vector<OdDbUndoLog::Entry> OdDbUndoLog::rollBack(std::vector<Entry>& entries, std::size_t size) {
  m_replaying = true;
  std::vector<Entry> inverses;
  inverses.reserve(entries.size() - size);
  while (entries.size() > size) {
    invert(entries.back());
    inverses.push_back(std::move(entries.back()));
    entries.pop_back();
  }
  m_replaying = false;
  nextEpoch();
  return inverses;
}

bool OdDbUndoLog::undo(bool toMark) {
  if (!m_transactions.empty())
    throw OdError(eNotApplicable, L"Undo is not possible while a transaction is open.");
  const auto isBoundary = [toMark](const Entry& entry) {
    const auto* boundary = std::get_if<Boundary>(&entry);
    return boundary && boundary->mark == toMark;
  };
  const auto isWork = [](const Entry& entry) { return !std::holds_alternative<Boundary>(entry); };
  // Records without any change are passed over: undo always takes something back.
  auto work = std::find_if(m_entries.rbegin(), m_entries.rend(), isWork);
  if (work == m_entries.rend() && !toMark) return false;
  auto from = toMark ? m_entries.rbegin() : work;
  auto boundary = std::find_if(from, m_entries.rend(), isBoundary);
  if (toMark && boundary == m_entries.rend()) return false;
  const std::size_t size =
      boundary == m_entries.rend() ? 0 : static_cast<std::size_t>(m_entries.rend() - boundary) - 1;
  m_redo.push_back(rollBack(m_entries, size));
  return true;
}

void OdDbUndoLog::cancelRecord() {
  if (!m_transactions.empty())
    throw OdError(eNotApplicable, L"Undo is not possible while a transaction is open.");
  const auto start = std::find_if(m_entries.rbegin(), m_entries.rend(), [](const Entry& entry) {
    const auto* boundary = std::get_if<Boundary>(&entry);
    return boundary && !boundary->mark;
  });
  if (start != m_entries.rend()) rollBack(m_entries, static_cast<std::size_t>(m_entries.rend() - start) - 1);
}

bool OdDbUndoLog::redo() {
  if (m_redo.empty()) return false;
  std::vector<Entry> record = std::move(m_redo.back());
  m_redo.pop_back();
  std::vector<Entry> restored = rollBack(record, 0);
  std::move(restored.begin(), restored.end(), std::back_inserter(m_entries));
  return true;
}

bool OdDbUndoLog::hasUndo() const {
  return std::any_of(m_entries.begin(), m_entries.end(),
                     [](const Entry& entry) { return !std::holds_alternative<Boundary>(entry); });
}

void OdDbUndoLog::clear() {
  m_entries.clear();
  m_redo.clear();
  nextEpoch();
}

void OdDbUndoLog::setRecording(bool on) {
  if (m_recording == on) return;
  m_recording = on;
  // What changes unrecorded would make the older records restore states that no longer fit.
  if (!on && m_transactions.empty()) clear();
  nextEpoch();
}

void OdDbUndoLog::startTransaction() {
  m_transactions.push_back(m_entries.size());
  nextEpoch();
}

void OdDbUndoLog::endTransaction() {
  if (m_transactions.empty()) throw OdError(eNoActiveTransactions);
  const std::size_t start = m_transactions.back();
  m_transactions.pop_back();
  if (m_transactions.empty() && !m_recording)
    m_entries.erase(m_entries.begin() + static_cast<long>(start), m_entries.end());
}

void OdDbUndoLog::abortTransaction() {
  if (m_transactions.empty()) throw OdError(eNoActiveTransactions);
  const std::size_t start = m_transactions.back();
  m_transactions.pop_back();
  rollBack(m_entries, start);
}
