#pragma once
#include "DbCurve.h"
#include "Ge/GePoint2d.h"
#include <vector>

/// A polyline in a plane, of straight and circular segments. Vertices are given in the coordinates of the
/// plane (normal and elevation). Indexes that are out of range throw OdError_InvalidIndex. Access to a vertex
/// costs the same however many there are. The parameters of the curve count the vertices.
class OdDbPolyline : public OdDbCurve {
  ODRX_DECLARE_MEMBERS(OdDbPolyline);

public:
  unsigned int numVerts() const { return static_cast<unsigned int>(layout().starts.size()); }
  /// Inserts before the vertex `index`, or at the end. The bulge is the tangent of a quarter of the segment's
  /// angle, positive when it turns counterclockwise. Negative widths mean the polyline's own; identifier 0
  /// means none.
  void addVertexAt(unsigned int index, const OdGePoint2d& point, double bulge = 0, double startWidth = -1,
                   double endWidth = -1, OdInt32 vertexIdentifier = 0);
  void removeVertexAt(unsigned int index);
  void getPointAt(unsigned int index, OdGePoint2d& point) const;
  /// In world coordinates.
  void getPointAt(unsigned int index, OdGePoint3d& point) const;
  void setPointAt(unsigned int index, const OdGePoint2d& point);
  /// Of the segment that begins at the vertex.
  double getBulgeAt(unsigned int index) const;
  void setBulgeAt(unsigned int index, double bulge);
  void getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const;
  void setWidthsAt(unsigned int index, double startWidth, double endWidth);
  /// 0 when the vertex has none.
  OdInt32 getVertexIdentifierAt(unsigned int index) const;

  bool isClosed() const override;
  void setClosed(bool closed);
  /// Whether linetypes run on through the vertices.
  bool hasPlinegen() const;
  void setPlinegen(bool on);
  double elevation() const;
  void setElevation(double elevation);
  double thickness() const;
  void setThickness(double thickness);
  /// Setting it leaves vertices and elevation as they are: the polyline turns with the plane.
  OdGeVector3d normal() const;
  void setNormal(const OdGeVector3d& normal);
  /// The width that all segments share; 0 where they have their own.
  double getConstantWidth() const;
  void setConstantWidth(double width);
  bool hasBulges() const;
  bool hasWidth() const;

  /// Circular segments and widths refuse what would stretch them unevenly.
  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  /// Into lines and arcs.
  OdResult explode(OdRxObjectPtrArray& pieces) const override;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
  /// Polylines without widths of their own. What comes nearer than the distance is left out, so there can be
  /// several; eInvalidInput when nothing is left.
  OdResult getOffsetCurves(double distance, OdRxObjectPtrArray& curves) const override;
  OdDbSchema schema() const override;
  std::unique_ptr<OdGeCurve3d> makeGeCurve() const override;
  void groupsReplaced() override { m_known = false; }

private:
  /// What one pass over the groups finds. Fields that are not stored would otherwise be searched among all
  /// vertices at each access.
  struct Layout {
    std::vector<int> starts; ///< the vertices' first groups, counted from the first vertex
    int length = 0;          ///< groups from the first vertex to the end of the last
    bool hasConstantWidth = false;
    double constantWidth = 0;
    double elevation = 0;
    double thickness = 0;
    OdGeVector3d normal;
  };
  Layout& layout() const;
  int firstVertex() const;
  /// Index of a group of the vertex, or -1.
  int groupAt(unsigned int index, int code) const;
  double realAt(unsigned int index, int code, double fallback) const;
  /// Makes room for a value that some vertices lack in all of them at once, so that setting one after another
  /// does not move the rest each time.
  void spread(int code, double value);
  void setRealAt(unsigned int index, int code, double value, double others);
  OdDbEntityPtr segment(unsigned int index) const;
  unsigned int checked(unsigned int index) const;

  mutable Layout m_layout;
  mutable bool m_known = false;
};
using OdDbPolylinePtr = OdSmartPtr<OdDbPolyline>;
