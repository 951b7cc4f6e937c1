#pragma once
// The braced groups ("102 {NAME" to "102 }") between an object's handle and its owner. Internal to the
// drawing library.
#include "DbSchema.h"

namespace odDbBraces {
enum Place { kFirst, kLast };
/// Adds a group to the braces with this opening, which are made (before or behind the others) when missing.
void add(OdDbGroupList& groups, std::string_view opening, const OdDbGroup& group, Place place);
/// Removes the braces with all they hold.
void remove(OdDbGroupList& groups, std::string_view opening);
} // namespace odDbBraces
