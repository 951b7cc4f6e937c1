#pragma once
#include "GePoint3d.h"
#include "OdArray.h"

using OdGePoint3dArray = OdArray<OdGePoint3d>;
