#include "DbObject.h"
#include "DbDatabase.h"
#include "DbStore.h"
#include <algorithm>

ODRX_CONS_DEFINE_MEMBERS(OdDbObject, OdRxObject, "")

OdDbObject::OdDbObject() = default;
OdDbObject::~OdDbObject() = default;

void OdDbObject::release() {
  if (--m_references != 0) return;
  if (m_stub) {
    m_stub->live = nullptr;
    --m_stub->store->m_liveCount;
  }
  delete this;
}

void OdDbObject::detachFromStub() {
  if (!m_stub) return;
  m_stub->live = nullptr;
  --m_stub->store->m_liveCount;
  m_stub = nullptr;
  m_writable = false;
}

void OdDbObject::loadGroups() const {
  if (m_stub) {
    m_groups = m_stub->content();
    return;
  }
  m_groups.reset(new OdDbGroupList);
  odDbGroups::initialize(*m_groups, schema());
}

OdDbGroupList& OdDbObject::mutableGroups() {
  assertWriteEnabled();
  groups();
  if (m_stub) m_stub->store->undo.noteChange(m_stub);
  ++m_revision;
  if (m_stub) ++m_stub->store->revision;
  return mutableGroupsUnrecorded();
}

OdDbGroupList& OdDbObject::mutableGroupsUnrecorded() {
  // The instance and, for a changed object, its stub hold the list; any further holder is the undo log, whose
  // copy must stay as it is.
  const long holders = m_stub && m_stub->groups == m_groups.get() ? 2 : 1;
  if (useCount(*m_groups) > holders) m_groups.reset(new OdDbGroupList(*m_groups));
  if (m_stub && m_stub->groups != m_groups.get()) m_stub->setGroups(m_groups);
  return *m_groups;
}

// --- identity and state ---

OdDbHandle OdDbObject::getDbHandle() const { return m_stub ? OdDbHandle(m_stub->handle) : OdDbHandle(); }

OdDbObjectId OdDbObject::ownerId() const { return m_stub ? OdDbObjectId(m_stub->owner) : OdDbObjectId(); }

void OdDbObject::setOwnerId(OdDbObjectId owner) {
  if (!m_stub) throw OdError(eNotInDatabase);
  if (owner == ownerId()) return;
  mutableGroups();
  m_stub->owner = owner.stub();
}

OdDbDatabase* OdDbObject::database() const { return m_stub ? m_stub->store->database : nullptr; }

std::string OdDbObject::dxfName() const { return m_stub ? m_stub->dxfName() : isA()->dxfName(); }

bool OdDbObject::isErased() const { return m_stub && m_stub->isErased(); }

bool OdDbObject::isModified() const { return !m_stub || m_stub->isChanged(); }

void OdDbObject::upgradeOpen() {
  if (m_stub) m_writable = true;
}

void OdDbObject::assertWriteEnabled() const {
  if (!isWriteEnabled()) throw OdError(eNotOpenForWrite);
}

void OdDbObject::erase(bool erasing) {
  if (!m_stub) throw OdError(eNotInDatabase);
  assertWriteEnabled();
  const auto flags =
      static_cast<OdUInt16>(erasing ? m_stub->flags | OdDbStub::kErased : m_stub->flags & ~OdDbStub::kErased);
  if (flags == m_stub->flags) return;
  m_stub->store->undo.noteChange(m_stub);
  m_stub->flags = flags;
  ++m_stub->store->revision;
  rewriteOwner();
}

void OdDbObject::rewriteOwner() const {
  const auto inObjects = [](const OdDbStub* stub) { return stub && (stub->flags & OdDbStub::kInObjects); };
  if (!inObjects(m_stub) || !inObjects(m_stub->owner)) return;
  const OdDbObjectPtr owner = OdDbObjectId(m_stub->owner).openObject(OdDb::kForRead, true);
  const bool wasWritable = owner->m_writable;
  owner->m_writable = true;
  owner->mutableGroups();
  owner->m_writable = wasWritable;
}

// --- copies and exchanges of identity ---

OdDbObjectPtr OdDbObject::clone() const {
  OdDbObjectPtr copy = isA()->create();
  copy->copyFrom(this);
  return copy;
}

