// The reader that refuses what is damaged.
#include "DxfReader.h"
#include "drawing_checks.h"
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const OdDbDatabasePtr drawing = OdDbDatabase::createObject();
  try {
    odDbReadBytes(*drawing, {reinterpret_cast<const char*>(data), size}, nullptr, L"fuzz.dxf");
  } catch (const OdError_FileException&) {
    return 0;
  }
  checkDrawing(*drawing);
  return 0;
}
