#pragma once
#include "SmartPtr.h"

class OdRxObject;
using OdRxObjectPtr = OdSmartPtr<OdRxObject>;

/// The run-time description of a class: its name, its parent, the name its objects carry in DXF files, and
/// how to make one. Descriptions live as long as the library; they are compared by address.
class OdRxClass {
public:
  using Constructor = OdRxObjectPtr (*)();
  OdRxClass(const char* name, const OdRxClass* parent, Constructor constructor, const char* dxfName);
  ~OdRxClass();
  OdRxClass(const OdRxClass&) = delete;
  OdRxClass& operator=(const OdRxClass&) = delete;

  const OdString& name() const { return m_name; }
  /// The record name in DXF files ("INSERT"), empty for classes that are never stored.
  const std::string& dxfName() const { return m_dxfName; }
  const OdRxClass* myParent() const { return m_parent; }
  bool isDerivedFrom(const OdRxClass* ancestor) const;
  /// A new object, or null for an abstract class.
  OdRxObjectPtr create() const { return m_create ? m_create() : OdRxObjectPtr(); }

private:
  OdString m_name;
  std::string m_dxfName;
  const OdRxClass* m_parent;
  Constructor m_create;
};

/// The registered classes. A class is known from the construction of its description to its destruction.
const OdRxClass* odrxGetClassByName(const OdString& name);
const OdRxClass* odrxGetClassByDxfName(std::string_view dxfName);

/// Base of every reference-counted class of the library. Counts are plain integers: one thread.
class OdRxObject {
public:
  OdRxObject() = default;
  OdRxObject(const OdRxObject&) = delete;
  OdRxObject& operator=(const OdRxObject&) = delete;
  virtual ~OdRxObject() = default;

  virtual void addRef() { ++m_references; }
  virtual void release() {
    if (--m_references == 0) delete this;
  }
  long numRefs() const { return m_references; }

  static const OdRxClass* desc();
  virtual const OdRxClass* isA() const { return desc(); }
  bool isKindOf(const OdRxClass* cls) const { return isA()->isDerivedFrom(cls); }
  static OdRxObjectPtr cast(OdRxObject* object) { return OdRxObjectPtr(object); }

protected:
  long m_references = 1;
};

/// Declares the run-time class members of `Class`, a child of `Base`.
#define ODRX_DECLARE_MEMBERS(Class)                                                                          \
public:                                                                                                      \
  static const OdRxClass* desc();                                                                            \
  const OdRxClass* isA() const override { return desc(); }                                                   \
  /** The object as a Class, or null when it is none. */                                                     \
  static OdSmartPtr<Class> cast(const OdRxObject* object) {                                                  \
    return OdSmartPtr<Class>(dynamic_cast<Class*>(const_cast<OdRxObject*>(object)));                         \
  }                                                                                                          \
  static OdSmartPtr<Class> createObject()

/// Defines them for a class that can be made; DxfName is the record name in files, "" when there is none.
#define ODRX_CONS_DEFINE_MEMBERS(Class, Base, DxfName)                                                       \
  static OdRxObjectPtr odrxCreate##Class() {                                                                 \
    return OdRxObjectPtr(static_cast<OdRxObject*>(new Class), kOdRxObjAttach);                               \
  }                                                                                                          \
  static const OdRxClass s_desc##Class(#Class, Base::desc(), &odrxCreate##Class, DxfName);                   \
  const OdRxClass* Class::desc() { return &s_desc##Class; }                                                  \
  OdSmartPtr<Class> Class::createObject() { return OdSmartPtr<Class>(new Class, kOdRxObjAttach); }

/// Defines them for an abstract class.
#define ODRX_NO_CONS_DEFINE_MEMBERS(Class, Base)                                                             \
  static const OdRxClass s_desc##Class(#Class, Base::desc(), nullptr, "");                                   \
  const OdRxClass* Class::desc() { return &s_desc##Class; }                                                  \
  OdSmartPtr<Class> Class::createObject() { return {}; }
