#pragma once

namespace app {

/// What the program answers its caller. Of several that apply, the highest one counts.
enum ExitStatus : int {
  kAllRan = 0,
  kCommandFailed = 1, ///< a command was cancelled or failed
  kWrongUsage = 2,    ///< wrong arguments or a wrong script
  kNotRead = 3,       ///< a drawing could not be read
  kNotWritten = 4,    ///< a drawing or an output could not be written, or did not verify
};

inline ExitStatus worse(ExitStatus a, ExitStatus b) { return a < b ? b : a; }

} // namespace app
