#include "DxfHeaderText.h"
#include <algorithm>
#include <cmath>

bool dxfSameGroup(const OdDbGroupList& a, const OdDbGroup& inA, const OdDbGroupList& b,
                  const OdDbGroup& inB) {
  if (inA.code != inB.code || inA.kind != inB.kind) return false;
  switch (inA.kind) {
  case OdDbGroupKind::kReal: return inA.real == inB.real || (std::isnan(inA.real) && std::isnan(inB.real));
  case OdDbGroupKind::kInteger:
  case OdDbGroupKind::kBool: return inA.integer == inB.integer;
  case OdDbGroupKind::kHandle: return inA.handle == inB.handle;
  default: return a.text(inA) == b.text(inB);
  }
}

namespace {

constexpr int kVariableCode = 9;

bool sameGroups(const OdDbGroupList& a, const OdDbGroupList& b) {
  return std::equal(a.items.begin(), a.items.end(), b.items.begin(), b.items.end(),
                    [&](const OdDbGroup& inA, const OdDbGroup& inB) { return dxfSameGroup(a, inA, b, inB); });
}

} // namespace

DxfHeaderText::DxfHeaderText(const DxfParser* parser, const OdDbTextCodec& codec, std::string_view asRead) {
  if (!parser) return;
  const char* values = nullptr;
  const auto close = [&](const char* end) {
    if (m_variables.empty()) return;
    Variable& last = m_variables.back();
    last.bytes = {last.begin, static_cast<std::size_t>(end - last.begin)};
    parser->parse({values, static_cast<std::size_t>(end - values)}, *last.groups);
  };
  parser->visit(asRead, [&](const DxfRawGroup& group, const char* behind) {
    if (group.code != kVariableCode) return;
    close(group.place);
    values = behind;
    m_variables.push_back({group.value, group.place, {}, OdDbGroupListPtr(new OdDbGroupList)});
    m_variables.back().groups->codec = &codec;
  });
  close(asRead.data() + asRead.size());
  for (std::size_t i = 0; i < m_variables.size(); ++i) m_byName.emplace(m_variables[i].name, i);
}

std::string_view DxfHeaderText::slice(const OdDbHeaderVariable& variable) const {
  const auto [first, last] = m_byName.equal_range(variable.name);
  const auto same = std::find_if(first, last, [&](const auto& named) {
    return sameGroups(*m_variables[named.second].groups, *variable.groups);
  });
  return same == last ? std::string_view() : m_variables[same->second].bytes;
}

bool DxfHeaderText::holds(const std::vector<OdDbHeaderVariable>& variables) const {
  return std::equal(m_variables.begin(), m_variables.end(), variables.begin(), variables.end(),
                    [](const Variable& a, const OdDbHeaderVariable& b) {
                      return a.name == b.name && sameGroups(*a.groups, *b.groups);
                    });
}
