#pragma once
#include "DbSymbolTableRecord.h"

/// A linetype: a pattern of dashes, gaps and dots.
class OdDbLinetypeTableRecord : public OdDbSymbolTableRecord {
  ODRX_DECLARE_MEMBERS(OdDbLinetypeTableRecord);

public:
  OdString comments() const;
  void setComments(const OdString& comments);
  /// In drawing units, as are the dashes.
  double patternLength() const;
  int numDashes() const;
  /// Positive for a dash, negative for a gap, 0 for a dot. Throws OdError_InvalidIndex.
  double dashLengthAt(int index) const;

  OdDbSchema schema() const override;
};
using OdDbLinetypeTableRecordPtr = OdSmartPtr<OdDbLinetypeTableRecord>;
