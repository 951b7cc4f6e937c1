#include "DxfRecover.h"
#include "DbStore.h"
#include "DrawingAudit.h"
#include "RecoverIdentity.h"
#include "RecoverScanner.h"
#include "sys/files.h"
#include <algorithm>

namespace {

/// A file's bytes and what keeps them alive.
struct Image {
  std::string_view bytes;
  std::shared_ptr<void> owner;
};

Image imageOf(std::string text) {
  auto owned = std::make_shared<std::string>(std::move(text));
  return {*owned, owned};
}

/// Line ends that no reader takes: carriage returns alone, or twice.
void repairLineEnds(Image& image, OdDbDxfFindings& findings) {
  if (binaryCodes::isMarked(image.bytes)) return;
  const bool alone =
      image.bytes.find('\n') == std::string_view::npos && image.bytes.find('\r') != std::string_view::npos;
  const bool twice = image.bytes.find("\r\r\n") != std::string_view::npos;
  if (!alone && !twice) return;
  std::string text;
  text.reserve(image.bytes.size());
  for (std::size_t at = 0; at < image.bytes.size(); ++at) {
    if (twice && image.bytes.substr(at, 3) == "\r\r\n") continue;
    text += alone && image.bytes[at] == '\r' ? '\n' : image.bytes[at];
  }
  image = imageOf(std::move(text));
  findings.add(OdDbDxfFinding::kRepair, "line-ends", 0, 0,
               alone ? "the lines end in carriage returns only: they end in line feeds now"
                     : "lines end in two carriage returns: they end in one now");
}

/// The drawing of the scanned records as a file that the strict reader takes.
std::string cleanText(const RecoverScanner& scanner, RecoverStructure& structure, const RecoverForm& form) {
  constexpr std::size_t kRoomForEnds = 64;
  std::size_t size = scanner.preamble.bytes.size() + scanner.ending.size() + kRoomForEnds;
  structure.visit([&](const RecoverRecord* record) { size += record->bytes.size(); });
  std::string text;
  text.reserve(size);
  form.append(text, scanner.preamble.bytes);
  structure.visit([&](const RecoverRecord* record) { form.append(text, record->bytes); });
  return text.append(scanner.ending.empty() ? form.end() : std::string(scanner.ending));
}

/// Whether anything among the records is part of a drawing; other files are left to the strict reader to
/// refuse.
bool holdsDrawing(const std::deque<RecoverRecord>& records) {
  return std::any_of(records.begin(), records.end(), [](const RecoverRecord& record) {
    return record.name == "SECTION" || record.saysEntity || record.holdsVariables ||
           odrxGetClassByDxfName(record.name);
  });
}

/// Replaces the image by a repaired one where there is something to repair. Throws OdError_FileException for
/// files of other kinds.
void repair(Image& image, const OdString& name, const OdDbDxfReadOptions& options,
            OdDbDxfFindings& findings) {
  repairLineEnds(image, findings);
  const auto text = std::make_shared<DxfText>(DxfText{image.bytes, name});
  RecoverContext context(text, findings);
  RecoverScanner scanner(*text, context);
  scanner.scan();
  if (!holdsDrawing(scanner.records)) return;
  RecoverHeader header(scanner.records, context);
  RecoverStructure structure(header, context);
  structure.read(scanner.records);
  header.repairVariables();
  header.repairRelease();
  std::shared_ptr<const OdDbTextCodec> codec = OdDbDxfTextCodec::named(options.encoding.toUtf8());
  if (!codec) codec = header.codec();
  RecoverIdentity(structure, header, context, std::move(codec)).repair();
  if (!findings.empty()) image = imageOf(cleanText(scanner, structure, context.form));
}

} // namespace

std::vector<OdDbDxfFinding> odDbRecoverBytes(OdDbDatabase& database, std::string_view bytes,
                                             std::shared_ptr<void> owner, const OdString& name,
                                             const OdDbDxfReadOptions& options) {
  OdDbDxfFindings findings;
  Image image{bytes, std::move(owner)};
  try {
    repair(image, name, options, findings);
    odDbReadBytes(database, image.bytes, image.owner, name, options);
  } catch (const OdError& error) {
    throw OdDbDxfRecoverError(error, findings.take());
  }
  odDbAudit(database, OdDbAuditMode::repair, findings);
  database.store().undo.clear();
  return findings.take();
}

std::vector<OdDbDxfFinding> odDbRecoverFile(OdDbDatabase& database, const OdString& path,
                                            const OdDbDxfReadOptions& options) {
  sys::FileBytes file;
  try {
    file = sys::readFile(sys::toPath(path.str()));
  } catch (const sys::FileError& error) {
    throw OdError_FileException(eFileAccessErr, OdString::fromUtf8(error.what()));
  }
  return odDbRecoverBytes(database, file.bytes, std::move(file.owner), path, options);
}
