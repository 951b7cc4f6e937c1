#pragma once
#include "DbEntity.h"
#include "Ge/GeCurve3d.h"

/// Base of everything that is a line from one end to another. Parameters, points and derivatives are in world
/// coordinates; the thickness does not count. What is asked for is worked out once and kept until the object
/// changes.
///
/// The functions return eNotApplicable for an end that the curve does not have, eInvalidInput for a
/// parameter, distance or point that is not on it, eDegenerateGeometry for a curve without extent, and
/// eInvalidInput for one whose numbers describe none; then they leave the result alone.
class OdDbCurve : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDbCurve);

public:
  /// False also for what is no sound curve.
  virtual bool isClosed() const;
  bool isPeriodic() const;
  OdResult getStartParam(double& param) const;
  OdResult getEndParam(double& param) const;
  OdResult getStartPoint(OdGePoint3d& point) const;
  OdResult getEndPoint(OdGePoint3d& point) const;

  OdResult getPointAtParam(double param, OdGePoint3d& point) const;
  OdResult getParamAtPoint(const OdGePoint3d& point, double& param) const;
  /// Distances are lengths along the curve from its start.
  OdResult getDistAtParam(double param, double& distance) const;
  OdResult getParamAtDist(double distance, double& param) const;
  OdResult getDistAtPoint(const OdGePoint3d& point, double& distance) const;
  OdResult getPointAtDist(double distance, OdGePoint3d& point) const;

  /// By the parameter. Where the curve has a corner, those of what begins there.
  OdResult getFirstDeriv(double param, OdGeVector3d& derivative) const;
  OdResult getFirstDeriv(const OdGePoint3d& point, OdGeVector3d& derivative) const;
  OdResult getSecondDeriv(double param, OdGeVector3d& derivative) const;
  OdResult getSecondDeriv(const OdGePoint3d& point, OdGeVector3d& derivative) const;

  /// `extend` has straight lines and elliptic arcs go on beyond their ends.
  OdResult getClosestPointTo(const OdGePoint3d& given, OdGePoint3d& point, bool extend = false) const;

  /// Appends the curves at this distance, which belong to no database and have the properties of this one. A
  /// positive distance leads to the right as seen along the curve, so that circles grow; for rays and
  /// construction lines it leads to the left in the XY plane of the world. eNotApplicable for curves whose
  /// offset is none of the curves that drawings know.
  virtual OdResult getOffsetCurves(double distance, OdRxObjectPtrArray& curves) const;

  /// Without the thickness, which classes that have one add.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  /// The curve itself; valid until the object changes. Throws OdError with the codes told above.
  const OdGeCurve3d& geCurve() const;

protected:
  /// Makes the curve from the groups. Throws OdError for groups that describe none.
  virtual std::unique_ptr<OdGeCurve3d> makeGeCurve() const = 0;
  /// Changes whenever makeGeCurve() could give something else.
  virtual OdUInt64 geometryRevision() const { return revision(); }
  /// Appends a new curve with the properties of this one.
  void addOffset(const OdSmartPtr<OdDbCurve>& curve, OdRxObjectPtrArray& curves) const;

private:
  struct Shape {
    bool isKnown = false;
    OdUInt64 revision = 0;
    OdResult error = eOk;
    std::unique_ptr<OdGeCurve3d> curve;
  };
  const Shape& shape() const;
  template <class Question>
  OdResult ask(const Question& question) const;
  mutable Shape m_shape;
};
using OdDbCurvePtr = OdSmartPtr<OdDbCurve>;
