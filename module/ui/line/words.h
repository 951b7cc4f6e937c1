#pragma once
#include "OdString.h"

namespace ui::line {

OdString trimmed(const OdString& text);

/// A line taken apart: its first word, and what stands behind it.
struct Words {
  OdString first, rest;
};
Words splitFirst(const OdString& line);

/// The text between a pair of "..." around the whole of it; otherwise the text itself.
OdString unquoted(const OdString& text);

} // namespace ui::line
