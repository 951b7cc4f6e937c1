#pragma once
#include <typeinfo>

/// The host's reference-counted base interface. A pointer that an operation gives back owns one reference
/// unless said otherwise; whoever holds it calls Release once. Counts are plain integers: one thread.
///
/// Interfaces that cross between the host and a module have exactly the declared slots, one virtual function
/// a slot, which is why none of them has a virtual destructor.
class IQkUnknown {
public:
  /// Slot 0. Returns the new count.
  virtual unsigned int AddRef() = 0;
  /// Slot 1. Returns the new count; 0 means that the object is gone.
  virtual unsigned int Release() = 0;
  /// Slot 2. Asks for another interface by its type. Answers whether the object has it. When `out` is given
  /// it receives the interface, with a reference, or null.
  virtual bool QueryInterface(const std::type_info& type, void** out) = 0;

protected:
  ~IQkUnknown() = default;
};
