#pragma once
// What a viewport of releases before 2000 shows. Internal to the drawing library.
#include "DbGroup.h"
#include "Ge/GePoint2d.h"
#include "Ge/GePoint3d.h"
#include "Ge/GeVector3d.h"
#include <optional>
#include <vector>

/// Lengths are drawing units, angles radians.
struct OdDbOldView {
  OdGePoint3d target;
  OdGeVector3d direction; ///< towards the eye
  double twist = 0;
  double height = 0;
  OdGePoint2d center; ///< in view coordinates
  double lens = 0;    ///< millimetres
  double frontClip = 0;
  double backClip = 0;
  OdInt64 circleZoom = 0;
  OdInt64 flags = 0; ///< as later releases store them in group 90
  double snapAngle = 0;
  OdGePoint2d snapBase;
  OdGePoint2d snapSpacing;
  OdGePoint2d gridSpacing;
  std::vector<OdString> frozenLayers; ///< their names
};

/// The view that the groups of a VIEWPORT hold in the extended data of ACAD, as a sequence of values without
/// names behind the word MVIEW; nothing where there is none. What is missing at its end is 0.
std::optional<OdDbOldView> odDbOldView(const OdDbGroupList& groups);
