#include "control_kind.h"
#include "res/styles.h"
#include <algorithm>
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

/// Items stay in the order of the dialog, rows are in columns, and one at most is selected: what differs from
/// that, no face shows.
ControlKind checked(unsigned dialog, const res::ControlTemplate& source, ControlKind kind) {
  const std::uint32_t style = source.style;
  if ((kind == ControlKind::comboBox && (style & CBS_SORT)) ||
      (kind == ControlKind::listBox && (style & LBS_SORT)))
    refuseControl(dialog, source.id, "it would sort its items");
  if (kind == ControlKind::listView && ((style & LVS_TYPEMASK) != LVS_REPORT || !(style & LVS_SINGLESEL)))
    refuseControl(dialog, source.id, "a list view needs the styles LVS_REPORT and LVS_SINGLESEL");
  if (kind == ControlKind::richEdit && (style & ES_MULTILINE))
    refuseControl(dialog, source.id, "a rich edit has one line");
  return kind;
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
                                                                 {L"ComboBox", ControlKind::comboBox},
                                                                 {L"RICHEDIT50W", ControlKind::richEdit},
                                                                 {L"SysListView32", ControlKind::listView},
                                                                 {L"SysTabControl32", ControlKind::tabs}};
  if (source.windowClass.iCompare(L"Button") == 0) return buttonKind(dialog, source);
  for (const auto& [name, kind] : kinds)
    if (source.windowClass.iCompare(name) == 0) return checked(dialog, source, kind);
  refuseControl(dialog, source.id, "its window class " + source.windowClass.toUtf8() + " cannot be shown");
}

bool takesFocus(ControlKind kind) { return kind != ControlKind::staticText && kind != ControlKind::group; }

bool holdsItems(ControlKind kind) { return kind == ControlKind::comboBox || kind == ControlKind::listBox; }

bool holdsText(ControlKind kind) { return kind == ControlKind::edit || kind == ControlKind::richEdit; }

bool isEditable(const res::ControlTemplate& source, ControlKind kind) {
  return kind == ControlKind::comboBox && (source.style & CBS_TYPEMASK) == CBS_DROPDOWN;
}

bool tellsLeave(ControlKind kind) {
  return holdsText(kind) || holdsItems(kind) || kind == ControlKind::listView;
}

void refuseUnfitPage(const res::DialogTemplate& page, unsigned number, const res::DialogTemplate& dialog) {
  if (!(page.style & WS_CHILD) || !(page.style & DS_CONTROL) || !(page.extendedStyle & WS_EX_CONTROLPARENT))
    throw std::logic_error("page " + std::to_string(number) +
                           " needs the styles DS_CONTROL, WS_CHILD and WS_EX_CONTROLPARENT");
  for (const res::ControlTemplate& control : page.controls) {
    const bool isTaken =
        std::ranges::find(dialog.controls, control.id, &res::ControlTemplate::id) != dialog.controls.end();
    if (isTaken && takesFocus(kindOf(number, control)))
      refuseControl(number, control.id, "the dialog of this page has a control of that number");
  }
}

ControlPlace onTabs(const ControlPlace& place, const res::Rect& tabs) {
  constexpr int border = 2, captionHeight = 14;
  return {place.x + tabs.x + border, place.y + tabs.y + captionHeight, place.width, place.height};
}

void refuseIndex(int index) {
  throw std::out_of_range("there is no item, row or column " + std::to_string(index));
}

} // namespace ui
