#include "resource_file.h"
#include "byte_reader.h"
#include "error.h"

namespace res {
namespace {

/// A type or a name: a number, or nothing when it is a word.
std::optional<unsigned> numberOrWord(ByteReader& reader) {
  const std::uint16_t first = reader.u16();
  if (first == 0xFFFF) return reader.u16();
  if (first != 0) reader.zeroEndedText();
  return std::nullopt;
}

struct Header {
  std::optional<unsigned> type;
  std::optional<unsigned> name;
  std::size_t dataSize = 0;
};

Header readHeader(ByteReader& reader) {
  const std::size_t start = reader.position();
  Header header;
  header.dataSize = reader.u32();
  const std::size_t headerSize = reader.u32();
  header.type = numberOrWord(reader);
  header.name = numberOrWord(reader);
  reader.align4();
  const std::size_t read = reader.position() - start;
  constexpr std::size_t versionsAndFlags = 16;
  if (headerSize != read + versionsAndFlags)
    throw Error("the module's resources are damaged: the entry at byte " + std::to_string(start) +
                " has a header of " + std::to_string(headerSize) + " bytes");
  reader.skip(versionsAndFlags);
  return header;
}

} // namespace

std::optional<std::span<const std::uint8_t>> findResource(std::span<const std::uint8_t> file,
                                                          ResourceType type, unsigned number) {
  ByteReader reader(file, "the module's resource file");
  while (!reader.atEnd()) {
    const Header header = readHeader(reader);
    const auto data = reader.bytes(header.dataSize);
    reader.align4();
    if (header.type == static_cast<unsigned>(type) && header.name == number) return data;
  }
  return std::nullopt;
}

} // namespace res
