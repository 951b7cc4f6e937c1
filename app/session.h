#pragma once
#include "options.h"

namespace app {

/// Opens the drawing, runs the lines of the terminal or script, and saves where asked to.
ExitStatus runSession(const SessionOptions& options);

} // namespace app
