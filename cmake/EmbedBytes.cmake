# Writes the bytes of INPUT as a C++ source OUTPUT that defines std::span<const std::uint8_t> FUNCTION(), which HEADER
# declares.
file(READ ${INPUT} bytes HEX)
string(REGEX REPLACE "(................................)" "\\1\n" bytes "${bytes}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
file(WRITE ${OUTPUT} "#include \"${HEADER}\"

namespace {
alignas(8) const std::uint8_t bytes[] = {
${bytes}};
}

std::span<const std::uint8_t> ${FUNCTION}() { return bytes; }
")
