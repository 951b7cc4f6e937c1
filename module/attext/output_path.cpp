#include "output_path.h"
#include <algorithm>

namespace attext {

OdString suggestedOutputPath(const OdString& drawingPath, const OdString& documentsFolder,
                             ExtractFormat format) {
  const int folderEnd = std::max(drawingPath.reverseFind(L'\\'), drawingPath.reverseFind(L'/'));
  const bool moved = folderEnd > 0 && !documentsFolder.isEmpty();
  return withFormatExtension(moved ? documentsFolder + drawingPath.mid(folderEnd) : drawingPath, format);
}

OdString withFormatExtension(OdString path, ExtractFormat format) {
  const bool dxx = format == ExtractFormat::dxx;
  for (const OdChar* other : {L".dwg", L".dxf", dxx ? L".txt" : L".dxx"})
    path.replace(other, dxx ? L".dxx" : L".txt");
  return path;
}

} // namespace attext
