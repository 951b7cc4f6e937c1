#include "DxfFindings.h"
#include <algorithm>
#include <utility>

namespace {
constexpr std::size_t kMostOfOneId = 100;
} // namespace

void OdDbDxfFindings::add(OdDbDxfFinding::Kind kind, const char* id, std::size_t where, OdUInt64 handle,
                          std::string sentence) {
  Count& count = m_counts[id];
  if (++count.met > kMostOfOneId) {
    count.worst = std::min(count.worst, kind);
    return;
  }
  // Names of damaged drawings must not move the cursor of a terminal.
  for (char& c : sentence)
    if (static_cast<unsigned char>(c) < ' ' || c == '\x7F') c = '?';
  m_findings.push_back({static_cast<int>(m_findings.size()) + 1, kind, where, m_countsBytes, handle, id,
                        std::move(sentence), 1});
}

std::vector<OdDbDxfFinding> OdDbDxfFindings::take() {
  for (const auto& [id, count] : m_counts) {
    if (count.met <= kMostOfOneId) continue;
    const std::size_t more = count.met - kMostOfOneId;
    m_findings.push_back({static_cast<int>(m_findings.size()) + 1, count.worst, 0, false, 0, id,
                          "the same was found " + std::to_string(more) + " more times", more});
  }
  m_counts.clear();
  return std::move(m_findings);
}
