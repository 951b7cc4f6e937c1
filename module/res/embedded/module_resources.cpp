#include "res/module_resources.h"
#include "embedded.h"
#include "res/resource_file.h"

std::optional<std::span<const std::uint8_t>> res::moduleResource(ResourceType type, unsigned number) {
  return findResource(embedded(), type, number);
}
