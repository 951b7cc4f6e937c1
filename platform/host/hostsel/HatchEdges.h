#pragma once
#include "DbEntityFields.h"
#include "Ge/GeCurve3d.h"
#include <memory>

namespace host {

/// The edges of a hatch (record HATCH), in the coordinates of its plane at height 0. What describes no curve
/// is left out.
std::vector<std::unique_ptr<OdGeCurve3d>> hatchEdges(const OdDbEntityFields& hatch);

} // namespace host
