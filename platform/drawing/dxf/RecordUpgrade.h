#pragma once
// The groups of a single object of an old release, as release 2000 stores them.
#include "DbStore.h"

/// Gives the object handle, owner and subclass markers, and the forms of settings that release 2000 knows.
/// Table records that the object names must have their handles already.
void dxfUpgradeRecord(OdDbStub* stub);

/// The settings of dimensions that release 2000 splits in two.
void dxfUpgradeDimensionSettings(OdDbGroupList& groups);
