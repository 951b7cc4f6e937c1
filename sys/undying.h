#pragma once
#include <cstddef>
#include <new>

namespace sys {

/// The one object of a type that is never destroyed, because the last of the static objects may still need
/// it. It is not in the heap, where it would outlive the library that it is part of.
template <class Type>
Type& undying() {
  alignas(Type) static std::byte place[sizeof(Type)];
  static Type* const object = new (place) Type;
  return *object;
}

} // namespace sys
