#pragma once
#include "form.h"

namespace ui {

class PageEvents : public FormEvents {
public:
  /// The page is now the one that is seen.
  virtual void onActivate() {}
  /// The page is about to be hidden, or the dialog to end. A control of the page that has the focus is left
  /// after this.
  virtual void onDeactivate() {}

protected:
  ~PageEvents() = default;
};

/// A page of a tab control, with a template of its own (styles DS_CONTROL | WS_CHILD, extended style
/// WS_EX_CONTROLPARENT). Dialog::addPage makes its controls. The numbers of its controls may be those of
/// other pages, but not of the dialog.
class Page : public PageEvents, protected Form {
public:
  explicit Page(unsigned number) : Form(number) {}
  virtual ~Page() = default;

private:
  friend class Dialog;
};

} // namespace ui
