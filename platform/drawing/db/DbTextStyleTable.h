#pragma once
#include "DbSymbolTable.h"
#include "DbTextStyleTableRecord.h"

/// The text styles and shape files of a drawing.
ODDB_DECLARE_SYMBOL_TABLE(OdDbTextStyleTable);
