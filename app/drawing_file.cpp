#include "drawing_file.h"
#include "DbStore.h"
#include "DxfRecover.h"
#include "DxfWriter.h"
#include "OldRelease.h"
#include "ReleaseUpgrade.h"
#include "TextCodec.h"
#include "findings.h"
#include "sys/codepage.h"
#include "sys/files.h"
#include <iostream>

namespace fs = std::filesystem;

namespace app {

std::string shown(const fs::path& path) { return OdString(sys::fromPath(path)).toUtf8(); }

namespace {

void readStrictly(OdDbDatabase& database, const fs::path& file, const OdDbDxfReadOptions& options) {
  try {
    odDbReadFile(database, sys::fromPath(file), options);
  } catch (const OdError& error) {
    if (error.code() != eDxfReadError) throw;
    throw OdError_FileException(eDxfReadError,
                                error.description() + L" (damaged drawings open with --recover)");
  }
}

} // namespace

ReadDrawing readDrawing(const fs::path& file, Door door, const std::string& encoding,
                        const Progress& progress) {
  ReadDrawing read{OdDbDatabase::createObject(), {}, {}, false};
  OdDbDxfReadOptions options;
  options.encoding = OdString::fromUtf8(encoding);
  options.progress = [&progress](double part) {
    progress(part);
    return true;
  };
  options.note = [&read](const OdString& sentence) { read.notes.push_back(sentence.toUtf8()); };
  read.recovered = door == Door::recovering;
  if (read.recovered)
    read.findings = odDbRecoverFile(*read.database, sys::fromPath(file), options);
  else
    readStrictly(*read.database, file, options);
  return read;
}

void printNotes(const fs::path& file, const std::vector<std::string>& notes) {
  for (const std::string& note : notes) std::cerr << "hbhost: " << shown(file) << ": note: " << note << ".\n";
}

void printNotes(const fs::path& file, const ReadDrawing& read) {
  printNotes(file, read.notes);
  if (!read.recovered) return;
  printFindings(std::cerr, shown(file), read.findings);
  std::cerr << shown(file) << ": " << summed(read.findings) << ".\n";
}

namespace {

/// Makes the drawing one of release 2000 where that is wanted or needed; returns what a user should know.
std::string fitRelease(OdDbDatabase& database, bool asRelease2000) {
  const std::string sentence = dxfNoveltySentence(database.store());
  if (sentence.empty() && (!asRelease2000 || database.originalFileVersion() == OdDb::vAC15)) return {};
  odDbUpgradeTo2000(database);
  return "saved as a drawing of release 2000" + (sentence.empty() ? "" : ", because " + sentence);
}

} // namespace

std::vector<std::string> writeDrawing(OdDbDatabase& database, const fs::path& file,
                                      const SavingOptions& saving, const Progress& progress) {
  const OdString path = sys::fromPath(file);
  OdString extension = sys::fromPath(file.extension());
  if (extension.iCompare(L".dwg") == 0)
    throw OdError_FileException(eNotSupportedFormat,
                                path + L": drawings are written as DXF only; use a name that ends in .dxf");
  std::vector<std::string> notes;
  if (std::string note = fitRelease(database, saving.asRelease2000); !note.empty())
    notes.push_back(std::move(note));
  OdDbDxfWriteOptions options;
  options.note = [&notes](const OdString& sentence) { notes.push_back(sentence.toUtf8()); };
  options.verify = saving.check;
  options.backup = saving.backup;
  options.progress = progress;
  odDbWriteFile(database, path, options);
  database.store().fileName = path;
  return notes;
}

std::string encodingFault(const std::string& name) {
  if (!name.empty() && OdDbDxfTextCodec::named(name)) return {};
  return "\"" + name + "\" is no known encoding; known are " + sys::kEncodings;
}

} // namespace app
