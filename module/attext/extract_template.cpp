#include "extract_template.h"
#include "sys/codepage.h"
#include <algorithm>

namespace attext {
namespace {

/// The next word, taken off the front of `text`; empty at the end.
std::string_view takeWord(std::string_view& text) {
  constexpr std::string_view blanks = " \t\r\n";
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  const std::string_view word = text.substr(0, text.find_first_of(blanks));
  text.remove_prefix(word.size());
  return word;
}

bool equalsIgnoringCase(std::string_view word, std::string_view upper) {
  const auto toUpper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
  return std::equal(word.begin(), word.end(), upper.begin(), upper.end(),
                    [&](char a, char b) { return toUpper(a) == b; });
}

/// As the C runtime's atoi reads it: a sign, then digits up to the first other character. Negative values
/// wrap into the unsigned range that columns are stored in.
OdUInt16 leadingInteger(std::string_view digits) {
  const bool negative = digits.starts_with('-');
  if (negative || digits.starts_with('+')) digits.remove_prefix(1);
  int value = 0;
  for (const char c : digits) {
    if (c < '0' || c > '9') break;
    value = value * 10 + (c - '0');
  }
  return static_cast<OdUInt16>(negative ? -value : value);
}

constexpr std::size_t kColumnWordLength = 7; // C008000

ExtractField column(std::string_view name, std::string_view type) {
  ExtractField field;
  field.name = sys::fromNarrow(name);
  field.numeric = type[0] == 'N';
  field.width = leadingInteger(type.substr(1, 3));
  if (field.numeric) field.decimals = leadingInteger(type.substr(4, 3));
  return field;
}

} // namespace

std::vector<ExtractField> parseTemplate(std::string_view text, ExtractSettings& settings) {
  std::vector<ExtractField> columns;
  for (;;) {
    const std::string_view name = takeWord(text);
    const std::string_view value = takeWord(text);
    if (value.empty()) return columns;
    if (equalsIgnoringCase(name, "C:QUOTE")) {
      settings.quote = sys::fromNarrow(value);
    } else if (equalsIgnoringCase(name, "C:DELIM")) {
      settings.delimiter = sys::fromNarrow(value);
    } else if (value.size() == kColumnWordLength) {
      columns.push_back(column(name, value));
    }
  }
}

} // namespace attext
