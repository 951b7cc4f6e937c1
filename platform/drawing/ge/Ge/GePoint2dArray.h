#pragma once
#include "GePoint2d.h"
#include "OdArray.h"

using OdGePoint2dArray = OdArray<OdGePoint2d>;
