#pragma once
#include "DbObject.h"

/// The order in which a block's entities are drawn, where it differs from the order of their handles:
/// entities with the handle that each sorts under.
class OdDbSortentsTable : public OdDbObject {
  ODRX_DECLARE_MEMBERS(OdDbSortentsTable);

public:
  /// The block record whose entities are ordered.
  OdDbObjectId blockId() const;
  /// All entities of the block, erased ones too, in the order of drawing. An entity that the table does not
  /// list sorts under its own handle.
  void getFullDrawOrder(OdDbObjectIdArray& ids) const;

  OdDbSchema schema() const override;
};
using OdDbSortentsTablePtr = OdSmartPtr<OdDbSortentsTable>;
