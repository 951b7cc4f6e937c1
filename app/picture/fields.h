#pragma once
#include "DbEntityFields.h"

namespace picture {

using Fields = OdDbEntityFields;

inline int integerOf(const OdDbGroup& group) { return odDbIntegerOf(group); }

} // namespace picture
