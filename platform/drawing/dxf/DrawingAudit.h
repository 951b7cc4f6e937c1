#pragma once
// Looks over an open drawing for what no reader of files can see group by group: names and references that
// lead nowhere, blocks that contain themselves, flags that are untrue.
#include "DbDatabase.h"
#include "DxfFindings.h"

enum class OdDbAuditMode {
  readOnly, ///< the drawing is not changed; repairs are what repair mode would do
  repair,
};

/// Adds what is wrong with the drawing to the findings. Takes one pass over all objects. Changes are recorded
/// for undo, except for the ends of block definitions that lack them.
void odDbAudit(OdDbDatabase& database, OdDbAuditMode mode, OdDbDxfFindings& findings);
