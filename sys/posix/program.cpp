#include "sys/program.h"

namespace sys {

std::vector<std::string> programArguments(int argc, const char* const* argv) {
  return {argv + (argc > 0), argv + argc};
}

// Nothing else happens here anyway.
StandardStreams::StandardStreams() = default;
StandardStreams::~StandardStreams() = default;

} // namespace sys
