#pragma once
#include "DbLinetypeTableRecord.h"
#include "DbSymbolTable.h"

/// The linetypes of a drawing.
ODDB_DECLARE_SYMBOL_TABLE(OdDbLinetypeTable);
