#include "application.h"
#include "HostServices.h"
#include "sys/library.h"

namespace frame {
namespace {

GetAppFunction exportedGetApp(sys::Library library) {
  return library ? reinterpret_cast<GetAppFunction>(sys::librarySymbol(library, "GetApp")) : nullptr;
}

/// The functions that were found; they belong to libraries that stay loaded as long as the host runs.
GetAppFunction rememberedGetApp = nullptr;
CreateObjectFunction rememberedCreateObject = nullptr;

IApp* createdApplication() {
  if (!rememberedCreateObject) {
    const sys::Library core = sys::findLoadedLibrary("qkcore");
    if (core)
      rememberedCreateObject =
          reinterpret_cast<CreateObjectFunction>(sys::librarySymbol(core, "CreateObjectC"));
  }
  void* app = nullptr;
  if (rememberedCreateObject) rememberedCreateObject(kAppClassName, 0, typeid(IApp), &app);
  return static_cast<IApp*>(app);
}

IApp* findApplication() {
  if (rememberedGetApp) return rememberedGetApp();
  rememberedGetApp = exportedGetApp(sys::findLoadedLibrary("QkAcApp.dll"));
  if (rememberedGetApp) return rememberedGetApp();
  if (void* const instance = sys::programSymbol("GetMainDllInstance")) {
    rememberedGetApp = exportedGetApp(reinterpret_cast<GetMainInstance>(instance)());
    return rememberedGetApp ? rememberedGetApp() : nullptr;
  }
  return createdApplication();
}

} // namespace

HostPtr<IApp> application() { return HostPtr<IApp>(findApplication()); }

} // namespace frame
