#pragma once
#include "DbObject.h"

/// What a drawing tells of its wipeouts. It stands in the dictionary of named objects.
class OdDbWipeoutVariables : public OdDbObject {
  ODRX_DECLARE_MEMBERS(OdDbWipeoutVariables);

public:
  /// The object of a drawing, or null. `createIfNotFound` makes one, which shows frames.
  static OdSmartPtr<OdDbWipeoutVariables> openWipeoutVariables(OdDbDatabase* database,
                                                               OdDb::OpenMode mode = OdDb::kForRead,
                                                               bool createIfNotFound = false);
  /// Whether the edges of wipeouts are drawn, at least on the screen.
  bool showFrame() const;
  /// Whether they are plotted, too.
  bool plotsFrame() const;
  void setShowFrame(bool show);

  OdDbSchema schema() const override;
};
using OdDbWipeoutVariablesPtr = OdSmartPtr<OdDbWipeoutVariables>;
