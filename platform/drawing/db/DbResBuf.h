#pragma once
#include "DbObjectId.h"
#include "Ge/GePoint3d.h"
#include "RxObject.h"
#include <variant>

class OdResBuf;
using OdResBufPtr = OdSmartPtr<OdResBuf>;

/// One item of a list of typed values, as extended data and XRECORDs use them: a group code and a value.
class OdResBuf : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdResBuf);

public:
  using Value = std::variant<std::monostate, OdString, double, OdInt64, OdGePoint3d, OdDbHandle>;
  ~OdResBuf() override;
  static OdResBufPtr newRb(int restype, Value value = {});

  int restype() const { return m_restype; }
  const Value& value() const { return m_value; }
  void setValue(Value value) { m_value = std::move(value); }
  /// The value as text, real, integer...; the type's zero when it holds something else.
  OdString getString() const;
  double getDouble() const;
  OdInt64 getInt64() const;
  OdInt32 getInt32() const { return static_cast<OdInt32>(getInt64()); }
  OdInt16 getInt16() const { return static_cast<OdInt16>(getInt64()); }
  OdGePoint3d getPoint3d() const;
  OdDbHandle getHandle() const;

  OdResBuf* next() const { return m_next; }
  /// Appends an item behind this one and returns it.
  OdResBufPtr setNext(OdResBufPtr next) { return m_next = std::move(next); }
  OdResBuf* last();

private:
  int m_restype = 0;
  Value m_value;
  OdResBufPtr m_next;
};
