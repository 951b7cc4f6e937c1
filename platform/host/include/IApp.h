#pragma once
#include "IQkUnknown.h"

/// The host's application object. Slot 2, QueryInterface, gives its services: IProfile.
class IApp : public IQkUnknown {
protected:
  ~IApp() = default;
};

/// Type of the export "GetApp" of the library QkAcApp and of the main host module: the application object
/// with a reference.
using GetAppFunction = IApp* (*)();
/// Type of the export "CreateObjectC" of the library qkcore: makes an object of a named class and gives the
/// wanted interface of it, with a reference. False, with null stored, for classes and interfaces it does not
/// know.
using CreateObjectFunction = bool (*)(const char* className, int reserved, const std::type_info& type,
                                      void** out);
/// The class name of the application object.
inline constexpr char kAppClassName[] = "CLSID_APP";
