#pragma once
#include "OdString.h"
#include <string>
#include <vector>

namespace ui::line {

/// A caption as it is seen, without the marks of mnemonics.
OdString withoutMnemonics(const OdString& caption);
/// A seen caption as people write it: without blanks around it and without closing dots, colon or arrow.
OdString plainLabel(const OdString& seen);

/// The names that `typed` may stand for, as indices: those that equal it, else those that begin with it, else
/// those that have a word which begins with it; without regard to case.
std::vector<std::size_t> matches(const std::vector<OdString>& names, const OdString& typed);

/// Up to three of the names, the most similar to `typed` first.
std::vector<OdString> nearest(const std::vector<OdString>& names, const OdString& typed);

/// "A", "B" or "C"
OdString listed(const std::vector<OdString>& names);
OdString quoted(const OdString& name);

} // namespace ui::line
