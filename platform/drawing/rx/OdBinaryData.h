#pragma once
#include "OdArray.h"

using OdBinaryData = OdArray<OdUInt8>;
