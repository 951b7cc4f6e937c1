// In place of app/picture where its libraries are not to be had.
#include "picture/picture.h"
#include "OdError.h"

namespace picture {

std::string fault(const std::string&) { return "this build of hbhost cannot draw pictures"; }

bool parseSize(const std::string&, int&, int&) { return false; }

std::vector<std::string> write(OdDbDatabase&, const Request& request) {
  throw OdError(eInvalidInput, OdString::fromUtf8(fault(request.file)) + L".");
}

} // namespace picture
