#pragma once
#include <string>

namespace app {

/// Loads the module as every host does: by its name, from the program's folder. Its commands are registered
/// when this returns. False, with the system's reason in `error`, when it cannot be loaded.
bool loadModule(std::string& error);

} // namespace app
