#pragma once
#include "OdString.h"
#include <string_view>
#include <vector>

namespace attext {

enum class ExtractFormat { cdf = 0, sdf = 1, dxx = 2 };

/// What outlives a run of the extraction, for as long as the module stays loaded.
struct ExtractSettings {
  /// Between the cells of a record. The command resets it before each run.
  OdString delimiter;
  /// Around the character cells of CDF files; while empty, a single quote is used. Only a template sets it,
  /// and nothing resets it: a later template that names none goes on with it.
  OdString quote;
  ExtractFormat format = ExtractFormat::cdf;
};

/// One column of a template.
struct ExtractField {
  /// An attribute's tag, or "BL:" and a block keyword.
  OdString name;
  bool numeric = false;
  /// In characters; longer cells are not cut.
  OdUInt16 width = 0;
  /// As the template gives them. They do not change the text of numbers, which always has five digits.
  OdUInt16 decimals = 0;
};

/// Reads a template: pairs of words between blanks, tabs and line ends. A pair is a column (TAG N010004:
/// numeric, width 10, 4 decimals), or sets the quote (C:QUOTE) or delimiter (C:DELIM) in `settings`; other
/// pairs, and a word left over, mean nothing. `text` is in the system's narrow code page.
std::vector<ExtractField> parseTemplate(std::string_view text, ExtractSettings& settings);

} // namespace attext
