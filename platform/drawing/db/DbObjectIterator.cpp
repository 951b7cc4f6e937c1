#include "DbObjectIterator.h"
#include "DbStub.h"
#include <algorithm>

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbObjectIterator, OdRxObject)

OdDbEntityPtr OdDbObjectIterator::entity(OdDb::OpenMode mode, bool openErased) const {
  return objectId().openObject(mode, openErased);
}

namespace {

class ListIterator final : public OdDbObjectIterator {
public:
  ListIterator(const OdDbStubList* list, std::string_view hidden) : m_list(list), m_hidden(hidden) {}

  void start(bool atBeginning, bool skipDeleted) override {
    m_current = m_list ? (atBeginning ? m_list->first : m_list->last) : nullptr;
    settle(atBeginning, skipDeleted);
  }
  bool done() const override { return m_current == nullptr; }
  void step(bool forward, bool skipDeleted) override {
    if (!m_current) return;
    advance(forward);
    settle(forward, skipDeleted);
  }
  OdDbObjectId objectId() const override { return OdDbObjectId(m_current); }
  bool seek(OdDbObjectId id) override {
    OdDbStub* stub = id.stub();
    if (!stub || !m_list || stub->list() != m_list || isHidden(stub)) return false;
    m_current = stub;
    return true;
  }

private:
  bool isHidden(const OdDbStub* stub) const { return !m_hidden.empty() && stub->dxfName() == m_hidden; }
  void advance(bool forward) { m_current = forward ? m_current->next : m_current->previous; }
  void settle(bool forward, bool skipDeleted) {
    while (m_current && ((skipDeleted && m_current->isErased()) || isHidden(m_current))) advance(forward);
  }

  const OdDbStubList* m_list;
  std::string m_hidden;
  OdDbStub* m_current = nullptr;
};

class IdIterator final : public OdDbObjectIterator {
public:
  explicit IdIterator(OdDbObjectIdArray ids) : m_ids(std::move(ids)) {}

  void start(bool atBeginning, bool skipDeleted) override {
    m_at = atBeginning ? 0 : size() - 1;
    settle(atBeginning, skipDeleted);
  }
  bool done() const override { return m_at < 0 || m_at >= size(); }
  void step(bool forward, bool skipDeleted) override {
    if (done()) return;
    m_at += forward ? 1 : -1;
    settle(forward, skipDeleted);
  }
  OdDbObjectId objectId() const override { return done() ? OdDbObjectId() : current(); }
  bool seek(OdDbObjectId id) override {
    OdDbObjectIdArray::size_type at = 0;
    if (!m_ids.find(id, at)) return false;
    m_at = static_cast<int>(at);
    return true;
  }

private:
  int size() const { return static_cast<int>(m_ids.size()); }
  OdDbObjectId current() const { return m_ids[static_cast<OdDbObjectIdArray::size_type>(m_at)]; }
  void settle(bool forward, bool skipDeleted) {
    while (!done() && skipDeleted && current().isErased()) m_at += forward ? 1 : -1;
  }

  OdDbObjectIdArray m_ids;
  int m_at = 0;
};

} // namespace

OdDbObjectIteratorPtr OdDbObjectIterator::overList(const OdDbStubList* list, std::string_view hidden,
                                                   bool atBeginning, bool skipDeleted) {
  OdDbObjectIteratorPtr iterator(new ListIterator(list, hidden), kOdRxObjAttach);
  iterator->start(atBeginning, skipDeleted);
  return iterator;
}

OdDbObjectIteratorPtr OdDbObjectIterator::overIds(OdDbObjectIdArray ids, bool atBeginning, bool skipDeleted) {
  OdDbObjectIteratorPtr iterator(new IdIterator(std::move(ids)), kOdRxObjAttach);
  iterator->start(atBeginning, skipDeleted);
  return iterator;
}
