#pragma once
#include "DbRegAppTableRecord.h"
#include "DbSymbolTable.h"

/// The applications that may attach extended data of a drawing.
ODDB_DECLARE_SYMBOL_TABLE(OdDbRegAppTable);
