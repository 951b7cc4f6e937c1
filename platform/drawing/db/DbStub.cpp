#include "DbStub.h"
#include "DbObject.h"
#include "DbStore.h"

void OdDbStubList::link(OdDbStub* stub, OdDbStub* after) {
  stub->previous = after;
  stub->next = after ? after->next : first;
  (stub->previous ? stub->previous->next : first) = stub;
  (stub->next ? stub->next->previous : last) = stub;
}

void OdDbStubList::unlink(OdDbStub* stub) {
  (stub->previous ? stub->previous->next : first) = stub->next;
  (stub->next ? stub->next->previous : last) = stub->previous;
  stub->previous = stub->next = nullptr;
}

bool OdDbStub::isErased() const {
  // Ownership is shallow; the bound only matters in a drawing whose owners form a cycle.
  constexpr int kMaxDepth = 64;
  const OdDbStub* stub = this;
  for (int depth = 0; stub && depth < kMaxDepth; ++depth, stub = stub->owner)
    if (stub->flags & (kErased | kDetached)) return true;
  return false;
}

const std::string& OdDbStub::dxfName() const { return store->types[type].dxfName; }

void OdDbStub::setMade() {
  flags |= kMade;
  store->types[type].wasMade = true;
}

OdDbStubList* OdDbStub::list() const {
  if (flags & kInObjects) return &store->objects;
  return owner ? store->childrenOf(owner) : nullptr;
}

OdDbGroupListPtr OdDbStub::content() const { return contentUpTo(OdDbRawParser::kEveryGroup); }

OdDbGroupListPtr OdDbStub::contentUpTo(int code) const {
  if (groups) return groups;
  OdDbGroupListPtr parsed(new OdDbGroupList);
  parsed->codec = store->codec.get();
  constexpr OdUInt32 kTypicalGroup = 12; // bytes
  parsed->items.reserve(rawSize / kTypicalGroup + 4);
  if (raw) store->parser->parse({raw, rawSize}, *parsed, code);
  return parsed;
}

void OdDbStub::setGroups(const OdDbGroupListPtr& list) {
  if (list && !groups) store->m_changed.push_back(this);
  if (list) intrusive_ptr_add_ref(list.get());
  if (groups) intrusive_ptr_release(groups);
  groups = list.get();
  raw = nullptr;
  rawSize = 0;
}

OdDbStubState OdDbStub::state() const { return {raw, rawSize, type, flags, owner, groups}; }

void OdDbStub::exchange(OdDbStubState& saved) {
  const OdDbStubState current = state();
  const bool sameClass = store->types[saved.type].cls == store->types[type].cls;
  setGroups(saved.groups);
  raw = saved.raw;
  rawSize = saved.rawSize;
  type = saved.type;
  flags = saved.flags;
  owner = saved.owner;
  saved = current;
  if (live && !sameClass) live->detachFromStub();
  if (live) {
    live->m_groups.reset();
    ++live->m_revision;
    live->groupsReplaced();
  }
  ++store->revision;
  store->refreshRecordName(this);
}
