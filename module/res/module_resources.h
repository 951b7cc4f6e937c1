#pragma once
#include <cstdint>
#include <optional>
#include <span>

namespace res {

enum class ResourceType : unsigned { icon = 3, menu = 4, dialog = 5, stringTable = 6, iconGroup = 14 };

/// The data of one of the module's resources, or nothing when it has none of that number. It stays as long as
/// the module.
std::optional<std::span<const std::uint8_t>> moduleResource(ResourceType type, unsigned number);

} // namespace res
