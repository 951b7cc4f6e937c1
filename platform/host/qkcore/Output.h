#pragma once
#include <functional>
#include <string>

namespace host {

/// Where the host libraries print what a user reads; UTF-8 without a line end.
using Output = std::function<void(const std::string& line)>;

/// Sets it and returns the one before. Null, as at the start: the standard error stream.
Output setOutput(Output output);
void printLine(const std::string& line);

} // namespace host
