#include "strings.h"
#include "byte_reader.h"
#include "error.h"
#include "module_resources.h"

namespace res {
namespace {

constexpr unsigned stringsPerBlock = 16;

} // namespace

unsigned stringBlock(unsigned number) { return number / stringsPerBlock + 1; }

OdString stringFrom(std::optional<std::span<const std::uint8_t>> block, unsigned number) {
  OdString text;
  if (block) {
    ByteReader reader(*block, "the string table at number " + std::to_string(number));
    for (unsigned i = 0; i < number % stringsPerBlock; ++i) reader.skip(reader.u16() * std::size_t{2});
    text = reader.text(reader.u16());
  }
  if (text.isEmpty()) throw Error("the string table holds no text number " + std::to_string(number));
  return text;
}

OdString loadString(unsigned number) {
  return stringFrom(moduleResource(ResourceType::stringTable, stringBlock(number)), number);
}

} // namespace res
