#include "names.h"
#include "words.h"
#include <algorithm>
#include <numeric>

namespace ui::line {
namespace {

std::wstring folded(const OdString& text) { return odFoldCase(text.str()); }

constexpr bool isSeparator(wchar_t unit) {
  return unit < 0x80 && !(unit >= L'0' && unit <= L'9') && !(unit >= L'a' && unit <= L'z') &&
         !(unit >= L'A' && unit <= L'Z');
}

bool hasWordBeginningWith(const std::wstring& name, const std::wstring& typed) {
  for (std::size_t at = name.find(typed); at != std::wstring::npos; at = name.find(typed, at + 1))
    if (at == 0 || isSeparator(name[at - 1])) return true;
  return false;
}

/// How many units must be inserted, removed or replaced to make one text of the other.
std::size_t editDistance(const std::wstring& a, const std::wstring& b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = row[0]++;
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i] != b[j]);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
    }
  }
  return row[b.size()];
}

template <class Fits>
std::vector<std::size_t> indicesWhere(const std::vector<std::wstring>& names, Fits fits) {
  std::vector<std::size_t> result;
  for (std::size_t i = 0; i < names.size(); ++i)
    if (fits(names[i])) result.push_back(i);
  return result;
}

} // namespace

OdString withoutMnemonics(const OdString& caption) {
  std::wstring label;
  const std::wstring& source = caption.str();
  for (std::size_t i = 0; i < source.size(); ++i) {
    if (source[i] == L'&' && ++i == source.size()) break;
    label += source[i];
  }
  return OdString(label);
}

OdString plainLabel(const OdString& seen) {
  const std::size_t last = seen.str().find_last_not_of(L" .:<>");
  return trimmed(last == std::wstring::npos ? seen : seen.left(static_cast<int>(last) + 1));
}

std::vector<std::size_t> matches(const std::vector<OdString>& names, const OdString& typed) {
  std::vector<std::wstring> all;
  all.reserve(names.size());
  for (const OdString& name : names) all.push_back(folded(name));
  const std::wstring wanted = folded(typed);
  if (wanted.empty()) return {};
  auto found = indicesWhere(all, [&](const std::wstring& name) { return name == wanted; });
  if (found.empty())
    found = indicesWhere(all, [&](const std::wstring& name) { return name.starts_with(wanted); });
  if (found.empty())
    found = indicesWhere(all, [&](const std::wstring& name) { return hasWordBeginningWith(name, wanted); });
  return found;
}

std::vector<OdString> nearest(const std::vector<OdString>& names, const OdString& typed) {
  const std::wstring wanted = folded(typed);
  std::vector<std::pair<std::size_t, OdString>> ranked;
  ranked.reserve(names.size());
  for (const OdString& name : names) ranked.emplace_back(editDistance(folded(name), wanted), name);
  std::ranges::stable_sort(ranked, {}, &std::pair<std::size_t, OdString>::first);
  std::vector<OdString> result;
  for (const auto& [distance, name] : ranked)
    if (result.size() < 3) result.push_back(name);
  return result;
}

OdString quoted(const OdString& name) { return L"\"" + name + L"\""; }

OdString listed(const std::vector<OdString>& names) {
  OdString text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) text += i + 1 < names.size() ? OdString(L", ") : OdString(L" or ");
    text += quoted(names[i]);
  }
  return text;
}

} // namespace ui::line
