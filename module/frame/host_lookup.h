#pragma once
#include "HostServices.h"
#include "ICmdFactory.h"
#include "host_ptr.h"

namespace frame {

/// The main host module, or null. Looked for anew at each call, in this order: what the program's export
/// GetMainDllInstance gives; the loaded library hbview.dll; what GetMainDllInstanceEx of the loaded library
/// QkAcApp.dll gives.
HostModule hostInstance();

/// The command factory, or null. It is looked for by other ways than the main host module, since it is wanted
/// while the host itself may still be starting: the loaded library that the program's export GetMainDllNameW
/// names; else the loaded library hbview; else what GetMainDllInstanceEx of QkAcApp.dll gives. Only the first
/// of these that is there is asked for its export new_ICmdFactory.
HostPtr<ICmdFactory> commandFactory();

/// An export of the main host module, or null.
void* hostExport(const char* name);

/// The function behind a service number (HostService), or null.
HostFunction hostFunction(int service);

/// The drawing that commands work on. Throws OdError (eNoDatabase) when there is none.
HostDocument& currentDocument();

} // namespace frame
