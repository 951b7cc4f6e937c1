#include "host_lookup.h"
#include "OdError.h"
#include "OdString.h"
#include "sys/library.h"

namespace frame {
namespace {

template <class Function>
Function programFunction(const char* name) {
  return reinterpret_cast<Function>(sys::programSymbol(name));
}

template <class Function>
Function libraryFunction(sys::Library library, const char* name) {
  return library ? reinterpret_cast<Function>(sys::librarySymbol(library, name)) : nullptr;
}

HostModule instanceNamedByApplicationLibrary() {
  const auto instance =
      libraryFunction<GetMainInstance>(sys::findLoadedLibrary("QkAcApp.dll"), "GetMainDllInstanceEx");
  return instance ? instance() : nullptr;
}

HostModule factoryModule() {
  if (const auto name = programFunction<GetMainName>("GetMainDllNameW"))
    return sys::findLoadedLibrary(OdString(name()).toUtf8());
  if (const sys::Library view = sys::findLoadedLibrary("hbview")) return view;
  return instanceNamedByApplicationLibrary();
}

} // namespace

HostModule hostInstance() {
  if (const auto instance = programFunction<GetMainInstance>("GetMainDllInstance")) return instance();
  if (const sys::Library view = sys::findLoadedLibrary("hbview.dll")) return view;
  return instanceNamedByApplicationLibrary();
}

HostPtr<ICmdFactory> commandFactory() {
  ICmdFactory* factory = nullptr;
  if (const auto make = libraryFunction<NewCmdFactory>(factoryModule(), "new_ICmdFactory")) make(&factory);
  return HostPtr<ICmdFactory>(factory);
}

void* hostExport(const char* name) { return libraryFunction<void*>(hostInstance(), name); }

HostFunction hostFunction(int service) {
  const auto find = reinterpret_cast<GetHostFuncPtr>(hostExport("get_host_funcptr"));
  return find ? find(service) : nullptr;
}

HostDocument& currentDocument() {
  const auto root = reinterpret_cast<HostRootFunction>(hostFunction(kHostServiceRoot));
  HostRoot* const host = root ? root() : nullptr;
  HostDocument* const document = host ? host->CurrentDocument() : nullptr;
  if (!document) throw OdError(eNoDatabase);
  return *document;
}

} // namespace frame
