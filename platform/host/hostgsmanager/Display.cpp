#include "Display.h"
#include "HostGsManager.h"
#include <algorithm>

namespace host {

Display& display() {
  static Display theDisplay;
  return theDisplay;
}

void Display::removeHighlight(OdDbObjectId id) {
  const auto found = std::ranges::find(m_highlighted, id);
  if (found != m_highlighted.end()) m_highlighted.erase(found);
}

} // namespace host

QkHiliteManager::~QkHiliteManager() {
  for (const OdDbObjectId& id : m_ids) host::display().removeHighlight(id);
}

void QkHiliteManager::Hilite(OdDbObjectId id, int, int, int, int) {
  host::display().addHighlight(id);
  m_ids.push_back(id);
}

void hostgsRefreshViews(const OdDbDatabase*) { host::display().refresh(); }
