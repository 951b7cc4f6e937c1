#pragma once
#include "HostServices.h"
#include "IApp.h"

/// The main host module that was announced, whatever its name; null: none.
extern "C" HostModule GetMainDllInstanceEx();
extern "C" IApp* GetApp();

namespace host {

/// Announces the main host module; null takes it back.
void setMainModule(HostModule module);

} // namespace host
