#pragma once
#include "DbEntity.h"

/// The record that opens a block definition in drawing files (BLOCK). It holds what files keep of the block
/// besides its table record, and is reached through that.
class OdDbBlockBegin : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDbBlockBegin);

public:
  enum Flag { kAnonymous = 1, kHasAttributes = 2, kExternalReference = 4, kOverlay = 8 };

  OdGePoint3d basePoint() const;
  void setBasePoint(const OdGePoint3d& point);
  OdString comments() const;
  void setComments(const OdString& comments);
  OdString pathName() const;
  bool hasFlag(Flag flag) const;
  /// Sets the name in both its places.
  void setBlockName(const OdString& name);

  OdDbSchema schema() const override;
};
using OdDbBlockBeginPtr = OdSmartPtr<OdDbBlockBegin>;

/// The record that closes it (ENDBLK).
class OdDbBlockEnd : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDbBlockEnd);

public:
  OdDbSchema schema() const override;
};
