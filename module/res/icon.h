#pragma once
#include <cstdint>
#include <span>

namespace res {

/// The picture of the module's icon of that number that measures 16 by 16 pixels, or the first one where none
/// does, in the form of an icon resource. A number that has no icon throws Error, which names it.
std::span<const std::uint8_t> loadIcon(unsigned number);

} // namespace res
