#pragma once
#include "DbObjectId.h"
#include "extract_template.h"

namespace attext {

/// Writes one record a block reference, in the columns of a template, as a comma- or space-delimited file
/// (settings.format cdf or sdf).
///
/// Returns the number of records written; 0 when the template cannot be read or has no column, or when the
/// output cannot be written. All values are read before the output is opened, so that a problem with the
/// template or the drawing leaves an old output file as it is. An id that is not a block reference's throws
/// OdError_NotThatKindOfClass.
int extractRecords(const OdString& templatePath, const OdString& outputPath,
                   const OdDbObjectIdArray& references, ExtractSettings& settings);

} // namespace attext
