#pragma once
#include "OdString.h"
#include <vector>

namespace ui {

struct MenuItem {
  /// 0 for a separator.
  int command = 0;
  OdString text = {};
  bool enabled = true;
  bool checked = false;
};

/// A context menu; empty for none.
using Menu = std::vector<MenuItem>;

/// The first popup of the module's menu resource of that number. A number that has no menu throws res::Error.
Menu loadMenu(unsigned number);

} // namespace ui
