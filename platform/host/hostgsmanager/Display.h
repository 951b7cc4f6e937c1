#pragma once
#include "DbObjectId.h"
#include "Preview.h"
#include <vector>

namespace host {

/// What the process displays besides the drawing itself: the highlighting of objects, the preview of the
/// request under way, and how often views were asked to show themselves again.
class Display {
public:
  /// An object is highlighted as often as it was added and until it was removed as often.
  void addHighlight(OdDbObjectId id) { m_highlighted.push_back(id); }
  void removeHighlight(OdDbObjectId id);
  const std::vector<OdDbObjectId>& highlighted() const { return m_highlighted; }

  Preview& preview() { return m_preview; }
  const Preview& preview() const { return m_preview; }

  void refresh() { ++m_refreshes; }
  void regenerate() { ++m_regenerations; }
  int refreshes() const { return m_refreshes; }
  int regenerations() const { return m_regenerations; }

private:
  std::vector<OdDbObjectId> m_highlighted;
  Preview m_preview;
  int m_refreshes = 0;
  int m_regenerations = 0;
};

/// The one display of the process.
Display& display();

} // namespace host
