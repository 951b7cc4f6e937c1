#pragma once
#include "DbDatabase.h"

/// Opens every object of a drawing that a reader accepted, writes it, untouched and then with every object
/// changed, and reads what was written: the same number of objects must come back. Ends the program when that
/// fails.
void checkDrawing(OdDbDatabase& drawing);
