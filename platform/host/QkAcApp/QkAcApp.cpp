#include "QkAcApp.h"
#include "QkCore.h"

namespace {

HostModule g_mainModule = nullptr;

} // namespace

HostModule GetMainDllInstanceEx() { return g_mainModule; }

IApp* GetApp() {
  void* app = nullptr;
  CreateObjectC(kAppClassName, 0, typeid(IApp), &app);
  return static_cast<IApp*>(app);
}

void host::setMainModule(HostModule module) { g_mainModule = module; }
