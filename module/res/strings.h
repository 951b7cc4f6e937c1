#pragma once
#include "OdString.h"
#include "resource.h"
#include <cstdint>
#include <optional>
#include <span>

namespace res {

/// The text of that number (IDS_...) in the module's string table, exactly as stored: placeholders unfilled,
/// blanks kept. A number that has no text throws Error, which names it.
OdString loadString(unsigned number);

/// Texts are stored in blocks of sixteen: the number of the block that holds a text.
unsigned stringBlock(unsigned number);
/// A text out of its block; nothing stands for a block that does not exist. A number without a text, or
/// damage, throws Error.
OdString stringFrom(std::optional<std::span<const std::uint8_t>> block, unsigned number);

} // namespace res
