#pragma once
// What was found wrong in drawings, as text for people.
#include "DxfFindings.h"
#include <iosfwd>

namespace app {

struct FindingCounts {
  std::size_t errors = 0;
  std::size_t repairs = 0;
};
FindingCounts countFindings(const std::vector<OdDbDxfFinding>& findings);

/// One line each, with its number: first the errors, then the repairs. `name` stands for the drawing.
void printFindings(std::ostream& out, const std::string& name, const std::vector<OdDbDxfFinding>& findings);

/// "2 errors, 1 repair", or "nothing was found".
std::string summed(const std::vector<OdDbDxfFinding>& findings);

} // namespace app
