#pragma once
#include "CmColor.h"
#include "CmTransparency.h"
#include "DbObject.h"
#include "Ge/GeExtents3d.h"
#include "Ge/GeMatrix3d.h"
#include <memory>

/// The section that all entities share (AcDbEntity).
extern const OdDbSubclass kOdDbEntitySection;

using OdRxObjectPtrArray = OdArray<OdRxObjectPtr>;

/// Base of everything that can be drawn.
class OdDbEntity : public OdDbObject {
  ODRX_DECLARE_MEMBERS(OdDbEntity);

public:
  OdDbObjectId blockId() const { return ownerId(); }

  OdString layer() const;
  OdDbObjectId layerId() const;
  /// Throws eKeyNotFound when the drawing has no such layer.
  void setLayer(const OdString& name);
  void setLayer(OdDbObjectId layer);
  OdCmColor color() const;
  void setColor(const OdCmColor& color);
  int colorIndex() const { return color().colorIndex(); }
  void setColorIndex(int index) { setColor(OdCmColor::fromIndex(index)); }
  OdString linetype() const;
  OdDbObjectId linetypeId() const;
  void setLinetype(const OdString& name);
  void setLinetype(OdDbObjectId linetype);
  double linetypeScale() const;
  void setLinetypeScale(double scale);
  OdDb::LineWeight lineWeight() const;
  void setLineWeight(OdDb::LineWeight weight);
  OdDb::Visibility visibility() const;
  void setVisibility(OdDb::Visibility visibility);
  OdCmTransparency transparency() const;
  void setTransparency(const OdCmTransparency& transparency);
  /// The material; null means by layer.
  OdDbObjectId materialId() const;
  void setMaterial(OdDbObjectId material);
  /// How the plot style is given; `id` is the placeholder of the plot style where it is given by itself, else
  /// null.
  OdDb::PlotStyleNameType getPlotStyleNameId(OdDbObjectId& id) const;
  /// With kPlotStyleNameById, a member of the dictionary of plot style names.
  void setPlotStyleName(OdDb::PlotStyleNameType type, OdDbObjectId id = OdDbObjectId());
  /// "ByLayer", "ByBlock", or the name in the dictionary of plot style names.
  OdString plotStyleName() const;
  /// Throws eKeyNotFound for a name that the dictionary does not hold.
  void setPlotStyleName(const OdString& name);

  /// Layer, colour, linetype, linetype scale and lineweight as the drawing gives them to new entities. Null
  /// means the entity's own database.
  virtual void setDatabaseDefaults(OdDbDatabase* database = nullptr);
  /// Takes over the entity properties of another entity: everything above.
  void setPropertiesFrom(const OdDbEntity* source);

  /// Moves the entity. Returns eCannotScaleNonUniformly, with the entity unchanged, when its class cannot
  /// take the transform; eNotApplicable for entities kept as read, whose geometry the library does not know.
  virtual OdResult transformBy(const OdGeMatrix3d& matrix);
  /// Adds the pieces that the entity falls into, which belong to no database. eNotApplicable: it does not.
  virtual OdResult explode(OdRxObjectPtrArray& pieces) const;
  /// eInvalidExtents for entities without extent.
  virtual OdResult getGeomExtents(OdGeExtents3d& extents) const;

  OdDbSchema schema() const override;
  void copyFrom(const OdDbObject* source) override;

protected:
  /// The drawing in which the names that the entity holds are looked up: its own or, while it belongs to
  /// none, the one that its defaults, its properties or a table record came from. Null when there is none, or
  /// not any more.
  OdDbDatabase* namesDatabase() const;
  void setNamesDatabase(const OdDbDatabase* names);
  /// The record of a table that a group names; null when there is none.
  OdDbObjectId namedRecord(const OdDbSubclass& section, int code, const char* table) const;
  /// The object that a group with a handle refers to, also while the entity itself has no database.
  OdDbObjectId namedReference(const OdDbSubclass& section, int code) const;
  /// Stores the name of a record. Throws eNullObjectId, or eWrongDatabase for a record of another drawing.
  void setNamedRecord(const OdDbSubclass& section, int code, OdDbObjectId record);
  /// Stores a name that the table must know. Throws eKeyNotFound.
  void setRecordByName(const OdDbSubclass& section, int code, const char* table, const OdString& name);

private:
  std::weak_ptr<OdDbDatabase* const> m_names;
};
using OdDbEntityPtr = OdSmartPtr<OdDbEntity>;
