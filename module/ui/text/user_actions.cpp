// The side of the text face that its user works: what can be seen of the controls, and the moves.
#include "res/resource.h"
#include "text_face.h"
#include "ui/control_kind.h"
#include <algorithm>

namespace ui::text {

std::vector<TextFace::Place> TextFace::reachable(Order order) const {
  std::vector<Place> places;
  const auto addPage = [&] {
    if (const OpenPage* page = openPage())
      for (Control& control : page->form->controls().all()) places.push_back({page->form.get(), &control});
  };
  for (Control& control : m_frame.controls().all()) {
    const bool hasPages = control.id == m_tabs && control.shown;
    if (hasPages && order == Order::tabKey) addPage();
    places.push_back({&m_frame, &control});
    if (hasPages && order == Order::reading) addPage();
  }
  return places;
}

TextFace::Place TextFace::find(int id) const {
  if (Control* control = m_frame.controls().find(id)) return {&m_frame, control};
  const OpenPage* page = openPage();
  return page ? Place{page->form.get(), page->form->controls().find(id)} : Place{};
}

TextFace::Place TextFace::at(int id) const {
  const Place place = find(id);
  if (!place.form || !place.control)
    refuseControl(static_cast<unsigned>(number()), static_cast<unsigned>(id), "there is no such control");
  return place;
}

ControlInfo TextFace::describe(const Control& control) const {
  ControlInfo info{};
  info.id = control.id;
  info.kind = control.kind;
  info.text = control.shownText();
  info.tip = control.tip.c_str();
  info.enabled = control.enabled;
  info.shown = control.shown;
  info.checked = control.checked;
  info.isDefault = control.isDefault;
  info.editable = control.editable;
  info.selectedItem = -1;
  info.place = {control.place.x, control.place.y, control.place.width, control.place.height};
  if (holdsItems(control.kind)) {
    info.itemCount = control.items.count();
    info.selectedItem = control.items.selection();
  } else if (control.kind == ControlKind::listView) {
    info.itemCount = control.rows.rowCount();
    info.selectedItem = control.rows.selection();
    info.columnCount = control.rows.columnCount();
  } else if (control.kind == ControlKind::tabs) {
    info.itemCount = static_cast<int>(m_pages.size());
    info.selectedItem = m_activePage;
  } else if (control.kind == ControlKind::richEdit) {
    info.fieldCount = static_cast<int>(control.fields.fields().size());
  }
  return info;
}

bool TextFace::controlAt(int index, ControlInfo& info) const {
  const std::vector<Place> places = reachable(Order::reading);
  if (index < 0 || index >= static_cast<int>(places.size())) return false;
  const Place& place = places[static_cast<std::size_t>(index)];
  info = describe(*place.control);
  if (place.form != &m_frame) info.place = onTabs(info.place, m_frame.controls().at(m_tabs).place);
  return true;
}

bool TextFace::control(int id, ControlInfo& info) const {
  const Control* found = find(id).control;
  if (found) info = describe(*found);
  return found != nullptr;
}

const wchar_t* TextFace::item(int id, int index) const {
  const Control* found = find(id).control;
  if (!found || index < 0) return nullptr;
  if (found->kind == ControlKind::listView) return found->rows.cell(index, 0);
  if (found->kind != ControlKind::tabs) return found->items.textAt(index);
  return index < static_cast<int>(m_pages.size()) ? m_pages[static_cast<std::size_t>(index)].title.c_str()
                                                  : nullptr;
}

int TextFace::swatch(int id, int index) const {
  const Control* found = find(id).control;
  if (!found || !found->items.textAt(index)) return -1;
  const std::optional<Color> color = found->items.swatch(index);
  return color ? static_cast<int>(*color) : -1;
}

const wchar_t* TextFace::cell(int id, int row, int column) const {
  const Control* found = find(id).control;
  return found ? found->rows.cell(row, column) : nullptr;
}

RowLook TextFace::rowLook(int id, int row) const {
  const Place place = find(id);
  return place.form && place.control && place.control->rows.cell(row, 0)
             ? place.form->events().rowLook(id, row)
             : RowLook{};
}

TextRange TextFace::field(int id, int index) const {
  const Control* found = find(id).control;
  const std::vector<TextRange> fields = found ? found->fields.fields() : std::vector<TextRange>{};
  return index >= 0 && index < static_cast<int>(fields.size()) ? fields[static_cast<std::size_t>(index)]
                                                               : TextRange{0, 0};
}

TextRange TextFace::selection(int id) const {
  const Control* found = find(id).control;
  return found ? found->selection : TextRange{0, 0};
}

void TextFace::moveTo(int id) { at(id).form->setFocus(id); }

void TextFace::replaceText(int id, const OdString& text) {
  const auto [form, control] = at(id);
  if (control->kind == ControlKind::richEdit) return form->line(id).splice(difference(control->text, text));
  const OdString taken = text.left(std::min(text.getLength(), control->textLimit));
  control->items.select(-1);
  control->text = taken;
  control->selection = {taken.getLength(), taken.getLength()};
  control->modified = true;
  form->events().onChange(id);
}

void TextFace::clickOn(int id) {
  const auto [form, control] = at(id);
  if (control->kind != ControlKind::button) form->controls().check(*control, !control->checked);
  if (form == &m_frame) return reportPress(m_events, id);
  form->events().onPress(id);
}

void TextFace::chooseItem(int id, int item) {
  const auto [form, control] = at(id);
  if (control->kind != ControlKind::listView) {
    control->items.select(item);
  } else {
    if (control->rows.selection() == item) return;
    control->rows.select(item);
  }
  form->events().onChange(id);
}

void TextFace::selectRange(int id, TextRange range) { at(id).form->selectText(id, range); }

void TextFace::clickTwice(int id) { at(id).form->events().onDoubleClick(id); }

void TextFace::turnTo(int id, int page) {
  const OpenPage* open = page == m_activePage ? nullptr : openPage();
  if (open) open->events.onDeactivate();
  focusOn({&m_frame, id});
  if (hasEnded() || !open) return;
  if (m_focus != Focus{&m_frame, id}) return open->events.onActivate();
  showPage(page);
  m_events.onChange(id);
}

Menu TextFace::menuOf(int id) { return at(id).form->events().contextMenu(id); }

void TextFace::chooseCommand(int id, int command) { at(id).form->events().onMenu(id, command); }

void TextFace::strike(Key key) {
  const Control* focused = m_focus.form ? m_focus.form->controls().find(m_focus.id) : nullptr;
  switch (key) {
  case Key::enter:
    if (focused && focused->kind == ControlKind::button) return clickOn(m_focus.id);
    return reportPress(m_events, defaultButton() ? defaultButton() : IDOK);
  case Key::escape: return m_events.onCancel();
  case Key::help: return m_events.onHelp();
  }
}

int TextFace::nextTabStop() const {
  const std::vector<Place> places = reachable(Order::tabKey);
  const auto current = std::ranges::find_if(places, [&](const Place& place) {
    return place.form == m_focus.form && place.control->id == m_focus.id;
  });
  const std::size_t count = places.size();
  const std::size_t start =
      current == places.end() ? 0 : static_cast<std::size_t>(current - places.begin()) + 1;
  for (std::size_t i = 0; i < count; ++i) {
    const Place& candidate = places[(start + i) % count];
    if (candidate.form->controls().stopsTab(*candidate.control)) return candidate.control->id;
  }
  return 0;
}

int TextFace::defaultButton() const {
  const Control* button = m_frame.controls().defaultButton();
  return button ? button->id : 0;
}

} // namespace ui::text
