#pragma once
#include "OdString.h"
#include "extract_template.h"

namespace attext {

/// The extraction file that is offered for a drawing: the drawing's file name in the user's documents folder
/// (an empty text when there is none), with the format's extension. A drawing path without a folder stays as
/// it is, but for the extension.
OdString suggestedOutputPath(const OdString& drawingPath, const OdString& documentsFolder,
                             ExtractFormat format);

/// The path with ".txt" for CDF and SDF, or ".dxx" for DXX, wherever it has the extension of a drawing or of
/// the other formats.
OdString withFormatExtension(OdString path, ExtractFormat format);

} // namespace attext
