#pragma once
#include "DbDimStyleTableRecord.h"
#include "DbSymbolTable.h"

/// The dimension styles of a drawing.
ODDB_DECLARE_SYMBOL_TABLE(OdDbDimStyleTable);
