#include "DbProxyEntity.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbProxyEntity, OdDbEntity, "")
ODRX_CONS_DEFINE_MEMBERS(OdDbProxyObject, OdDbObject, "")

void OdDbProxyEntity::copyFrom(const OdDbObject* source) {
  OdDbEntity::copyFrom(source);
  m_dxfName = source->dxfName();
}

void OdDbProxyObject::copyFrom(const OdDbObject* source) {
  OdDbObject::copyFrom(source);
  m_dxfName = source->dxfName();
}
