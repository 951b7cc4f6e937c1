#pragma once
#include "OdError.h"
#include <utility>

enum OdRxObjMod { kOdRxObjAttach };

/// Owns one reference to a reference-counted object. Converting to a pointer of an unrelated class throws
/// OdError_NotThatKindOfClass; use T::cast for a question without an exception.
template <class T>
class OdSmartPtr {
public:
  OdSmartPtr() = default;
  OdSmartPtr(std::nullptr_t) {}
  OdSmartPtr(T* object) : m_object(object) { acquire(); }
  /// Takes over the caller's reference.
  OdSmartPtr(T* object, OdRxObjMod) : m_object(object) {}
  OdSmartPtr(const OdSmartPtr& other) : m_object(other.m_object) { acquire(); }
  OdSmartPtr(OdSmartPtr&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
  template <class U>
  OdSmartPtr(const OdSmartPtr<U>& other) : m_object(required(other.get())) {
    acquire();
  }
  ~OdSmartPtr() { release(); }

  OdSmartPtr& operator=(OdSmartPtr other) noexcept {
    std::swap(m_object, other.m_object);
    return *this;
  }

  void attach(T* object) {
    release();
    m_object = object;
  }
  /// Gives the reference to the caller.
  T* detach() { return std::exchange(m_object, nullptr); }
  void release() {
    if (T* object = std::exchange(m_object, nullptr)) object->release();
  }

  T* get() const { return m_object; }
  T* operator->() const {
    if (!m_object) throw OdError(eNullObjectPointer);
    return m_object;
  }
  T& operator*() const { return *operator->(); }
  operator T*() const { return m_object; }
  bool isNull() const { return m_object == nullptr; }

private:
  template <class U>
  static T* required(U* object) {
    if constexpr (std::is_convertible_v<U*, T*>) {
      return object;
    } else {
      if (!object) return nullptr;
      T* result = dynamic_cast<T*>(object);
      if (!result) throw OdError_NotThatKindOfClass(object->isA(), T::desc());
      return result;
    }
  }
  void acquire() const {
    if (m_object) m_object->addRef();
  }

  T* m_object = nullptr;
};
