#pragma once
#include "OdString.h"
#include <cstdint>
#include <optional>
#include <span>

namespace res {

enum class ResourceType : unsigned { dialog = 5, stringTable = 6 };

/// The data of one resource in the compiled form of a resource script, or nothing when it holds none of that
/// number. The file is walked from its beginning; damage on the way throws Error.
std::optional<std::span<const std::uint8_t>> findResource(std::span<const std::uint8_t> file,
                                                          ResourceType type, unsigned number);

/// The text of that number in the string table. A number without a text, or damage, throws Error.
OdString stringFrom(std::span<const std::uint8_t> file, unsigned number);

} // namespace res
