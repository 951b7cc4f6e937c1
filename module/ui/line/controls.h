#pragma once
#include "OdString.h"
#include "ui/dialog_user.h"
#include <variant>
#include <vector>

namespace ui::line {

/// One control of an open dialog with its texts copied, and with the name that a person would use for it.
struct NamedControl {
  ControlInfo info;
  OdString text;
  OdString tip;
  /// Without mnemonic; `#` and the number where the dialog gives it no name.
  OdString name;

  bool isInput() const;
  /// Whether a name can be meant for it: it is shown and is neither text nor frame.
  bool canBeNamed() const;
};

/// All controls in tab order.
std::vector<NamedControl> controlsOf(const OpenDialog& dialog);
std::vector<OdString> itemsOf(const OpenDialog& dialog, int id);

/// What a command does to a control, for its messages: "ticked", and to which kinds it can be done.
struct Deed {
  const wchar_t* participle = L"";
  std::vector<ControlKind> kinds;
};

/// The control that `typed` names among those the deed can be done to, or a sentence that says why there is
/// none.
std::variant<NamedControl, OdString> findControl(const OpenDialog& dialog, const OdString& typed,
                                                 const Deed& deed);

} // namespace ui::line
