#pragma once
#include "options.h"

namespace app {

/// Extracts the attribute values of every drawing; one summary line each. The answer is the worst that
/// happened.
ExitStatus runExtract(const ExtractOptions& options);

} // namespace app