namespace {

constexpr int kBraceCode = 102;

/// The groups that belong to the identity of an object, not to its properties: extension dictionary and
/// reactors (102 {...}), and extended data.
struct Attached {
  OdDbGroupList braces;
  OdDbGroupList xData;
};

void copyGroups(const OdDbGroupList& from, int first, int last, OdDbGroupList& to, int at) {
  for (int i = first; i < last; ++i, ++at)
    to.insert(at, from[i].isText() ? to.makeText(from[i].code, from.text(i)) : from[i]);
}

void move(OdDbGroupList& from, int first, int last, OdDbGroupList& to) {
  copyGroups(from, first, last, to, to.size());
  from.erase(first, last);
}

void takeAttached(OdDbGroupList& groups, bool braces, bool xData, Attached& taken) {
  if (xData) move(groups, odDbGroups::xDataStart(groups), groups.size(), taken.xData);
  for (int i = 0; braces && i < groups.size() && groups[i].code != 100;) {
    if (groups[i].code != kBraceCode) {
      ++i;
      continue;
    }
    int last = i + 1;
    while (last < groups.size() && groups[last].code != kBraceCode) ++last;
    move(groups, i, std::min(last + 1, groups.size()), taken.braces);
  }
}

void putAttached(OdDbGroupList& groups, const Attached& taken) {
  int at = 0;
  while (at < groups.size() && (groups[at].flags & OdDbGroup::kOwnHandle)) ++at;
  copyGroups(taken.braces, 0, taken.braces.size(), groups, at);
  copyGroups(taken.xData, 0, taken.xData.size(), groups, groups.size());
}

bool containsObjects(const OdDbStub* stub) { return stub->children && stub->children->first; }

} // namespace

void OdDbObject::copyFrom(const OdDbObject* source) {
  OdDbGroupListPtr copy(new OdDbGroupList(source->groups()));
  copy->own();
  // An extension dictionary has one owner, and reactors watch one object: both stay with their object.
  Attached foreign;
  takeAttached(*copy, true, false, foreign);
  if (m_stub) {
    Attached own;
    OdDbGroupList before(mutableGroups());
    takeAttached(before, true, false, own);
    putAttached(*copy, own);
    m_stub->setGroups(copy);
  }
  m_groups = copy;
  ++m_revision;
  groupsReplaced();
}

void OdDbObject::swapIdWith(OdDbObjectId otherId, bool swapXData, bool swapExtDict) {
  if (!m_stub) throw OdError(eNotInDatabase);
  OdDbObjectPtr other = otherId.safeOpenObject(OdDb::kForWrite);
  if (other->database() != database()) throw OdError(eWrongDatabase);
  if (other.get() == this) return;
  if (containsObjects(m_stub) || containsObjects(other->m_stub))
    throw OdError(eNotApplicable, L"Objects that contain others cannot exchange their identity.");
  // The contents change places, and so do the instances: each object goes on as what it was, under the
  // other's id.
  OdDbGroupList& mine = mutableGroups();
  OdDbGroupList& others = other->mutableGroups();
  Attached myAttached;
  Attached othersAttached;
  takeAttached(mine, !swapExtDict, !swapXData, myAttached);
  takeAttached(others, !swapExtDict, !swapXData, othersAttached);
  putAttached(mine, othersAttached);
  putAttached(others, myAttached);
  std::swap(m_stub, other->m_stub);
  for (OdDbObject* object : {this, other.get()}) {
    object->m_stub->live = object;
    object->m_stub->setGroups(object->m_groups);
    ++object->m_revision;
    object->groupsReplaced();
  }
  if (m_stub->type != other->m_stub->type) {
    std::swap(m_stub->type, other->m_stub->type);
    for (OdDbStub* stub : {m_stub, other->m_stub}) stub->setMade();
  }
  m_stub->store->refreshRecordName(m_stub);
  m_stub->store->refreshRecordName(other->m_stub);
}

void OdDbObject::handOverTo(OdDbObject* heir, bool keepXData, bool keepExtDict) {
  if (!m_stub) throw OdError(eNotInDatabase);
  if (heir->m_stub) throw OdError(eAlreadyInDb);
  if (containsObjects(m_stub))
    throw OdError(eNotApplicable, L"An object that contains others cannot hand its identity over.");
  OdDbStub* stub = m_stub;
  OdDbGroupListPtr old(&mutableGroups());
  heir->groups();
  OdDbGroupListPtr own(new OdDbGroupList(*old));
  m_groups = own;
  detachFromStub();
  Attached attached;
  takeAttached(*own, keepExtDict, keepXData, attached);
  putAttached(*heir->m_groups, attached);
  stub->type = stub->store->typeIndex(heir->isA()->dxfName(), (stub->flags & OdDbStub::kEntity) != 0);
  stub->setMade();
  stub->setGroups(heir->m_groups);
  stub->store->attach(stub, heir);
  heir->m_writable = true;
  stub->store->refreshRecordName(stub);
}
