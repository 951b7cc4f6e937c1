#include "form.h"
#include "face.h"

namespace ui {

FormFace& Form::form() const {
  if (!m_form) throw std::logic_error("dialog " + std::to_string(m_number) + " is not shown");
  return *m_form;
}

Face& Form::face() const { return form(), *m_shownBy; }

OdString Form::text(int id) const { return form().text(id); }
void Form::setText(int id, const OdString& text) { form().setText(id, text); }
bool Form::isEnabled(int id) const { return form().isEnabled(id); }
void Form::enable(int id, bool on) { form().enable(id, on); }
bool Form::isShown(int id) const { return form().isShown(id); }
void Form::show(int id, bool on) { form().show(id, on); }
bool Form::isChecked(int id) const { return form().isChecked(id); }
void Form::setChecked(int id, bool on) { form().setChecked(id, on); }
void Form::setTextLimit(int id, int most) { form().setTextLimit(id, most); }
bool Form::isModified(int id) const { return form().isModified(id); }
void Form::setModified(int id, bool on) { form().setModified(id, on); }
void Form::selectText(int id, TextRange range) { form().selectText(id, range); }
Items& Form::items(int id) const { return form().items(id); }
ListView& Form::list(int id) const { return form().list(id); }
FieldEdit& Form::fieldEdit(int id) const { return form().fieldEdit(id); }
void Form::setTip(int id, const OdString& tip) { form().setTip(id, tip); }
void Form::setIcon(int id, unsigned icon) { form().setIcon(id, icon); }
Area Form::area(int id) const { return form().area(id); }
void Form::setArea(int id, const Area& area) { form().setArea(id, area); }
void Form::anchor(int id, const Anchor& anchor) { form().anchor(id, anchor); }
void Form::setFocus(int id) { form().setFocus(id); }
int Form::focus() const { return form().focusedControl(); }

MessageAnswer Form::messageBox(const OdString& text, const OdString& caption, MessageIcon icon,
                               MessageButtons buttons) {
  return face().messageBox({text.c_str(), caption.c_str(), buttons, icon});
}

std::optional<OdString> Form::askFile(const FileRequest& request) { return face().askFile(request); }

void* Form::window() const { return face().window(); }

} // namespace ui
