#include "findings.h"
#include <ostream>

namespace app {

namespace {

void printKind(std::ostream& out, const std::string& title, OdDbDxfFinding::Kind kind,
               const std::vector<OdDbDxfFinding>& findings) {
  bool isTitled = false;
  for (const OdDbDxfFinding& finding : findings) {
    if (finding.kind != kind) continue;
    if (!isTitled) out << title << '\n';
    isTitled = true;
    out << "  " << finding.number << ". ";
    if (finding.where != 0) out << (finding.isByte ? "byte " : "line ") << finding.where << ": ";
    out << finding.sentence << " [" << finding.id << "]\n";
  }
}

std::string counted(std::size_t count, const char* one, const char* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

} // namespace

FindingCounts countFindings(const std::vector<OdDbDxfFinding>& findings) {
  FindingCounts counts;
  for (const OdDbDxfFinding& finding : findings)
    (finding.kind == OdDbDxfFinding::kError ? counts.errors : counts.repairs) += finding.times;
  return counts;
}

void printFindings(std::ostream& out, const std::string& name, const std::vector<OdDbDxfFinding>& findings) {
  printKind(out, name + ": errors:", OdDbDxfFinding::kError, findings);
  printKind(out, name + ": repairs:", OdDbDxfFinding::kRepair, findings);
}

std::string summed(const std::vector<OdDbDxfFinding>& findings) {
  if (findings.empty()) return "nothing was found";
  const FindingCounts counts = countFindings(findings);
  return counted(counts.errors, "error", "errors") + ", " + counted(counts.repairs, "repair", "repairs");
}

} // namespace app
