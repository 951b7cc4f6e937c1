#include "picture_loader.h"
#include "OdError.h"
#include "picture/library/entry.h"
#include "sys/library.h"

namespace app {

std::vector<std::string> drawPicture(OdDbDatabase& database, const picture::Request& request) {
  std::string error;
  const sys::Library library = sys::loadLibrary("hbpicture.dll", error);
  const auto write = reinterpret_cast<picture::Write*>(sys::librarySymbol(library, picture::kWriteSymbol));
  if (!write) throw OdError(eFileNotFound, L"pictures cannot be drawn: " + OdString::fromUtf8(error));
  std::vector<std::string> notes;
  write(database, request, notes);
  return notes;
}

} // namespace app
