#include "listing.h"
#include "controls.h"
#include "names.h"
#include <algorithm>
#include <cstdlib>

namespace ui::line {
namespace {

constexpr std::size_t mostItemsOnALine = 12;

OdString comboText(const OpenDialog& dialog, const NamedControl& control) {
  const std::vector<OdString> items = itemsOf(dialog, control.info.id);
  OdString text = L"<" + control.text + L"> of";
  for (std::size_t i = 0; i < std::min(items.size(), mostItemsOnALine); ++i)
    text += (i ? OdString(L" | ") : OdString(L" ")) + items[i];
  if (items.size() > mostItemsOnALine) text += L" | ...";
  return text;
}

OdString appearance(const OpenDialog& dialog, const NamedControl& control) {
  OdString text = withoutMnemonics(control.text);
  switch (control.info.kind) {
  case ControlKind::staticText:
  case ControlKind::group: return text;
  case ControlKind::button: return L"[" + text + (control.info.isDefault ? L"]*" : L"]");
  case ControlKind::checkBox: return (control.info.checked ? L"[x] " : L"[ ] ") + text;
  case ControlKind::radioButton: return (control.info.checked ? L"(*) " : L"( ) ") + text;
  case ControlKind::edit: return quoted(control.text);
  case ControlKind::comboBox: return comboText(dialog, control);
  case ControlKind::listBox: return L"list:";
  }
  return text;
}

OdString described(const OpenDialog& dialog, const NamedControl& control) {
  OdString text = appearance(dialog, control);
  if (control.name.str().starts_with(L'#')) text += L" " + control.name;
  if (!control.info.enabled) text += L" (disabled)";
  return text;
}

bool contains(const ControlPlace& frame, const ControlPlace& inner) {
  const int x = inner.x + inner.width / 2;
  const int y = inner.y + inner.height / 2;
  return x > frame.x && x < frame.x + frame.width && y > frame.y && y < frame.y + frame.height;
}

int depthOf(const NamedControl& control, const std::vector<NamedControl>& controls) {
  return static_cast<int>(std::ranges::count_if(controls, [&](const NamedControl& other) {
    return other.info.kind == ControlKind::group && other.info.shown && other.info.id != control.info.id &&
           contains(other.info.place, control.info.place);
  }));
}

bool standsBeside(const NamedControl& control, const NamedControl& before) {
  constexpr int sameLine = 5; // dialog units between the middles
  const ControlPlace& a = before.info.place;
  const ControlPlace& b = control.info.place;
  return before.info.kind != ControlKind::group && b.x >= a.x + a.width &&
         std::abs((a.y + a.height / 2) - (b.y + b.height / 2)) <= sameLine;
}

void appendItems(const OpenDialog& dialog, const NamedControl& list, const OdString& indent,
                 std::vector<OdString>& lines) {
  const std::vector<OdString> items = itemsOf(dialog, list.info.id);
  for (std::size_t i = 0; i < items.size(); ++i) {
    const bool chosen = static_cast<int>(i) == list.info.selectedItem;
    lines.push_back(indent + OdString().format(chosen ? L"  > %u  " : L"    %u  ", unsigned(i + 1)) +
                    items[i]);
  }
}

bool isListed(const NamedControl& control) {
  return control.info.shown && (control.canBeNamed() || !control.text.isEmpty());
}

} // namespace

std::vector<OdString> listing(const OpenDialog& dialog) {
  const std::vector<NamedControl> controls = controlsOf(dialog);
  std::vector<OdString> lines{dialog.title()};
  const NamedControl* before = nullptr;
  for (const NamedControl& control : controls) {
    if (!isListed(control)) continue;
    const OdString indent(L' ', 2 + 2 * depthOf(control, controls));
    const OdString text = described(dialog, control);
    if (before && standsBeside(control, *before))
      lines.back() += L"  " + text;
    else
      lines.push_back(indent + text);
    if (control.info.kind == ControlKind::listBox) appendItems(dialog, control, indent, lines);
    before = control.info.kind == ControlKind::listBox ? nullptr : &control;
  }
  return lines;
}

} // namespace ui::line
