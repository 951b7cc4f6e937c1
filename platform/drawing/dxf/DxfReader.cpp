#include "DxfReader.h"
#include "DxfBuilder.h"
#include "DxfForm.h"
#include "EncodingOverride.h"
#include "sys/files.h"

void odDbReadBytes(OdDbDatabase& database, std::string_view bytes, std::shared_ptr<void> owner,
                   const OdString& name, const OdDbDxfReadOptions& options) {
  const auto text = std::make_shared<DxfText>(DxfText{bytes, name});
  const std::shared_ptr<const DxfParser> parser = dxfParserFor(text);
  const DxfImage stored{std::move(owner), bytes, options.encoding};
  const DxfImage image = dxfConvertedImage(stored, *text);
  text->bytes = image.bytes;
  OdDbStore& store = database.store();
  store.image = image.owner;
  store.parser = parser;
  store.fileName = name;
  OdDbDxfReadOptions remaining = options;
  remaining.encoding = image.encoding;
  DxfBuilder(store, *text, *parser->records(), remaining).build();
  dxfSettleEncoding(store, {bytes, name, text->isBinary}, options);
}

void odDbReadFile(OdDbDatabase& database, const OdString& path, const OdDbDxfReadOptions& options) {
  sys::FileBytes file;
  try {
    file = sys::readFile(sys::toPath(path.str()));
  } catch (const sys::FileError& error) {
    throw OdError_FileException(eFileAccessErr, OdString::fromUtf8(error.what()));
  }
  odDbReadBytes(database, file.bytes, std::move(file.owner), path, options);
}
