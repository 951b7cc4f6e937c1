#pragma once
#include "DbDatabase.h"

/// Makes a drawing of a release before 2000 one of release 2000: every object gets handle, owner and subclass
/// markers, and what release 2000 expects of each drawing is added (tables, layouts, dictionaries, header
/// variables). Entities, names and values stay. The undo history ends here. Throws eNotApplicable for newer
/// drawings, and while a transaction is open.
void odDbUpgradeTo2000(OdDbDatabase& database);
