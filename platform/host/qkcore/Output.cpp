#include "Output.h"
#include <iostream>
#include <utility>

namespace host {

namespace {

Output& current() {
  static Output output;
  return output;
}

} // namespace

Output setOutput(Output output) { return std::exchange(current(), std::move(output)); }

void printLine(const std::string& line) {
  if (current())
    current()(line);
  else
    std::cerr << line << '\n';
}

} // namespace host
