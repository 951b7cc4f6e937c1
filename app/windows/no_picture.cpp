// In place of the library for pictures, for which there is no cairo here.
#include "OdError.h"
#include "picture_loader.h"

namespace app {

std::vector<std::string> drawPicture(OdDbDatabase&, const picture::Request&) {
  throw OdError(eInvalidInput, L"this build of hbhost cannot draw pictures.");
}

} // namespace app
