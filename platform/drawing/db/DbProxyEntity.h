#pragma once
#include "DbEntity.h"

/// An entity of a class that the library does not know: kept as read. Its entity properties can be used; its
/// geometry is unknown, so it cannot be transformed.
class OdDbProxyEntity : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDbProxyEntity);

public:
  /// The name of the record that it was read under, which a copy keeps.
  std::string dxfName() const override { return isDBRO() ? OdDbEntity::dxfName() : m_dxfName; }
  void copyFrom(const OdDbObject* source) override;

private:
  std::string m_dxfName; // of a copy that belongs to no database
};
using OdDbProxyEntityPtr = OdSmartPtr<OdDbProxyEntity>;

/// Any other object of a class that the library does not know: kept as read.
class OdDbProxyObject : public OdDbObject {
  ODRX_DECLARE_MEMBERS(OdDbProxyObject);

public:
  std::string dxfName() const override { return isDBRO() ? OdDbObject::dxfName() : m_dxfName; }
  void copyFrom(const OdDbObject* source) override;

private:
  std::string m_dxfName;
};
using OdDbProxyObjectPtr = OdSmartPtr<OdDbProxyObject>;
