#pragma once
#include "GeTol.h"

/// Settings that every geometric comparison shares.
struct OdGeContext {
  /// The tolerance of comparisons that name none.
  static OdGeTol gTol;
};
