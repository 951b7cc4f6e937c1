#include "dxx_writer.h"
#include "DbBlockReference.h"
#include "dxf_filer.h"
#include "text_file.h"

namespace attext {
namespace {

void writeReference(const OdDbBlockReference& reference, TextFile& file) {
  TqDxfFiler filer(reference.objectId());
  reference.dxfOut(&filer);
  std::wstring block;
  for (const OdString& entry : filer.entries()) {
    block += entry.str();
    block += L'\n';
  }
  file.write(block += L"EOF\n");
}

} // namespace

int writeDxx(const OdChar* templatePath, const OdChar* outputPath, const OdDbObjectIdArray& objects) {
  if (!templatePath || !outputPath || objects.isEmpty()) return 0;
  TextFile file{OdString(outputPath)};
  if (!file.isOpen()) return 0;
  int count = 0;
  for (const OdDbObjectId id : objects) {
    const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(id.openObject());
    if (reference.isNull()) continue;
    writeReference(*reference, file);
    ++count;
  }
  return file.close() ? count : 0;
}

} // namespace attext
