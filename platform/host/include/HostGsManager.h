#pragma once
// Exports of the host library hostgsmanager: what is displayed of a drawing.
#include "DbObjectId.h"
#include <vector>

class OdDbDatabase;

/// Highlights objects for as long as it lives.
class QkHiliteManager {
public:
  QkHiliteManager() = default;
  ~QkHiliteManager();
  QkHiliteManager(const QkHiliteManager&) = delete;
  QkHiliteManager& operator=(const QkHiliteManager&) = delete;

  /// Highlights an object. The arguments of the style are the host's own: commands pass 3, 10, 70, 0.
  void Hilite(OdDbObjectId id, int style, int width, int strength, int reserved);

private:
  std::vector<OdDbObjectId> m_ids;
};

/// Shows the drawing's views again with what has changed since.
void hostgsRefreshViews(const OdDbDatabase* database);
