#pragma once
// The compact record behind an object id. Internal to the drawing library.
#include "DbGroup.h"
#include "DbObjectId.h"
#include <string>

class OdDbStore;
class OdDbStub;

/// Objects stored one after another: the entities of a block, the attributes of a reference, the records of a
/// table, the members of the OBJECTS section. Erased objects stay in their place.
struct OdDbStubList {
  OdDbStub* container = nullptr;
  OdDbStub* first = nullptr;
  OdDbStub* last = nullptr;

  void link(OdDbStub* stub, OdDbStub* after);
  void unlink(OdDbStub* stub);
};

/// What undo saves and restores of an object.
struct OdDbStubState {
  const char* raw = nullptr;
  OdUInt32 rawSize = 0;
  OdUInt16 type = 0;
  OdUInt16 flags = 0;
  OdDbStub* owner = nullptr;
  OdDbGroupListPtr groups;
};

/// Handle, content and place of one object. The content is either the slice of the drawing file that the
/// object was read from (nothing is parsed until somebody opens it), or its groups once it was changed or
/// made.
class OdDbStub {
public:
  enum Flags : OdUInt16 {
    kErased = 1,
    kEntity = 2,
    kInObjects = 4,        ///< stands in the list of the OBJECTS section, not in its owner's
    kDetached = 8,         ///< its appending was undone
    kSequenceFollows = 16, ///< was read with attributes, vertices or an end mark behind it
    kMade = 32,            ///< was made, or made another kind of object, since the drawing was read
  };

  OdUInt64 handle = 0;
  OdDbStore* store = nullptr;
  OdDbObject* live = nullptr; ///< the open instance, not owned
  OdDbStub* owner = nullptr;
  OdDbStub* previous = nullptr;
  OdDbStub* next = nullptr;
  OdDbStubList* children = nullptr;
  const char* raw = nullptr;       ///< the content as read, without the record's first group (0)
  OdDbGroupList* groups = nullptr; ///< the changed content, one reference owned; then `raw` is null
  OdUInt32 rawSize = 0;
  OdUInt32 loggedEpoch = 0; ///< epoch of the undo log in which the state was last saved
  OdUInt16 type = 0;        ///< index into OdDbStore::types
  OdUInt16 flags = 0;

  /// Erased itself, or contained in or owned by something erased.
  bool isErased() const;
  bool isChanged() const { return groups != nullptr; }
  /// The name of the record in files ("INSERT").
  const std::string& dxfName() const;
  /// Notes that the object was made, or made another kind of object, as what its type says.
  void setMade();
  OdDbStubList* list() const;
  /// The groups: the changed ones, or those parsed from the file slice.
  OdDbGroupListPtr content() const;
  /// The groups up to the first one with this code, or more.
  OdDbGroupListPtr contentUpTo(int code) const;
  void setGroups(const OdDbGroupListPtr& list);

  OdDbStubState state() const;
  /// Exchanges the saved state with the current one and brings an open instance in step.
  void exchange(OdDbStubState& saved);
};
