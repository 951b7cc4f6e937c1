#include "listing.h"
#include "controls.h"
#include "names.h"
#include <algorithm>
#include <cstdlib>

namespace ui::line {
namespace {

constexpr std::size_t mostItemsOnALine = 12;

/// A text of several lines as those, side by side.
OdString editText(const NamedControl& control) {
  OdString text = control.text;
  text.replace(L"\r\n", L"\" / \"");
  return quoted(text);
}

/// The fields are told behind the text: no marks in it could be mistaken for text.
OdString richText(const OpenDialog& dialog, const NamedControl& control) {
  OdString text = quoted(control.text);
  for (int i = 0; i < control.info.fieldCount; ++i) {
    const TextRange field = dialog.field(control.info.id, i);
    text += (i ? L", " : L" with field ") + quoted(control.text.mid(field.begin, field.end - field.begin));
  }
  return text;
}

OdString tabTitles(const OpenDialog& dialog, const NamedControl& control) {
  OdString text = control.text.isEmpty() ? OdString(L"tabs") : control.text;
  const std::vector<OdString> titles = itemsOf(dialog, control.info.id);
  for (std::size_t i = 0; i < titles.size(); ++i) {
    const bool open = static_cast<int>(i) == control.info.selectedItem;
    text += (i ? L" | " : L": ") + (open ? L"<" + titles[i] + L">" : titles[i]);
  }
  return text;
}

std::vector<OdString> cellsOf(const OpenDialog& dialog, const NamedControl& list, int row) {
  std::vector<OdString> cells;
  cells.reserve(static_cast<std::size_t>(list.info.columnCount));
  for (int column = 0; column < list.info.columnCount; ++column)
    cells.emplace_back(dialog.cell(list.info.id, row, column));
  return cells;
}

OdString tableTitle(const OpenDialog& dialog, const NamedControl& control) {
  OdString text = control.text.isEmpty() ? OdString(L"list") : control.text;
  const std::vector<OdString> titles = cellsOf(dialog, control, -1);
  for (std::size_t i = 0; i < titles.size(); ++i) text += (i ? L" | " : L": ") + titles[i];
  return text;
}

OdString comboText(const OpenDialog& dialog, const NamedControl& control) {
  const std::vector<OdString> items = itemsOf(dialog, control.info.id);
  OdString text = control.info.editable ? quoted(control.text) + L" or" : L"<" + control.text + L"> of";
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
  case ControlKind::button:
    return L"[" + (text.isEmpty() ? control.tip : text) + (control.info.isDefault ? L"]*" : L"]");
  case ControlKind::checkBox: return (control.info.checked ? L"[x] " : L"[ ] ") + text;
  case ControlKind::radioButton: return (control.info.checked ? L"(*) " : L"( ) ") + text;
  case ControlKind::edit: return editText(control);
  case ControlKind::richEdit: return richText(dialog, control);
  case ControlKind::comboBox: return comboText(dialog, control);
  case ControlKind::listBox: return L"list:";
  case ControlKind::listView: return tableTitle(dialog, control);
  case ControlKind::tabs: return tabTitles(dialog, control);
  }
  return text;
}

OdString described(const OpenDialog& dialog, const NamedControl& control) {
  OdString text = appearance(dialog, control);
  if (control.name.str().starts_with(L'#')) text += L" " + control.name;
  if (!control.info.enabled) text += L" (disabled)";
  return text;
}

/// The template of a combo box gives the height of its open list.
ControlPlace seenPlace(const ControlInfo& info) {
  constexpr int comboHeight = 12;
  ControlPlace place = info.place;
  if (info.kind == ControlKind::comboBox) place.height = comboHeight;
  return place;
}

bool contains(const ControlPlace& frame, const ControlPlace& inner) {
  const int x = inner.x + inner.width / 2;
  const int y = inner.y + inner.height / 2;
  return x > frame.x && x < frame.x + frame.width && y > frame.y && y < frame.y + frame.height;
}

int depthOf(const NamedControl& control, const std::vector<NamedControl>& controls) {
  return static_cast<int>(std::ranges::count_if(controls, [&](const NamedControl& other) {
    const bool isFrame = other.info.kind == ControlKind::group || other.info.kind == ControlKind::tabs;
    return isFrame && other.info.shown && other.info.id != control.info.id &&
           contains(other.info.place, seenPlace(control.info));
  }));
}

/// Their tops or their middles are on one height.
bool standsBeside(const NamedControl& control, const NamedControl& before) {
  constexpr int sameLine = 5, sameTop = 2; // dialog units
  const ControlPlace a = seenPlace(before.info), b = seenPlace(control.info);
  return before.info.kind != ControlKind::group && b.x >= a.x + a.width &&
         (std::abs((a.y + a.height / 2) - (b.y + b.height / 2)) <= sameLine ||
          std::abs(a.y - b.y) <= sameTop);
}

OdString rowNumber(int row, bool chosen) {
  return OdString().format(chosen ? L"  > %u  " : L"    %u  ", unsigned(row + 1));
}

void appendItems(const OpenDialog& dialog, const NamedControl& list, const OdString& indent,
                 std::vector<OdString>& lines) {
  const std::vector<OdString> items = itemsOf(dialog, list.info.id);
  for (int i = 0; i < static_cast<int>(items.size()); ++i)
    lines.push_back(indent + rowNumber(i, i == list.info.selectedItem) + items[static_cast<std::size_t>(i)]);
}

/// Rows that the dialog sets apart are marked with an exclamation mark.
void appendRows(const OpenDialog& dialog, const NamedControl& list, const OdString& indent,
                std::vector<OdString>& lines) {
  for (int row = 0; row < list.info.itemCount; ++row) {
    const RowLook look = dialog.rowLook(list.info.id, row);
    OdString line = indent + rowNumber(row, row == list.info.selectedItem);
    if (look.bold || look.textColor >= 0 || look.background >= 0) line += L"! ";
    const std::vector<OdString> cells = cellsOf(dialog, list, row);
    for (std::size_t i = 0; i < cells.size(); ++i) line += (i ? L" | " : L"") + cells[i];
    lines.push_back(line);
  }
}

/// Behind these, a new line begins.
bool standsAlone(ControlKind kind) {
  return kind == ControlKind::listBox || kind == ControlKind::listView || kind == ControlKind::tabs;
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
    if (control.info.kind == ControlKind::listView) appendRows(dialog, control, indent, lines);
    before = standsAlone(control.info.kind) ? nullptr : &control;
  }
  return lines;
}

} // namespace ui::line
