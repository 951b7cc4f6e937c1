#include "drawings.h"
#include "DxfReader.h"
#include "DxfWriter.h"

namespace test {

OdDbDatabasePtr drawingFromText(std::string_view dxf) {
  OdDbDatabasePtr database = OdDbDatabase::createObject();
  auto text = std::make_shared<std::string>(dxf);
  const std::string_view bytes = *text;
  odDbReadBytes(*database, bytes, std::move(text), L"test.dxf");
  return database;
}

std::string savedBytes(OdDbDatabase& database) { return odDbWriteBytes(database); }

} // namespace test
