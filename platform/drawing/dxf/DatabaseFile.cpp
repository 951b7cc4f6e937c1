// The file operations of the database.
#include "BlankDrawing.h"
#include "DbDatabase.h"
#include "DbStore.h"
#include "DxfReader.h"
#include "DxfWriter.h"

OdDbDatabasePtr OdDbDatabase::createBlank() {
  OdDbDatabasePtr database = createObject();
  auto text = std::make_shared<std::string>(dxfBlankDrawing());
  const std::string_view bytes = *text;
  odDbReadBytes(*database, bytes, std::move(text), OdString());
  return database;
}

void OdDbDatabase::readFile(const OdString& path) { odDbReadFile(*this, path); }

void OdDbDatabase::writeFile(const OdString& path) {
  odDbWriteFile(*this, path);
  m_store->fileName = path;
}
