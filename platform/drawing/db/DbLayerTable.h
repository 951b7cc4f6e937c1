#pragma once
#include "DbLayerTableRecord.h"
#include "DbSymbolTable.h"

/// The layers of a drawing.
ODDB_DECLARE_SYMBOL_TABLE(OdDbLayerTable);
