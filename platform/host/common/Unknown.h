#pragma once
#include "IQkUnknown.h"

namespace host {

/// Implements IQkUnknown for the final class `Derived`, which implements `Interface`. Objects begin with one
/// reference.
template <class Derived, class Interface>
class Unknown : public Interface {
public:
  Unknown() = default;
  Unknown(const Unknown&) = delete;
  Unknown& operator=(const Unknown&) = delete;

  unsigned int AddRef() override { return ++m_references; }
  unsigned int Release() override {
    const unsigned int left = --m_references;
    if (left == 0) delete static_cast<Derived*>(this);
    return left;
  }
  bool QueryInterface(const std::type_info& type, void** out) override {
    const bool known = type == typeid(IQkUnknown) || type == typeid(Interface);
    if (out) *out = known ? static_cast<Interface*>(this) : nullptr;
    if (out && known) AddRef();
    return known;
  }

protected:
  ~Unknown() = default;

private:
  unsigned int m_references = 1;
};

} // namespace host
