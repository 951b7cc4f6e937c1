#pragma once
#include "DbEntity.h"
#include <string_view>

struct OdDbStubList;
class OdDbObjectIterator;
using OdDbObjectIteratorPtr = OdSmartPtr<OdDbObjectIterator>;

/// Walks over objects that are stored one after another. Objects may be appended or erased during the walk:
/// what is appended behind the current object is still met, and the current object stays current when it is
/// erased.
class OdDbObjectIterator : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdDbObjectIterator);

public:
  /// Over a list of the drawing, which may be null (nothing to walk over). Members whose record name is
  /// `hidden`
  /// ("SEQEND") are never shown.
  static OdDbObjectIteratorPtr overList(const OdDbStubList* list, std::string_view hidden = {},
                                        bool atBeginning = true, bool skipDeleted = true);
  /// Over ids in their order; what is appended to the drawing later is not met.
  static OdDbObjectIteratorPtr overIds(OdDbObjectIdArray ids, bool atBeginning = true,
                                       bool skipDeleted = true);

  virtual void start(bool atBeginning = true, bool skipDeleted = true) = 0;
  virtual bool done() const = 0;
  virtual void step(bool forward = true, bool skipDeleted = true) = 0;
  /// The current object; null when the walk is done.
  virtual OdDbObjectId objectId() const = 0;
  /// Makes an object the current one; false (and nothing changes) when the walk does not lead over it.
  virtual bool seek(OdDbObjectId id) = 0;

  /// Opens the current object; null when the walk is done, or the object is erased and `openErased` not set.
  OdDbEntityPtr entity(OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;
};
