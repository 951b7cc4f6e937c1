#pragma once
#include "DbObjectIterator.h"
#include "DbSymbolTableRecord.h"

class OdDbSortentsTable;

/// A block definition, or the contents of model space or of a layout: a list of entities.
class OdDbBlockTableRecord : public OdDbSymbolTableRecord {
  ODRX_DECLARE_MEMBERS(OdDbBlockTableRecord);

public:
  enum BlockScaling { kAny = 0, kUniform = 1 };

  /// Appends an entity that belongs to no database. Throws eAlreadyInDb; eNotInDatabase while the record
  /// itself has none.
  OdDbObjectId appendOdDbEntity(OdDbEntity* entity);
  /// Over the entities in stored order. `sorted` gives the order of drawing instead, where the block has one
  /// of its own; entities appended during such a walk are not met.
  OdDbObjectIteratorPtr newIterator(bool atBeginning = true, bool skipDeleted = true,
                                    bool sorted = false) const;
  /// The table of the drawing order; null when the entities are drawn as they are stored.
  OdSmartPtr<OdDbSortentsTable> getSortentsTable() const;

  /// The base point.
  OdGePoint3d origin() const;
  void setOrigin(const OdGePoint3d& origin);
  /// The description.
  OdString comments() const;
  void setComments(const OdString& comments);
  /// Of an external reference, the file that it stands for.
  OdString pathName() const;
  bool isFromExternalReference() const;
  bool isFromOverlayReference() const;
  /// Exchanges names with another record. References keep the names that they have.
  void swapNameWith(OdDbBlockTableRecord& other);
  /// Whether the record holds model space or the contents of a layout.
  bool isLayout() const;
  /// The layout whose contents the record holds, or null.
  OdDbObjectId getLayoutId() const;
  void setLayoutId(OdDbObjectId layout);
  /// Whether the block has a generated name, as dimensions, hatches and configured blocks use.
  bool isAnonymous() const;
  bool explodable() const;
  void setExplodable(bool explodable);
  BlockScaling blockScaling() const;
  void setBlockScaling(BlockScaling scaling);
  /// The drawing unit of the block, as the number that files store (0 none, 4 millimetres...).
  int blockInsertUnits() const;
  void setBlockInsertUnits(int units);
  /// Whether the block contains attribute definitions. Counts what is there: the flag that files store is not
  /// always right.
  bool hasAttributeDefinitions() const;
  /// Appends the references to this block that are not erased, in stored order; costs one pass over all
  /// blocks. Without `directOnly`, the references to blocks that contain them follow, and so on outwards.
  void getBlockReferenceIds(OdDbObjectIdArray& ids, bool directOnly = true) const;

  OdDbSchema schema() const override;
  void appended() override;

protected:
  void storeName(const OdString& name) override;

private:
  OdDbObjectPtr openBegin(OdDb::OpenMode mode) const;
};
using OdDbBlockTableRecordPtr = OdSmartPtr<OdDbBlockTableRecord>;
