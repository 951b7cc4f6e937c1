#include "extract.h"
#include "DbBlockReference.h"
#include "DbBlockTableRecord.h"
#include "DbDictionary.h"
#include "attext_run.h"
#include "drawing_file.h"
#include "extract_plan.h"
#include "module_loader.h"
#include "progress.h"
#include "scratch_file.h"
#include "sys/files.h"
#include <fstream>
#include <iostream>
#include <optional>

namespace fs = std::filesystem;

namespace app {

namespace {

/// The records of a drawing could not be extracted.
struct ExtractFailure {
  ExitStatus status;
  std::string sentence;
};

std::string counted(int count, const char* one, const char* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

OdString layoutNames(OdDbDatabase& database) {
  OdString names;
  const OdDbDictionaryPtr layouts = OdDbDictionary::cast(database.getLayoutDictionaryId(false).openObject());
  if (layouts.isNull()) return names;
  for (const OdDbDictionaryIteratorPtr at = layouts->newIterator(); !at->done(); at->next())
    names += (names.isEmpty() ? OdString() : OdString(L", ")) + at->name();
  return names;
}

/// The block references of the current space, and those among them whose block exists.
struct References {
  int all = 0, withBlock = 0;
};

References countReferences(const OdDbDatabase& database) {
  References count;
  const OdDbBlockTableRecordPtr space =
      OdDbBlockTableRecord::cast(database.getActiveLayoutBTRId().openObject());
  if (space.isNull()) return count;
  for (const OdDbObjectIteratorPtr at = space->newIterator(); !at->done(); at->step()) {
    const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(at->objectId().openObject());
    if (reference.isNull()) continue;
    ++count.all;
    if (!reference->blockTableRecord().isErased()) ++count.withBlock;
  }
  return count;
}

/// Reads drawings one after another and runs the command on each.
class Extraction {
public:
  explicit Extraction(const ExtractOptions& options)
      : m_options(options), m_outputs(planOutputs(options)), m_bar("") {}

  ExitStatus run();

private:
  /// Throws ExtractFailure.
  void extract(const fs::path& drawing, const fs::path& output);
  OdDbDatabasePtr read(const fs::path& drawing);
  void chooseSpace(OdDbDatabase& database) const;
  [[noreturn]] void explainNothing(const AttExtJob& job, const AttExtResult& result) const;
  void summarise(const AttExtJob& job, const AttExtResult& result) const;
  bool toStandardOutput() const { return m_options.output == "-"; }
  std::string space() const {
    return m_options.layout.empty() ? "model space" : "layout " + m_options.layout;
  }

  const ExtractOptions& m_options;
  std::vector<fs::path> m_outputs;
  ProgressBar m_bar;
  std::size_t m_done = 0;
};

ExitStatus Extraction::run() {
  ExitStatus status = kAllRan;
  std::size_t failures = 0;
  for (; m_done < m_outputs.size(); ++m_done) {
    try {
      extract(sys::pathNamed(m_options.drawings[m_done]), m_outputs[m_done]);
    } catch (const ExtractFailure& failure) {
      m_bar.hide();
      std::cerr << "hbhost: " << failure.sentence << '\n';
      status = worse(status, failure.status);
      ++failures;
    }
  }
  m_bar.hide();
  if (m_outputs.size() > 1 && failures > 0)
    std::cerr << "hbhost: " << failures << " of " << m_outputs.size() << " drawings failed.\n";
  return status;
}

OdDbDatabasePtr Extraction::read(const fs::path& drawing) {
  const std::string place =
      m_outputs.size() == 1 ? ""
                            : std::to_string(m_done + 1) + " of " + std::to_string(m_outputs.size()) + ": ";
  m_bar.setLabel(place + shown(drawing.filename()));
  const auto before = static_cast<double>(m_done);
  const auto all = static_cast<double>(m_outputs.size());
  m_bar.show(before / all);
  try {
    const Door door = m_options.recover ? Door::recovering : Door::strict;
    const ReadDrawing read = readDrawing(drawing, door, m_options.encoding,
                                         [&](double part) { m_bar.show((before + part) / all); });
    if (!read.notes.empty() || read.recovered) m_bar.hide();
    printNotes(drawing, read);
    chooseSpace(*read.database);
    return read.database;
  } catch (const OdError& error) {
    throw ExtractFailure{kNotRead, error.what()};
  }
}

void Extraction::chooseSpace(OdDbDatabase& database) const {
  if (m_options.layout.empty()) return database.setCurrentLayout(L"Model");
  try {
    database.setCurrentLayout(OdString::fromUtf8(m_options.layout));
  } catch (const OdError&) {
    throw ExtractFailure{kCommandFailed, database.getFilename().toUtf8() + ": there is no layout " +
                                             m_options.layout + "; there are " +
                                             layoutNames(database).toUtf8() + "."};
  }
}

void Extraction::extract(const fs::path& drawing, const fs::path& output) {
  AttExtJob job{read(drawing), drawing, sys::pathNamed(m_options.templatePath), m_options.format, output};
  std::optional<ScratchFile> scratch;
  if (toStandardOutput()) job.output = scratch.emplace().path();
  const AttExtResult result = runAttExt(job);
  if (result.records == 0) explainNothing(job, result);
  m_bar.hide();
  if (toStandardOutput()) std::cout << std::ifstream(job.output, std::ios::binary).rdbuf() << std::flush;
  if (!std::cout) throw ExtractFailure{kNotWritten, "the standard output cannot be written."};
  summarise(job, result);
}

void Extraction::summarise(const AttExtJob& job, const AttExtResult& result) const {
  std::ostream& out = toStandardOutput() ? std::cerr : std::cout;
  out << shown(job.drawing) << ": " << counted(result.found, "object", "objects") << ", "
      << counted(result.records, "record", "records") << " -> "
      << (toStandardOutput() ? "standard output" : shown(job.output)) << std::endl;
}

void Extraction::explainNothing(const AttExtJob& job, const AttExtResult& result) const {
  const std::string drawing = shown(job.drawing) + ": ";
  if (result.found == 0)
    throw ExtractFailure{kCommandFailed, drawing + "there is no object in " + space() + "."};
  if (!result.failure.empty()) throw ExtractFailure{kCommandFailed, drawing + result.failure};
  const References references = countReferences(*job.database);
  const std::string objects = counted(result.found, "object", "objects") + " in " + space();
  if (references.all == 0)
    throw ExtractFailure{kCommandFailed, drawing + "there is no block reference among the " + objects + "."};
  if (references.withBlock == 0)
    throw ExtractFailure{kCommandFailed,
                         drawing + "the blocks of all references in " + space() + " are missing."};
  const std::string fault = outputFault(job.output);
  throw ExtractFailure{kNotWritten,
                       shown(job.output) + ": " + (fault.empty() ? "the output is not complete" : fault)};
}

} // namespace

ExitStatus runExtract(const ExtractOptions& options) {
  std::string error;
  try {
    if (options.format != ExtractFormat::dxx) checkTemplate(sys::pathNamed(options.templatePath));
    Extraction extraction(options);
    if (loadModule(error)) return extraction.run();
    std::cerr << "hbhost: the module cannot be loaded: " << error << '\n';
    return kCommandFailed;
  } catch (const UsageError& wrong) {
    std::cerr << "hbhost: " << wrong.what() << '\n';
    return kWrongUsage;
  }
}

} // namespace app
