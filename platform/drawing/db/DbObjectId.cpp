#include "DbObjectId.h"
#include "DbObject.h"
#include "DbStore.h"
#include <charconv>

const OdDbObjectId OdDbObjectId::kNull;

OdDbHandle::OdDbHandle(const OdChar* text) {
  OdUInt64 value = 0;
  int digits = 0;
  for (; text && *text; ++text, ++digits) {
    const OdChar c = *text;
    int digit = -1;
    if (c >= L'0' && c <= L'9') digit = c - L'0';
    if (c >= L'A' && c <= L'F') digit = c - L'A' + 10;
    if (c >= L'a' && c <= L'f') digit = c - L'a' + 10;
    if (digit < 0 || digits == 16) return;
    value = value << 4 | static_cast<OdUInt64>(digit);
  }
  m_value = value;
}

OdString OdDbHandle::ascii() const {
  OdChar buffer[17];
  OdChar* end = buffer + 16;
  *end = 0;
  OdChar* at = end;
  OdUInt64 rest = m_value;
  do {
    *--at = L"0123456789ABCDEF"[rest & 15];
    rest >>= 4;
  } while (rest);
  return {at, static_cast<int>(end - at)};
}

bool OdDbObjectId::isErased() const { return !m_stub || m_stub->isErased(); }

OdDbHandle OdDbObjectId::getHandle() const { return m_stub ? OdDbHandle(m_stub->handle) : OdDbHandle(); }

OdDbDatabase* OdDbObjectId::database() const { return m_stub ? m_stub->store->database : nullptr; }

const OdRxClass* OdDbObjectId::objectClass() const {
  return m_stub ? m_stub->store->classOf(*m_stub) : nullptr;
}

OdDbObjectPtr OdDbObjectId::openObject(OdDb::OpenMode mode, bool openErased) const {
  if (!m_stub || (m_stub->isErased() && !openErased)) return {};
  OdDbObjectPtr object(m_stub->store->open(m_stub), kOdRxObjAttach);
  if (mode == OdDb::kForWrite) object->upgradeOpen();
  return object;
}

OdDbObjectPtr OdDbObjectId::safeOpenObject(OdDb::OpenMode mode, bool openErased) const {
  if (!m_stub) throw OdError(eNullObjectId);
  OdDbObjectPtr object = openObject(mode, openErased);
  if (object.isNull()) throw OdError(eWasErased);
  return object;
}
