#pragma once
#include "DbObjectId.h"

namespace attext {

/// Writes the DXF data of every block reference among the objects to a DXX file, each followed by a line
/// "EOF"; other objects are skipped. Attributes are not written.
///
/// Returns the number of references written; 0 when a path is null, there are no objects, or the output
/// cannot be written. The template has no use in this format, but callers give one for all formats alike.
int writeDxx(const OdChar* templatePath, const OdChar* outputPath, const OdDbObjectIdArray& objects);

} // namespace attext
