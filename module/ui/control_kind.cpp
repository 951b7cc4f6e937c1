#include "control_kind.h"
#include "res/styles.h"
#include <stdexcept>
#include <utility>

namespace ui {
namespace {

ControlKind buttonKind(unsigned dialog, const res::ControlTemplate& source) {
  switch (source.style & BS_TYPEMASK) {
  case BS_PUSHBUTTON:
  case BS_DEFPUSHBUTTON: return ControlKind::button;
  case BS_AUTOCHECKBOX: return ControlKind::checkBox;
  case BS_AUTORADIOBUTTON: return ControlKind::radioButton;
  case BS_GROUPBOX: return ControlKind::group;
  default: refuseControl(dialog, source.id, "a button of this style cannot be shown");
  }
}

} // namespace

void refuseControl(unsigned dialog, unsigned control, const std::string& why) {
  throw std::logic_error("dialog " + std::to_string(dialog) + ", control " + std::to_string(control) + ": " +
                         why);
}

ControlKind kindOf(unsigned dialog, const res::ControlTemplate& source) {
  static const std::pair<const wchar_t*, ControlKind> kinds[] = {{L"Edit", ControlKind::edit},
                                                                 {L"Static", ControlKind::staticText},
                                                                 {L"ListBox", ControlKind::listBox},
                                                                 {L"ComboBox", ControlKind::comboBox}};
  if (source.windowClass.iCompare(L"Button") == 0) return buttonKind(dialog, source);
  for (const auto& [name, kind] : kinds)
    if (source.windowClass.iCompare(name) == 0) return kind;
  refuseControl(dialog, source.id, "its window class " + source.windowClass.toUtf8() + " cannot be shown");
}

bool takesFocus(ControlKind kind) { return kind != ControlKind::staticText && kind != ControlKind::group; }

bool holdsItems(ControlKind kind) { return kind == ControlKind::comboBox || kind == ControlKind::listBox; }

bool tellsLeave(ControlKind kind) { return kind == ControlKind::edit || holdsItems(kind); }

} // namespace ui
