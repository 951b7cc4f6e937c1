# Writes the bytes of INPUT as a C++ source OUTPUT.
file(READ ${INPUT} bytes HEX)
string(REGEX REPLACE "(................................)" "\\1\n" bytes "${bytes}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
file(WRITE ${OUTPUT} "#include \"res/embedded.h\"

namespace {
const std::uint8_t bytes[] = {
${bytes}};
}

std::span<const std::uint8_t> res::embedded() { return bytes; }
")
