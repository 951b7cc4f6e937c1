#pragma once
#include "DbObject.h"
#include <memory>
#include <vector>

class OdDbDictionary;

/// Walks over the entries of a dictionary as they were when the iterator was made, in stored order, passing
/// over those whose object is erased.
class OdDbDictionaryIterator : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdDbDictionaryIterator);

public:
  bool done() const { return m_at >= m_entries.size(); }
  /// Steps on; false when that ends the walk.
  bool next();
  OdString name() const;
  OdDbObjectId objectId() const;
  OdDbObjectPtr getObject(OdDb::OpenMode mode = OdDb::kForRead) const { return objectId().openObject(mode); }

private:
  friend class OdDbDictionary;
  struct Entry {
    OdString name;
    OdDbObjectId id;
  };
  void skipErased();
  std::vector<Entry> m_entries;
  std::size_t m_at = 0;
};
using OdDbDictionaryIteratorPtr = OdSmartPtr<OdDbDictionaryIterator>;

/// Objects under names, which are compared without regard to case. The dictionary owns its objects: erasing
/// it erases them. Entries whose object is erased or missing count as not there.
class OdDbDictionary : public OdDbObject {
  ODRX_DECLARE_MEMBERS(OdDbDictionary);

public:
  /// The object under a name; null when there is none.
  OdDbObjectId getAt(const OdString& name) const;
  OdDbObjectPtr getAt(const OdString& name, OdDb::OpenMode mode) const {
    return getAt(name).openObject(mode);
  }
  /// The name of an object; empty when the dictionary does not hold it.
  OdString nameAt(OdDbObjectId id) const;
  bool has(const OdString& name) const { return !storedAt(name).isNull(); }
  bool has(OdDbObjectId id) const;
  OdUInt32 numEntries() const;
  OdDbDictionaryIteratorPtr newIterator() const;

  /// Puts an object under a name, last in order; an object without database is appended to the dictionary's.
  /// An object that was there already is erased and its entry reused. Throws eInvalidInput for an empty name,
  /// eNotInDatabase while the dictionary has no database.
  OdDbObjectId setAt(const OdString& name, OdDbObject* object);
  /// Renames an entry. Throws eKeyNotFound, eDuplicateKey, eInvalidInput for an empty name.
  void setName(const OdString& from, const OdString& to);
  /// Takes an entry out and returns its object, which is not erased and has no owner then. Null when there is
  /// none.
  OdDbObjectId remove(const OdString& name);
  OdDbObjectId remove(OdDbObjectId id) { return remove(nameAt(id)); }

  /// Whether the dictionary owns its objects in the sense that copying it copies them.
  bool isTreatElementsAsHard() const;
  void setTreatElementsAsHard(bool hard);

  OdDbSchema schema() const override;
  void groupsReplaced() override { m_index.reset(); }

protected:
  /// Entries whose object is erased are not written.
  bool isWritten(int index) const override;
  /// What getAt gives for names that are not there.
  virtual OdDbObjectId fallback() const { return {}; }

private:
  struct Index;
  const Index& index() const;
  OdDbObjectId resolve(OdUInt64 handle) const;
  OdDbObjectId storedAt(const OdString& name) const;
  int entryPosition(OdUInt64 handle) const;
  mutable std::shared_ptr<Index> m_index;
};
using OdDbDictionaryPtr = OdSmartPtr<OdDbDictionary>;
