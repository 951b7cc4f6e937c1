#include "command_names.h"
#include <algorithm>

namespace app {

namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::size_t agreement(const std::string& a, const std::string& b) {
  const auto differs = std::ranges::mismatch(a, b, [](char x, char y) { return lower(x) == lower(y); });
  return static_cast<std::size_t>(differs.in1 - a.begin());
}

} // namespace

Completion completeCommand(const std::string& typed, std::vector<std::string> names) {
  Completion result{typed, {}};
  for (std::string& name : names)
    if (agreement(name, typed) == typed.size()) result.candidates.push_back(std::move(name));
  std::ranges::sort(result.candidates);
  if (result.candidates.empty()) return result;
  result.text = result.candidates.front();
  for (const std::string& name : result.candidates) result.text.resize(agreement(result.text, name));
  return result;
}

} // namespace app
