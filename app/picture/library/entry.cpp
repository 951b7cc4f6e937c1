#include "entry.h"
#include "picture/picture.h"

extern "C" void hbpictureWrite(OdDbDatabase& database, const picture::Request& request,
                               std::vector<std::string>& notes) {
  notes = picture::write(database, request);
}
