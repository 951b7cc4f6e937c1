#include "field_text.h"
#include <algorithm>

namespace ui {
namespace {

/// A caret touches what it stands inside of.
bool touches(TextRange range, TextRange field) { return range.begin < field.end && range.end > field.begin; }

} // namespace

Splice difference(const OdString& before, const OdString& after, std::optional<TextRange> around) {
  const std::wstring &a = before.str(), &b = after.str();
  const auto length = [](TextRange range) {
    return static_cast<std::size_t>(std::max(0, range.end - range.begin));
  };
  const std::size_t shorter = std::min(a.size(), b.size());
  const std::size_t mostBefore = around ? std::min(shorter, length({0, around->begin})) : shorter;
  const std::size_t mostBehind = around ? length({around->end, before.getLength()}) : shorter;
  std::size_t prefix = 0, suffix = 0;
  while (prefix < mostBefore && a[prefix] == b[prefix]) ++prefix;
  while (suffix < std::min(mostBehind, shorter - prefix) &&
         a[a.size() - 1 - suffix] == b[b.size() - 1 - suffix])
    ++suffix;
  return {{static_cast<int>(prefix), static_cast<int>(a.size() - suffix)},
          OdString(b.substr(prefix, b.size() - suffix - prefix))};
}

FieldText::FieldText(const std::vector<TextRun>& runs) {
  for (const TextRun& run : runs) {
    const int begin = m_text.getLength();
    m_text += run.text;
    if (run.field) m_fields.push_back({{begin, m_text.getLength()}, run.field});
  }
}

std::vector<TextRun> FieldText::runs() const {
  std::vector<TextRun> result;
  int at = 0;
  const auto addTyped = [&](int end) {
    if (end > at) result.push_back({m_text.mid(at, end - at), 0});
  };
  for (const Field& field : m_fields) {
    addTyped(field.range.begin);
    result.push_back({m_text.mid(field.range.begin, field.range.end - field.range.begin), field.number});
    at = field.range.end;
  }
  addTyped(m_text.getLength());
  return result;
}

std::vector<TextRange> FieldText::fields() const {
  std::vector<TextRange> result;
  result.reserve(m_fields.size());
  for (const Field& field : m_fields) result.push_back(field.range);
  return result;
}

int FieldText::fieldAt(TextRange range) const {
  const auto found =
      std::ranges::find_if(m_fields, [&](const Field& field) { return touches(range, field.range); });
  return found == m_fields.end() ? 0 : found->number;
}

TextRange FieldText::widened(TextRange range) const {
  range.begin = std::clamp(range.begin, 0, m_text.getLength());
  range.end = std::clamp(range.end, range.begin, m_text.getLength());
  TextRange wide = range;
  for (const Field& field : m_fields) {
    if (!touches(range, field.range)) continue;
    wide.begin = std::min(wide.begin, field.range.begin);
    wide.end = std::max(wide.end, field.range.end);
  }
  return wide;
}

int FieldText::replace(TextRange range, const TextRun& run) {
  const TextRange wide = widened(range);
  const int end = wide.begin + run.text.getLength();
  m_text = m_text.left(wide.begin) + run.text + m_text.mid(wide.end);
  std::erase_if(m_fields, [&](const Field& field) { return touches(wide, field.range); });
  const auto behind =
      std::ranges::find_if(m_fields, [&](const Field& field) { return field.range.begin >= wide.end; });
  for (auto field = behind; field != m_fields.end(); ++field) {
    field->range.begin += end - wide.end;
    field->range.end += end - wide.end;
  }
  if (run.field) m_fields.insert(behind, {{wide.begin, end}, run.field});
  return end;
}

} // namespace ui
