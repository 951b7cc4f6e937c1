#pragma once
#include "DbCurve.h"
#include "DbObjectIterator.h"

/// A vertex of a polyline in space.
class OdDb3dPolylineVertex : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDb3dPolylineVertex);

public:
  OdGePoint3d position() const;
  void setPosition(const OdGePoint3d& position);
  /// Whether the vertex belongs to the frame that a smooth polyline was made from, and not to the polyline.
  bool isControl() const;

  OdDbSchema schema() const override;
};
using OdDb3dPolylineVertexPtr = OdSmartPtr<OdDb3dPolylineVertex>;

/// A polyline of straight segments in space, with a record for each vertex. Its parameters count the
/// vertices.
class OdDb3dPolyline : public OdDbCurve {
  ODRX_DECLARE_MEMBERS(OdDb3dPolyline);

public:
  bool isClosed() const override;
  void setClosed(bool closed);
  /// Appends a vertex that belongs to no database. Throws eNotInDatabase while the polyline has none itself.
  OdDbObjectId appendVertex(OdDb3dPolylineVertex* vertex);
  /// Over all vertices, control vertices too.
  OdDbObjectIteratorPtr vertexIterator() const;

  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  /// Into lines.
  OdResult explode(OdRxObjectPtrArray& pieces) const override;
  OdDbSchema schema() const override;

protected:
  std::unique_ptr<OdGeCurve3d> makeGeCurve() const override;
  OdUInt64 geometryRevision() const override;

private:
  std::vector<OdGePoint3d> positions() const;
};
using OdDb3dPolylinePtr = OdSmartPtr<OdDb3dPolyline>;
