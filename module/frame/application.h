#pragma once
#include "IApp.h"
#include "host_ptr.h"

namespace frame {

/// The host's application object, or null. Found in this order: GetApp of the loaded library QkAcApp.dll;
/// GetApp of the module that the program's export GetMainDllInstance gives (and nothing else when that module
/// has none); or made by the loaded library qkcore. A function that was found once is called again without a
/// search.
HostPtr<IApp> application();

} // namespace frame
