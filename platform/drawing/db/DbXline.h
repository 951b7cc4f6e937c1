#pragma once
#include "DbRay.h"

/// A construction line: endless both ways. Its parameter is the distance from the base point, negative
/// against the direction.
class OdDbXline : public OdDbEndlessLine {
  ODRX_DECLARE_MEMBERS(OdDbXline);

public:
  OdDbSchema schema() const override;

protected:
  const OdDbSubclass& section() const override;
  std::unique_ptr<OdGeCurve3d> makeGeCurve() const override;
};
using OdDbXlinePtr = OdSmartPtr<OdDbXline>;
