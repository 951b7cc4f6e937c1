#pragma once
#include "DbObjectId.h"
#include <unordered_map>
#include <vector>

/// One source and its copy. `isPrimary` tells the objects that were asked for from those they own.
struct OdDbIdPair {
  OdDbObjectId key;
  OdDbObjectId value;
  bool isPrimary = false;
};

/// What became of the objects of a deep clone, in the order of copying. A value type.
class OdDbIdMapping {
public:
  void assign(const OdDbIdPair& pair);
  /// The copy of a source, or null.
  OdDbObjectId value(OdDbObjectId key) const;
  std::vector<OdDbIdPair>::const_iterator begin() const { return m_pairs.begin(); }
  std::vector<OdDbIdPair>::const_iterator end() const { return m_pairs.end(); }
  int size() const { return static_cast<int>(m_pairs.size()); }

private:
  std::vector<OdDbIdPair> m_pairs;
  std::unordered_map<OdDbObjectId, std::size_t> m_index;
};
