#include "check.h"
#include "DbStore.h"
#include "DrawingAudit.h"
#include "DxfForm.h"
#include "DxfRecover.h"
#include "drawing_file.h"
#include "findings.h"
#include "progress.h"
#include "sys/files.h"
#include <iostream>
#include <nlohmann/json.hpp>

namespace fs = std::filesystem;

namespace app {

namespace {

using Json = nlohmann::ordered_json;

/// What was found out about one drawing.
struct Report {
  std::string path;
  std::string release; ///< as the drawing tells it ("AC1032"); empty: it does not
  std::string form;    ///< "ascii" or "binary"; empty where it could not be read
  bool isReadable = true;
  std::string error; ///< why it could not be read, or not without recovering
  std::size_t objects = 0;
  std::vector<OdDbDxfFinding> findings;
  std::vector<std::string> notes; ///< about its texts

  const char* status() const {
    if (!isReadable) return "unreadable";
    if (findings.empty()) return "sound";
    return countFindings(findings).errors > 0 ? "damaged" : "repairable";
  }
};

void describe(Report& report, const OdDbDatabase& database) {
  OdDbStore& store = database.store();
  report.objects = store.objectCount();
  report.form = static_cast<const DxfParser&>(*store.parser).text().isBinary ? "binary" : "ascii";
  const OdDbHeaderVariable* release = store.headerVariable("$ACADVER");
  if (release && !release->groups->items.empty()) report.release = release->groups->text(0).toUtf8();
}

void recover(Report& report, const OdString& path, const OdDbDxfReadOptions& options) {
  const OdDbDatabasePtr database = OdDbDatabase::createObject();
  try {
    report.findings = odDbRecoverFile(*database, path, options);
    describe(report, *database);
  } catch (const OdDbDxfRecoverError& error) {
    report.isReadable = false;
    report.error = error.what();
    report.findings = error.findings();
  }
}

Report check(const fs::path& file) {
  Report report;
  report.path = shown(file);
  ProgressBar bar("Checking " + shown(file.filename()));
  OdDbDxfReadOptions options;
  options.progress = [&bar](double part) {
    bar.show(part);
    return true;
  };
  options.note = [&report](const OdString& sentence) { report.notes.push_back(sentence.toUtf8()); };
  const OdString path = sys::fromPath(file);
  try {
    const OdDbDatabasePtr database = OdDbDatabase::createObject();
    odDbReadFile(*database, path, options);
    OdDbDxfFindings findings;
    odDbAudit(*database, OdDbAuditMode::readOnly, findings);
    report.findings = findings.take();
    describe(report, *database);
    return report;
  } catch (const OdError& error) {
    report.error = error.what();
    report.isReadable = error.code() == eDxfReadError;
  }
  if (report.isReadable) recover(report, path, options);
  return report;
}

Json toJson(const Report& report) {
  const auto orNull = [](const std::string& text) { return text.empty() ? Json() : Json(text); };
  Json findings = Json::array();
  for (const OdDbDxfFinding& finding : report.findings)
    findings.push_back(
        {{"number", finding.number},
         {"kind", finding.kind == OdDbDxfFinding::kError ? "error" : "repair"},
         {"id", finding.id},
         {finding.isByte ? "byte" : "line", finding.where == 0 ? Json() : Json(finding.where)},
         {"handle", finding.handle == 0 ? Json() : Json(OdDbHandle(finding.handle).ascii().toUtf8())},
         {"sentence", finding.sentence},
         {"times", finding.times}});
  const FindingCounts counts = countFindings(report.findings);
  return {{"path", report.path},
          {"release", orNull(report.release)},
          {"form", orNull(report.form)},
          {"status", report.status()},
          {"error", orNull(report.error)},
          {"findings", findings},
          {"notes", report.notes},
          {"counts", {{"objects", report.objects}, {"errors", counts.errors}, {"repairs", counts.repairs}}}};
}

void print(const Report& report) {
  printFindings(std::cout, report.path, report.findings);
  for (const std::string& note : report.notes) std::cout << report.path << ": note: " << note << ".\n";
  if (!report.error.empty()) std::cout << report.error << '\n';
  std::cout << report.path << ": " << report.status();
  if (report.isReadable && !report.findings.empty()) std::cout << ": " << summed(report.findings);
  std::cout << std::endl;
}

} // namespace

ExitStatus runCheck(const CheckOptions& options) {
  ExitStatus status = kAllRan;
  Json drawings = Json::array();
  for (const std::string& drawing : options.drawings) {
    const Report report = check(drawing);
    if (!report.isReadable)
      status = worse(status, kNotRead);
    else if (!report.findings.empty())
      status = worse(status, kCommandFailed);
    if (options.json)
      drawings.push_back(toJson(report));
    else
      print(report);
  }
  constexpr int kIndent = 2;
  if (options.json)
    std::cout << Json({{"drawings", drawings}}).dump(kIndent, ' ', false, Json::error_handler_t::replace)
              << std::endl;
  return std::cout ? status : worse(status, kNotWritten);
}

} // namespace app
