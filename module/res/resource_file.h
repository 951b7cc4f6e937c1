#pragma once
#include "module_resources.h"

namespace res {

/// The data of one resource in the compiled form of a resource script, or nothing when it holds none of that
/// number. The file is walked from its beginning; damage on the way throws Error.
std::optional<std::span<const std::uint8_t>> findResource(std::span<const std::uint8_t> file,
                                                          ResourceType type, unsigned number);

} // namespace res
