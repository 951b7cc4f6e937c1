#pragma once
#include <string>
#include <vector>

namespace app {

/// What the Tab key makes of the beginning of a command name.
struct Completion {
  std::string text;                    ///< what the line becomes
  std::vector<std::string> candidates; ///< the names that fit, sorted
};

/// Completes as far as all names agree that begin with `typed`, in any case; a single one is followed by
/// nothing.
Completion completeCommand(const std::string& typed, std::vector<std::string> names);

} // namespace app
