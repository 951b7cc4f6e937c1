#include "controls.h"
#include "names.h"
#include <algorithm>
#include <cwchar>

namespace ui::line {
namespace {

OdString numberName(int id) { return OdString().format(L"#%d", id); }

bool hasNameOfItsOwn(ControlKind kind) { return kind == ControlKind::listView || kind == ControlKind::tabs; }

/// An input is named by the text before it, or by the button before it, which fills it; a button that shows a
/// picture only, by its tip.
OdString nameOf(const NamedControl& control, const NamedControl* before) {
  OdString caption;
  if (!control.isInput() || (hasNameOfItsOwn(control.info.kind) && !control.text.isEmpty()))
    caption = control.text.isEmpty() ? control.tip : control.text;
  else if (before &&
           (before->info.kind == ControlKind::staticText || before->info.kind == ControlKind::button))
    caption = before->text;
  const OdString label = plainLabel(withoutMnemonics(caption));
  return label.isEmpty() ? numberName(control.info.id) : label;
}

bool suits(const NamedControl& control, const Deed& deed) {
  return std::ranges::find(deed.kinds, control.info.kind) != deed.kinds.end();
}

std::vector<OdString> namesOf(const std::vector<NamedControl>& controls) {
  std::vector<OdString> names;
  names.reserve(controls.size());
  for (const NamedControl& control : controls) names.push_back(control.name);
  return names;
}

std::vector<NamedControl> matching(const std::vector<NamedControl>& controls, const OdString& typed) {
  std::vector<NamedControl> result;
  for (const std::size_t i : matches(namesOf(controls), typed)) result.push_back(controls[i]);
  return result;
}

OdString cannotBe(const NamedControl& control, const Deed& deed) {
  return quoted(control.name) + L" cannot be " + deed.participle + L".";
}

std::variant<NamedControl, OdString> byNumber(const std::vector<NamedControl>& controls,
                                              const OdString& typed, const Deed& deed) {
  wchar_t* end = nullptr;
  const long id = std::wcstol(typed.c_str() + 1, &end, 10);
  const auto found = std::ranges::find_if(controls, [&](const NamedControl& c) { return c.info.id == id; });
  if (*end != 0 || found == controls.end()) return L"There is no control " + typed + L".";
  if (!suits(*found, deed)) return cannotBe(*found, deed);
  return *found;
}

OdString unknown(const std::vector<NamedControl>& suitable, const OdString& typed, const Deed& deed) {
  OdString sentence = L"Nothing named " + quoted(typed) + L" can be " + deed.participle + L" here.";
  const std::vector<OdString> near = nearest(namesOf(suitable), typed);
  if (!near.empty()) sentence += L" Did you mean " + listed(near) + L"?";
  return sentence;
}

} // namespace

bool NamedControl::isInput() const {
  return info.kind == ControlKind::edit || info.kind == ControlKind::comboBox ||
         info.kind == ControlKind::listBox || info.kind == ControlKind::richEdit ||
         info.kind == ControlKind::listView || info.kind == ControlKind::tabs;
}

bool NamedControl::canBeNamed() const {
  return info.shown && info.kind != ControlKind::staticText && info.kind != ControlKind::group;
}

std::vector<NamedControl> controlsOf(const OpenDialog& dialog) {
  std::vector<NamedControl> controls;
  for (int i = 0; i < dialog.controlCount(); ++i) {
    NamedControl control;
    if (!dialog.controlAt(i, control.info)) break;
    control.text = control.info.text;
    control.tip = control.info.tip;
    control.info.text = nullptr;
    control.info.tip = nullptr;
    control.name = nameOf(control, controls.empty() ? nullptr : &controls.back());
    controls.push_back(std::move(control));
  }
  return controls;
}

std::vector<OdString> itemsOf(const OpenDialog& dialog, int id) {
  std::vector<OdString> items;
  while (const wchar_t* item = dialog.item(id, static_cast<int>(items.size()))) items.emplace_back(item);
  return items;
}

std::variant<NamedControl, OdString> findControl(const OpenDialog& dialog, const OdString& typed,
                                                 const Deed& deed) {
  const std::vector<NamedControl> controls = controlsOf(dialog);
  if (typed.str().starts_with(L'#')) return byNumber(controls, typed, deed);

  std::vector<NamedControl> suitable;
  std::vector<NamedControl> others;
  for (const NamedControl& control : controls)
    if (control.canBeNamed()) (suits(control, deed) ? suitable : others).push_back(control);
  const OdString wanted = plainLabel(typed);
  const std::vector<NamedControl> found = matching(suitable, wanted);
  if (found.size() == 1) return found.front();
  if (found.size() > 1)
    return quoted(wanted) + L" may be " + listed(namesOf(found)) +
           L": write more of the name, or # and its number.";
  const std::vector<NamedControl> unsuitable = matching(others, wanted);
  if (unsuitable.size() == 1) return cannotBe(unsuitable.front(), deed);
  return unknown(suitable, wanted, deed);
}

} // namespace ui::line
