#include "DbResBuf.h"

ODRX_CONS_DEFINE_MEMBERS(OdResBuf, OdRxObject, "")

OdResBuf::~OdResBuf() {
  // Lists can be long: items that nobody else holds are released one after another, not each by the one
  // before it.
  OdResBufPtr rest = std::move(m_next);
  while (!rest.isNull() && rest->numRefs() == 1) {
    OdResBufPtr next = std::move(rest->m_next);
    rest = std::move(next);
  }
}

OdResBufPtr OdResBuf::newRb(int restype, Value value) {
  OdResBufPtr item = createObject();
  item->m_restype = restype;
  item->m_value = std::move(value);
  return item;
}

template <class T>
static T valueOr(const OdResBuf::Value& value) {
  const T* held = std::get_if<T>(&value);
  return held ? *held : T();
}

OdString OdResBuf::getString() const { return valueOr<OdString>(m_value); }
double OdResBuf::getDouble() const { return valueOr<double>(m_value); }
OdInt64 OdResBuf::getInt64() const { return valueOr<OdInt64>(m_value); }
OdGePoint3d OdResBuf::getPoint3d() const { return valueOr<OdGePoint3d>(m_value); }
OdDbHandle OdResBuf::getHandle() const { return valueOr<OdDbHandle>(m_value); }

OdResBuf* OdResBuf::last() {
  OdResBuf* item = this;
  while (OdResBuf* following = item->m_next) item = following;
  return item;
}
