#pragma once
#include "DbObject.h"

/// A layout: a sheet of paper, or the page of model space. Its plot settings are kept as stored.
class OdDbLayout : public OdDbObject {
  ODRX_DECLARE_MEMBERS(OdDbLayout);

public:
  OdString getLayoutName() const;
  /// Renames the layout and its entry in the dictionary of layouts. Throws eDuplicateKey, and eInvalidInput
  /// for an empty name.
  void setLayoutName(const OdString& name);
  /// The block record with the layout's contents.
  OdDbObjectId getBlockTableRecordId() const;
  void setBlockTableRecordId(OdDbObjectId block);
  /// Place among the tabs; model space is 0.
  int getTabOrder() const;
  void setTabOrder(int order);
  /// Whether this is the page of model space.
  bool modelType() const;
  /// The viewports, in stored order. The first is the sheet itself.
  OdDbObjectIdArray getViewportArray() const;
  /// The viewport that stands for the sheet (number 1; where none has it, the first one); null without
  /// viewports.
  OdDbObjectId overallVportId() const;

  OdDbSchema schema() const override;
};
using OdDbLayoutPtr = OdSmartPtr<OdDbLayout>;

/// The viewports of a layout's block record, in stored order, and the one that stands for the sheet.
OdDbObjectIdArray odDbViewportsOf(OdDbObjectId block);
OdDbObjectId odDbSheetViewportOf(OdDbObjectId block);
