#include "DxfWriter.h"
#include "DxfSelfCheck.h"
#include "DxfStoreWriter.h"
#include "DxfVerifier.h"
#include "OldRelease.h"
#include "sys/files.h"

namespace {

/// Of the whole work, as progress counts it; the rest is reading back.
constexpr double kWritingPart = 0.5;

void verify(const OdDbStore& store, const DxfStoreWriter& writer, const sys::ReplacementFile& file,
            const OdString& path, const std::function<void(double)>& progress) {
  sys::MappedFile written(file.temporary());
  const auto text = std::make_shared<DxfText>(DxfText{written.bytes(), path + L" (the new file, read back)"});
  try {
    dxfVerify(store, writer, text, [&](const char* place) {
      const auto done = static_cast<double>(place - text->bytes.data());
      progress(kWritingPart + (1 - kWritingPart) * done / static_cast<double>(text->bytes.size()));
      written.forget(place);
    });
  } catch (const OdError_FileException& error) {
    throw OdError_FileException(eFileWriteError, error.description());
  }
}

void checkRelease(const OdDbStore& store, const OdString& path) {
  const std::string sentence = dxfNoveltySentence(store);
  if (!sentence.empty())
    throw OdError_FileException(eNotSupportedFormat,
                                path + L": " +
                                    OdString::fromUtf8(sentence + "; save the drawing as release 2000"));
}

} // namespace

void odDbWriteFile(OdDbDatabase& database, const OdString& path, const OdDbDxfWriteOptions& options) {
  OdDbStore& store = database.store();
  const auto tell = [&options](double part) {
    if (options.progress) options.progress(part);
  };
  checkRelease(store, path);
  if (options.verify)
    for (const std::string& sentence : dxfSelfCheck(database, path))
      if (options.note) options.note(OdString::fromUtf8(sentence));
  try {
    sys::ReplacementFile file(sys::toPath(path.str()));
    const auto objects = static_cast<double>(store.objectCount());
    const DxfStoreWriter* progressing = nullptr;
    const std::unique_ptr<DxfOutput> output = DxfOutput::create(
        [&](std::string_view bytes) {
          file.write(bytes);
          if (progressing) tell(kWritingPart * static_cast<double>(progressing->written().size()) / objects);
        },
        DxfStoreWriter::styleOf(store));
    DxfStoreWriter writer(store, *output);
    progressing = &writer;
    writer.write();
    file.flush();
    if (options.verify) verify(store, writer, file, path, tell);
    if (options.backup) file.keepOld();
    file.commit();
  } catch (const sys::FileError& error) {
    throw OdError_FileException(eFileWriteError, OdString::fromUtf8(error.what()));
  }
}

std::string odDbWriteBytes(OdDbDatabase& database) {
  std::string bytes;
  const std::unique_ptr<DxfOutput> output = DxfOutput::create(
      [&bytes](std::string_view piece) { bytes += piece; }, DxfStoreWriter::styleOf(database.store()));
  DxfStoreWriter(database.store(), *output).write();
  return bytes;
}
