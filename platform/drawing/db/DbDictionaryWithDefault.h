#pragma once
#include "DbDictionary.h"

/// A dictionary that gives a default object for names it does not hold; plot style names are kept in one.
class OdDbDictionaryWithDefault : public OdDbDictionary {
  ODRX_DECLARE_MEMBERS(OdDbDictionaryWithDefault);

public:
  OdDbObjectId defaultId() const;
  void setDefaultId(OdDbObjectId id);

  OdDbSchema schema() const override;

protected:
  OdDbObjectId fallback() const override { return defaultId(); }
};
using OdDbDictionaryWithDefaultPtr = OdSmartPtr<OdDbDictionaryWithDefault>;
