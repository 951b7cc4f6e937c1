#pragma once
#include "options.h"

namespace app {

/// Looks over drawings and tells what is wrong with each, on standard output.
ExitStatus runCheck(const CheckOptions& options);

} // namespace app
