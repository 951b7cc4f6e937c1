#pragma once
#include "DbSymbolTable.h"
#include "DbUCSTableRecord.h"

/// The named user coordinate systems of a drawing.
ODDB_DECLARE_SYMBOL_TABLE(OdDbUCSTable);
