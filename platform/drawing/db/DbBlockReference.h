#pragma once
#include "DbEntity.h"
#include "DbObjectIterator.h"

class OdDbAttribute;

/// A placed block: once, or as an array of columns and rows. It contains its attributes.
class OdDbBlockReference : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDbBlockReference);

public:
  /// The block; null when the drawing has none of that name.
  OdDbObjectId blockTableRecord() const;
  void setBlockTableRecord(OdDbObjectId block);
  /// The name of the block as the reference holds it.
  OdString blockName() const;

  /// Where the base point of the block lies, in world coordinates.
  OdGePoint3d position() const;
  void setPosition(const OdGePoint3d& position);
  /// Along the axes of the block. A factor of 0 throws eInvalidInput.
  OdGeScale3d scaleFactors() const;
  void setScaleFactors(const OdGeScale3d& factors);
  /// About the normal, in radians, from the X axis of the plane that the normal has by the rule of drawing
  /// files.
  double rotation() const;
  void setRotation(double radians);
  /// Setting it leaves the position where it is.
  OdGeVector3d normal() const;
  void setNormal(const OdGeVector3d& normal);

  /// From the coordinates of the block to those of what contains the reference. The base point of the block
  /// is accounted for.
  OdGeMatrix3d blockTransform() const;
  /// Places the reference so that it has this transform. Its attributes stay. eCannotScaleNonUniformly when
  /// the matrix slants; eNonInvertibleMatrix.
  OdResult setBlockTransform(const OdGeMatrix3d& transform);

  bool isArrayed() const { return numColumns() > 1 || numRows() > 1; }
  int numColumns() const;
  void setNumColumns(int count);
  int numRows() const;
  void setNumRows(int count);
  /// Between neighbours along the turned axes of the reference, not scaled.
  double columnSpacing() const;
  void setColumnSpacing(double spacing);
  double rowSpacing() const;
  void setRowSpacing(double spacing);

  /// Over the attributes in stored order. Attributes that only show further lines of another are not among
  /// them.
  OdDbObjectIteratorPtr attributeIterator() const;
  /// Appends an attribute that belongs to no database. Throws eNotInDatabase while the reference has none
  /// itself.
  OdDbObjectId appendAttribute(OdDbAttribute* attribute);

  /// Moves the attributes along. Refuses what would slant the block.
  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  /// Of the block's entities and the attributes.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
  /// The attributes stay with the source.
  void copyFrom(const OdDbObject* source) override;
  OdDbSchema schema() const override;

private:
  OdGePoint3d basePoint() const;
  void setCount(int code, int count);
};
using OdDbBlockReferencePtr = OdSmartPtr<OdDbBlockReference>;
