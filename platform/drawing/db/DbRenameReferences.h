#pragma once
#include "OdString.h"

class OdDbStub;

/// Rewrites everything in the drawing that refers by name to the record `from` of a table, so that it refers
/// to `to`: groups of objects, extended data, header variables. Reads every object whose kind may hold such a
/// name, so it costs one pass over the drawing. Nothing is changed when an object cannot be read.
void odDbRenameReferences(OdDbStub* table, const OdString& from, const OdString& to);
