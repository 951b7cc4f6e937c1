#pragma once
#include "DbHandle.h"
#include "OdArray.h"
#include "OdaDefs.h"
#include "SmartPtr.h"
#include <functional>

class OdDbStub;
class OdDbObject;
class OdDbDatabase;
class OdRxClass;
using OdDbObjectPtr = OdSmartPtr<OdDbObject>;

/// Designates an object of a database. It stays valid, and comparable, as long as the database lives, also
/// when the object is erased. Opening costs O(1).
class OdDbObjectId {
public:
  static const OdDbObjectId kNull;
  constexpr OdDbObjectId() = default;
  constexpr OdDbObjectId(OdDbStub* stub) : m_stub(stub) {}

  bool isNull() const { return m_stub == nullptr; }
  /// Whether the id designates an object of a database, erased or not.
  bool isValid() const { return m_stub != nullptr; }
  /// Whether the object is erased; true for the null id.
  bool isErased() const;
  OdDbHandle getHandle() const;
  OdDbDatabase* database() const;
  /// The class that the object has when it is opened.
  const OdRxClass* objectClass() const;

  /// Opens the object; null for the null id and, unless `openErased`, for an erased object. All pointers to
  /// one object share one instance: opening it for write makes that instance writable.
  OdDbObjectPtr openObject(OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;
  /// The same, but throws eNullObjectId or eWasErased where openObject gives null.
  OdDbObjectPtr safeOpenObject(OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;

  friend bool operator==(const OdDbObjectId& a, const OdDbObjectId& b) { return a.m_stub == b.m_stub; }
  /// Orders by handle, so that sorted ids have the same order in every run.
  friend bool operator<(const OdDbObjectId& a, const OdDbObjectId& b) {
    return a.getHandle() < b.getHandle();
  }
  OdDbStub* stub() const { return m_stub; }

private:
  OdDbStub* m_stub = nullptr;
};

using OdDbObjectIdArray = OdArray<OdDbObjectId>;

template <>
struct std::hash<OdDbObjectId> {
  std::size_t operator()(const OdDbObjectId& id) const noexcept { return std::hash<OdDbStub*>()(id.stub()); }
};
