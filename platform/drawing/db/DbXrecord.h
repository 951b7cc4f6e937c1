#pragma once
#include "DbObject.h"

/// A list of typed values that an application keeps in a drawing.
class OdDbXrecord : public OdDbObject {
  ODRX_DECLARE_MEMBERS(OdDbXrecord);

public:
  /// The values; null when there are none. Points are one item each; a point stored with two coordinates gets
  /// the third 0.
  OdResBufPtr rbChain() const;
  /// Replaces all values; null removes them. Throws eInvalidInput, with nothing changed, for a value whose
  /// type does not fit its group code.
  void setFromRbChain(const OdResBuf* chain);

  OdDbSchema schema() const override;

private:
  odDbGroups::Range dataRange() const;
};
using OdDbXrecordPtr = OdSmartPtr<OdDbXrecord>;
