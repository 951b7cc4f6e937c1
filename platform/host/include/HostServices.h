#pragma once
// The service look-up of the main host module.
#include "HostDocument.h"

/// Numbers of the services that get_host_funcptr gives.
enum HostService : int {
  kHostServiceRoot = 2,         ///< HostRootFunction
  kHostServiceRegenerate = 12,  ///< HostRegenerateFunction
  kHostServiceColorScheme = 17, ///< HostColorSchemeFunction
};

/// Colours of the host's windows.
class HostColorScheme {
public:
  virtual void Reserved0() {}
  virtual void Reserved1() {}
  virtual void Reserved2() {}
  virtual void Reserved3() {}
  virtual void Reserved4() {}
  virtual void Reserved5() {}
  virtual void Reserved6() {}
  virtual void Reserved7() {}
  virtual void Reserved8() {}
  virtual void Reserved9() {}
  virtual void Reserved10() {}
  virtual void Reserved11() {}
  /// Slot 12. The background of controls, as 0x00BBGGRR.
  virtual OdUInt32 ControlBackground() = 0;

protected:
  ~HostColorScheme() = default;
};

/// Any function; to be converted to the type of its service.
using HostFunction = void (*)();
/// Type of the main host module's export "get_host_funcptr": the function behind a service number, or null.
using GetHostFuncPtr = HostFunction (*)(int service);

/// The root object; it lives as long as the host. Null while no session is open.
using HostRootFunction = HostRoot* (*)();
/// Draws the display of the current drawing anew.
using HostRegenerateFunction = void (*)(int mode);
using HostColorSchemeFunction = HostColorScheme* (*)();

/// A loaded library as the operating system names it.
using HostModule = void*;
/// Types of the exports that lead to the main host module: "GetMainDllInstance" of a program,
/// "GetMainDllInstanceEx" of the library QkAcApp, and "GetMainDllNameW" of a program, which gives a file
/// name.
using GetMainInstance = HostModule (*)();
using GetMainName = const wchar_t* (*)();
/// Type of the main host module's optional export "GetDialogUser": who works the dialogs in place of a person
/// at a window, or null. It stays the host's.
using GetDialogUserFunction = void* (*)();
