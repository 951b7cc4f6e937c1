#include "RxObject.h"
#include <unordered_map>

namespace {

struct Registry {
  std::unordered_map<std::string, const OdRxClass*> byName;
  std::unordered_map<std::string, const OdRxClass*> byDxfName;
};

/// Made by the first class that registers, hence destroyed after the last one has left. Only addresses are
/// kept: a parent in another file may not be constructed yet.
Registry& registry() {
  static Registry theRegistry;
  return theRegistry;
}

using ClassMap = std::unordered_map<std::string, const OdRxClass*>;

/// The first class of a name keeps it: a second one would be a copy in another library.
void add(ClassMap& classes, const std::string& name, const OdRxClass* cls) {
  if (!name.empty()) classes.try_emplace(name, cls);
}

void remove(ClassMap& classes, const std::string& name, const OdRxClass* cls) {
  const auto entry = classes.find(name);
  if (entry != classes.end() && entry->second == cls) classes.erase(entry);
}

const OdRxClass* lookUp(const ClassMap& classes, const std::string& name) {
  const auto entry = classes.find(name);
  return entry == classes.end() ? nullptr : entry->second;
}

const OdRxClass s_descOdRxObject("OdRxObject", nullptr, nullptr, "");

} // namespace

OdRxClass::OdRxClass(const char* name, const OdRxClass* parent, Constructor constructor, const char* dxfName)
    : m_name(name), m_dxfName(dxfName), m_parent(parent), m_create(constructor) {
  add(registry().byName, name, this);
  add(registry().byDxfName, m_dxfName, this);
}

OdRxClass::~OdRxClass() {
  remove(registry().byName, m_name.toUtf8(), this);
  remove(registry().byDxfName, m_dxfName, this);
}

bool OdRxClass::isDerivedFrom(const OdRxClass* ancestor) const {
  for (const OdRxClass* cls = this; cls; cls = cls->m_parent) {
    if (cls == ancestor) return true;
  }
  return false;
}

const OdRxClass* odrxGetClassByName(const OdString& name) { return lookUp(registry().byName, name.toUtf8()); }

const OdRxClass* odrxGetClassByDxfName(std::string_view dxfName) {
  return lookUp(registry().byDxfName, std::string(dxfName));
}

const OdRxClass* OdRxObject::desc() { return &s_descOdRxObject; }
