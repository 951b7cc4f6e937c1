#include "DbIdMapping.h"

void OdDbIdMapping::assign(const OdDbIdPair& pair) {
  const auto [at, isNew] = m_index.try_emplace(pair.key, m_pairs.size());
  if (isNew)
    m_pairs.push_back(pair);
  else
    m_pairs[at->second] = pair;
}

OdDbObjectId OdDbIdMapping::value(OdDbObjectId key) const {
  const auto found = m_index.find(key);
  return found == m_index.end() ? OdDbObjectId() : m_pairs[found->second].value;
}
