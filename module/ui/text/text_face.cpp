#include "text_face.h"
#include "placement.h"
#include "res/strings.h"
#include "ui/control_kind.h"
#include "ui/questions.h"
#include <stdexcept>
#include <utility>

namespace ui::text {

TextFace::TextFace(unsigned number, DialogEvents& events, DialogUser* user, const res::DialogTemplate& source)
    : WorkedDialog(number), m_events(events), m_user(user), m_controls(source, number),
      m_title(source.caption), m_placement(initialPlacement(source.rect)) {}

int TextFace::run() {
  if (!m_user) throw DialogError(sentence(IDS_DIALOG_NOT_SHOWN, m_title));
  m_events.onOpen();
  m_events.onInit();
  if (!hasEnded() && m_focus == 0) m_focus = nextTabStop();
  if (!hasEnded()) m_user->opened(*this);
  while (!hasEnded()) giveTurn(*m_user, m_title);
  return m_result;
}

void TextFace::end(int code) {
  m_result = code;
  if (hasEnded()) return;
  markEnded();
  setFocus(0);
}

OdString TextFace::text(int id) const {
  const Control& control = m_controls.at(id);
  return holdsItems(control.kind) && control.selected >= 0 ? itemText(id, control.selected) : control.text;
}

void TextFace::setText(int id, const OdString& text) { m_controls.at(id).text = text; }

void TextFace::enable(int id, bool on) {
  m_controls.at(id).enabled = on;
  if (!on) passFocusOn(id);
}

void TextFace::show(int id, bool on) {
  m_controls.at(id).shown = on;
  if (!on) passFocusOn(id);
}

void TextFace::passFocusOn(int id) {
  if (m_focus == id) setFocus(nextTabStop());
}

int TextFace::addItem(int id, const OdString& text) {
  std::vector<OdString>& items = m_controls.listAt(id).items;
  items.push_back(text);
  return static_cast<int>(items.size()) - 1;
}

void TextFace::removeItems(int id) {
  Control& control = m_controls.listAt(id);
  control.items.clear();
  control.selected = -1;
}

OdString TextFace::itemText(int id, int index) const {
  return m_controls.listAt(id).items.at(static_cast<std::size_t>(index));
}

void TextFace::select(int id, int index) {
  if (index >= itemCount(id)) throw std::out_of_range("item " + std::to_string(index));
  m_controls.listAt(id).selected = index < 0 ? -1 : index;
}

void TextFace::setFocus(int id) {
  if (id == m_focus) return;
  const int left = std::exchange(m_focus, id);
  const Control* control = m_controls.find(left);
  if (control && tellsLeave(control->kind)) m_events.onLeave(left);
}

MessageAnswer TextFace::messageBox(const MessageQuestion& question) {
  return askForAnswer(*m_user, question, m_title);
}

std::optional<OdString> TextFace::askFile(const FileRequest& request) {
  return askForPath(*m_user, request, m_title,
                    [this](const MessageQuestion& question) { return messageBox(question); });
}

} // namespace ui::text
