#include "module_loader.h"
#include "HostServices.h"
#include "sys/library.h"

/// Modules ask the program for the main host module.
extern "C" HostModule GetMainDllInstance() { return sys::findLoadedLibrary("hbview.dll"); }

namespace app {

bool loadModule(std::string& error) {
  // The module stays for as long as the program runs: its commands may be called at any time.
  return sys::loadLibrary("blockattr.dll", error) != nullptr;
}

} // namespace app
