#pragma once
#include "DbBlockTableRecord.h"
#include "DbSymbolTable.h"

/// The block definitions, spaces and layout contents of a drawing.
ODDB_DECLARE_SYMBOL_TABLE(OdDbBlockTable);
