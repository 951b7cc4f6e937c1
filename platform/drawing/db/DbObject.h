#pragma once
#include "DbFiler.h"
#include "DbResBuf.h"
#include "DbSchema.h"

class OdDbIdMapping;
class OdGeMatrix3d;

/// Base of everything that a drawing stores. An object belongs to a database (it is *resident*) or stands for
/// itself; properties behave the same. Reading a property needs the object open (any open instance can be
/// read); changing one needs it open for write, else eNotOpenForWrite is thrown. An object that stands for
/// itself is always writable.
class OdDbObject : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdDbObject);

public:
  OdDbObject();
  ~OdDbObject() override;
  void release() override;

  OdDbObjectId objectId() const { return OdDbObjectId(m_stub); }
  OdDbHandle getDbHandle() const;
  OdDbHandle handle() const { return getDbHandle(); }
  /// The object that contains or owns this one; null for an object without database.
  OdDbObjectId ownerId() const;
  /// Makes another object the owner; recorded in the groups (330). The place in the drawing does not change.
  void setOwnerId(OdDbObjectId owner);
  OdDbDatabase* database() const;
  bool isDBRO() const { return m_stub != nullptr; }
  /// Record name in drawing files ("INSERT"); for objects kept as read, the name they were read under.
  virtual std::string dxfName() const;

  bool isErased() const;
  bool isModified() const;
  bool isWriteEnabled() const { return m_writable || !m_stub; }
  bool isReadEnabled() const { return true; }
  void upgradeOpen();
  void downgradeOpen() { m_writable = false; }
  /// Throws eNotOpenForWrite.
  void assertWriteEnabled() const;
  /// Erases or restores the object together with the objects it contains (attributes, extension dictionary).
  /// Throws eNotInDatabase for an object without database.
  virtual void erase(bool erasing = true);

  /// The extension dictionary, or null.
  OdDbObjectId extensionDictionary() const;
  /// The extension dictionary, made when there is none. Throws eNotInDatabase.
  OdDbObjectId createExtensionDictionary();
  /// Erases the extension dictionary when it is empty; true when it did.
  bool releaseExtensionDictionary();

  OdDbObjectIdArray getPersistentReactors() const;
  void addPersistentReactor(OdDbObjectId reactor);
  void removePersistentReactor(OdDbObjectId reactor);

  /// Extended data: the items under one application name (the first item is the name itself, 1001), or all
  /// for an empty name; null when there are none.
  OdResBufPtr xData(const OdString& applicationName = OdString()) const;
  /// Replaces the data of each application named in the list; a name without items removes its data.
  void setXData(const OdResBuf* data);

  /// Writes the object's groups: the record name, handle, owner, then every section in order.
  virtual void dxfOut(OdDbDxfFiler* filer) const;
  /// The same without the record name.
  void dxfOutGroups(OdDbDxfFiler* filer) const;

  /// A copy that belongs to no database. References to other objects stay as they are.
  OdDbObjectPtr clone() const;
  /// Copies every property of an object of the same class, except identity and owner.
  virtual void copyFrom(const OdDbObject* source);

  /// Exchanges identity (id, handle, place, owner) with another object of the same database. Both are opened
  /// for write. Extended data and extension dictionaries stay with the ids unless their exchange is asked for
  /// too.
  void swapIdWith(OdDbObjectId other, bool swapXData = false, bool swapExtDict = false);
  /// Gives this object's identity to `heir`, which must not belong to a database; this object then belongs to
  /// none. Throws eNotInDatabase or eAlreadyInDb.
  void handOverTo(OdDbObject* heir, bool keepXData = true, bool keepExtDict = true);

  // --- the groups themselves; for the drawing library ---
  /// Parsed when first needed; for a new object made from schema(), so constructors have nothing to do.
  const OdDbGroupList& groups() const {
    if (!m_groups) loadGroups();
    return *m_groups;
  }
  /// Grows whenever the groups may have changed: equal values mean equal groups.
  OdUInt32 revision() const { return m_revision; }
  /// For changing; saves the state for undo first. Throws eNotOpenForWrite.
  OdDbGroupList& mutableGroups();
  virtual OdDbSchema schema() const { return {}; }
  /// Called when the groups were replaced by undo or an exchange of identities: derived caches must go.
  virtual void groupsReplaced() {}
  /// Called when the object has become resident; to make what an object of its class must own.
  virtual void appended() {}

protected:
  /// Whether the group at `index` goes to files. An entry that leads to an erased object does not.
  virtual bool isWritten(int /*index*/) const { return true; }
  OdString text(const OdDbSubclass& section, int code) const;
  /// The same for a text that is often all that somebody asks of an object, such as its layer: until more is
  /// asked, what stands behind it is not parsed.
  OdString leadingText(const OdDbSubclass& section, int code) const;
  double real(const OdDbSubclass& section, int code) const;
  /// Radians, from a group in degrees.
  double angle(const OdDbSubclass& section, int code) const;
  int integer(const OdDbSubclass& section, int code) const;
  bool flag(const OdDbSubclass& section, int code, int bit) const {
    return (integer(section, code) & bit) != 0;
  }
  OdGePoint3d point(const OdDbSubclass& section, int code) const;
  OdGeVector3d vector(const OdDbSubclass& section, int code) const;
  OdGeScale3d scale(const OdDbSubclass& section, int code) const;
  OdDbObjectId reference(const OdDbSubclass& section, int code) const;
  bool has(const OdDbSubclass& section, int code) const {
    return odDbGroups::find(groups(), section, code) >= 0;
  }

  void setText(const OdDbSubclass& section, int code, const OdString& value);
  void setReal(const OdDbSubclass& section, int code, double value);
  void setAngle(const OdDbSubclass& section, int code, double radians);
  void setInteger(const OdDbSubclass& section, int code, OdInt64 value);
  void setFlag(const OdDbSubclass& section, int code, int bit, bool on);
  void setPoint(const OdDbSubclass& section, int code, const OdGePoint3d& value);
  void setVector(const OdDbSubclass& section, int code, const OdGeVector3d& value);
  void setScale(const OdDbSubclass& section, int code, const OdGeScale3d& value);
  void setReference(const OdDbSubclass& section, int code, OdDbObjectId value);
  void removeField(const OdDbSubclass& section, int code);

private:
  friend class OdDbStore;
  friend class OdDbStub;
  friend class OdDbDatabase;
  void loadGroups() const;
  OdDbGroupList& mutableGroupsUnrecorded();
  void detachFromStub();
  void setGroup(const OdDbSubclass& section, const OdDbGroup& value);
  void setTriple(const OdDbSubclass& section, int code, int step, double x, double y, double z);
  /// Has a dictionary that lists this object written anew: its entry appears or disappears there.
  void rewriteOwner() const;
  void writeRange(OdDbDxfFiler* filer, int first, int last) const;
  void writeField(OdDbDxfFiler* filer, const OdDbSubclass& section, const OdDbField& field) const;
  void writeStored(OdDbDxfFiler* filer) const;
  void writeCanonical(OdDbDxfFiler* filer) const;

  OdDbStub* m_stub = nullptr;
  mutable OdDbGroupListPtr m_groups; // the stub's own list, or a parse of its file slice
  bool m_writable = false;
  OdUInt32 m_revision = 0;
};
