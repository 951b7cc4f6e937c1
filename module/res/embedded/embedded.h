#pragma once
#include <cstdint>
#include <span>

namespace res {

/// The module's compiled resources in their binary form, as the build embedded them.
std::span<const std::uint8_t> embedded();

} // namespace res
