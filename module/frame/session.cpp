#include "session.h"
#include "host_lookup.h"

namespace frame {

// The host is asked once for the drawing and once for the editor: hosts count on it.
Session::Session() : m_database(currentDocument().Database()), m_input(currentDocument().Editor()) {
  if (m_database.isNull() || !m_input) throw OdError(eNoDatabase);
}

} // namespace frame
