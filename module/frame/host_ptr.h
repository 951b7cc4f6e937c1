#pragma once
#include <memory>

namespace frame {

struct ReleaseReference {
  template <class Interface>
  void operator()(Interface* object) const {
    object->Release();
  }
};

/// Owns one reference to an object of the host.
template <class Interface>
using HostPtr = std::unique_ptr<Interface, ReleaseReference>;

} // namespace frame
