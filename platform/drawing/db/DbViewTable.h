#pragma once
#include "DbSymbolTable.h"
#include "DbViewTableRecord.h"

/// The named views of a drawing.
ODDB_DECLARE_SYMBOL_TABLE(OdDbViewTable);
