#pragma once
#include <optional>
#include <string>

namespace sys {

/// A line typed at the console in UTF-8, without its end; "^C" as soon as Ctrl+C is typed. Nothing at the end
/// of input, which is Ctrl+Z at the beginning of a line.
std::optional<std::string> readConsoleLine();

} // namespace sys
