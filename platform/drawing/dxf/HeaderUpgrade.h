#pragma once
// The header variables of an old release, as release 2000 stores them.
#include "DbStore.h"

/// Renames, removes and adds variables; those that the drawing lacks come from a blank one.
void dxfUpgradeHeader(OdDbStore& store, const OdDbStore& blank);
