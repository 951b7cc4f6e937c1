#include "icon.h"
#include "byte_reader.h"
#include "error.h"
#include "module_resources.h"

namespace res {
namespace {

constexpr int wantedSize = 16;

/// The number of the picture, out of the directory of an icon's pictures.
unsigned pictureNumber(std::span<const std::uint8_t> directory, const std::string& name) {
  ByteReader reader(directory, name);
  reader.skip(4); // a zero, and the kind: icon
  unsigned chosen = 0;
  for (unsigned count = reader.u16(); count > 0; --count) {
    const int width = reader.bytes(1)[0];
    reader.skip(11); // height, colours, a zero, planes, depth, size
    const unsigned picture = reader.u16();
    if (!chosen || width == wantedSize) chosen = picture;
    if (width == wantedSize) break;
  }
  return chosen;
}

} // namespace

std::span<const std::uint8_t> loadIcon(unsigned number) {
  const auto directory = moduleResource(ResourceType::iconGroup, number);
  if (!directory) throw Error("the module's resources hold no icon number " + std::to_string(number));
  const std::string name = "icon " + std::to_string(number);
  const auto picture = moduleResource(ResourceType::icon, pictureNumber(*directory, name));
  if (!picture) throw Error(name + " is damaged: its picture is missing");
  return *picture;
}

} // namespace res
