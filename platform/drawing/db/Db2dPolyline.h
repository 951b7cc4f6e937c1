#pragma once
#include "DbCurve.h"
#include "DbObjectIterator.h"

class OdDbPolyline;

/// A vertex of a polyline in a plane.
class OdDb2dVertex : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDb2dVertex);

public:
  /// Control vertices are those of the frame that a smooth polyline was made from; they are no part of it.
  enum VertexType { kVertex, kCurveFitVertex, kSplineFitVertex, kSplineControlVertex };
  VertexType vertexType() const;
  /// In the coordinates of the polyline's plane.
  OdGePoint3d position() const;
  void setPosition(const OdGePoint3d& position);
  /// The tangent of a quarter of the angle of the segment that begins here.
  double bulge() const;
  void setBulge(double bulge);
  double startWidth() const;
  void setStartWidth(double width);
  double endWidth() const;
  void setEndWidth(double width);

  OdDbSchema schema() const override;
};
using OdDb2dVertexPtr = OdSmartPtr<OdDb2dVertex>;

/// A polyline in a plane that has a record for each vertex. Its parameters count the vertices.
class OdDb2dPolyline : public OdDbCurve {
  ODRX_DECLARE_MEMBERS(OdDb2dPolyline);

public:
  bool isClosed() const override;
  void setClosed(bool closed);
  double elevation() const;
  void setElevation(double elevation);
  double thickness() const;
  void setThickness(double thickness);
  /// Setting it leaves the vertices as they are: the polyline turns with the plane.
  OdGeVector3d normal() const;
  void setNormal(const OdGeVector3d& normal);
  double defaultStartWidth() const;
  void setDefaultStartWidth(double width);
  double defaultEndWidth() const;
  void setDefaultEndWidth(double width);

  /// Appends a vertex that belongs to no database. Throws eNotInDatabase while the polyline has none itself.
  OdDbObjectId appendVertex(OdDb2dVertex* vertex);
  /// Over all vertices, control vertices too.
  OdDbObjectIteratorPtr vertexIterator() const;
  /// In world coordinates.
  OdGePoint3d vertexPosition(const OdDb2dVertex& vertex) const;

  /// Circular segments and widths refuse what would stretch them unevenly.
  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  /// Into lines and arcs.
  OdResult explode(OdRxObjectPtrArray& pieces) const override;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
  OdResult getOffsetCurves(double distance, OdRxObjectPtrArray& curves) const override;
  OdDbSchema schema() const override;

protected:
  std::unique_ptr<OdGeCurve3d> makeGeCurve() const override;
  OdUInt64 geometryRevision() const override;

private:
  /// The same curve in one record, without the widths.
  OdSmartPtr<OdDbPolyline> lightweight() const;
};
using OdDb2dPolylinePtr = OdSmartPtr<OdDb2dPolyline>;
