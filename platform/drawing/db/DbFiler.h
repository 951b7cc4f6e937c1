#pragma once
#include "DbObjectId.h"
#include "Ge/GePoint2d.h"
#include "Ge/GePoint3d.h"
#include "Ge/GeScale3d.h"
#include "Ge/GeVector2d.h"
#include "Ge/GeVector3d.h"
#include "OdBinaryData.h"
#include "RxObject.h"

struct OdDbGroup;
class OdDbGroupList;

/// Takes the data of objects, whatever becomes of it.
class OdDbFiler : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdDbFiler);

public:
  enum FilerType { kFileFiler = 0, kCopyFiler = 1, kUndoFiler = 2, kBagFiler = 3 };
  virtual FilerType filerType() const { return kFileFiler; }
  virtual OdDbDatabase* database() const { return nullptr; }
  /// The release whose form the objects shall write; vUnknown means the drawing's own.
  virtual OdDb::DwgVersion dwgVersion() const { return OdDb::vUnknown; }
};
using OdDbFilerPtr = OdSmartPtr<OdDbFiler>;

/// A filer that takes DXF groups: one writer for each type of value. An object writes its groups in order;
/// the code of a point, vector or scale is that of its first coordinate.
class OdDbDxfFiler : public OdDbFiler {
  ODRX_DECLARE_MEMBERS(OdDbDxfFiler);

public:
  /// Decimal places wanted; negative means the shortest form that reads back the same.
  virtual int precision() const { return -1; }
  /// Whether fields are wanted that hold their default and are therefore not stored. With true, an object
  /// writes every field that its class knows, in canonical order and with the typed writer of the field;
  /// with false, it writes exactly the groups that it holds.
  virtual bool includesDefaultValues() const { return false; }

  virtual void wrName(int code, const OdString& value) = 0;
  virtual void wrString(int code, const OdString& value) = 0;
  virtual void wrBool(int code, bool value) = 0;
  virtual void wrInt8(int code, OdInt8 value) = 0;
  virtual void wrUInt8(int code, OdUInt8 value) = 0;
  virtual void wrInt16(int code, OdInt16 value) = 0;
  virtual void wrUInt16(int code, OdUInt16 value) = 0;
  virtual void wrInt32(int code, OdInt32 value) = 0;
  virtual void wrUInt32(int code, OdUInt32 value) = 0;
  virtual void wrInt64(int code, OdInt64 value) = 0;
  virtual void wrUInt64(int code, OdUInt64 value) = 0;
  virtual void wrHandle(int code, OdDbHandle value) = 0;
  virtual void wrObjectId(int code, OdDbObjectId value) = 0;
  /// Radians.
  virtual void wrAngle(int code, double value) = 0;
  virtual void wrDouble(int code, double value) = 0;
  virtual void wrPoint2d(int code, const OdGePoint2d& value) = 0;
  virtual void wrPoint3d(int code, const OdGePoint3d& value) = 0;
  virtual void wrVector2d(int code, const OdGeVector2d& value) = 0;
  virtual void wrVector3d(int code, const OdGeVector3d& value) = 0;
  virtual void wrScale3d(int code, const OdGeScale3d& value) = 0;
  virtual void wrBinaryChunk(int code, const OdUInt8* bytes, OdUInt32 size) = 0;

  /// Offers a group as the object holds it. A filer that stores groups takes it and returns true; otherwise,
  /// as by default, it goes through the typed writer of its code.
  virtual bool wrStored(const OdDbGroupList& list, const OdDbGroup& group);

  /// Names the subclass whose fields follow (group 100).
  void wrSubclassMarker(const OdString& name) { wrString(100, name); }
};
using OdDbDxfFilerPtr = OdSmartPtr<OdDbDxfFiler>;
