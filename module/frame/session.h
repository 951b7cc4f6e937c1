#pragma once
#include "DbDatabase.h"
#include "HostEdInput.h"

namespace frame {

/// What a run works with: the drawing, to which it holds a reference, and the editor.
class Session {
public:
  /// Asks the host. Throws OdError (eNoDatabase) when no drawing is open.
  Session();

  OdDbDatabase& database() const { return *m_database; }
  HostEdInput& input() const { return *m_input; }

private:
  OdDbDatabasePtr m_database;
  HostEdInput* m_input;
};

} // namespace frame
