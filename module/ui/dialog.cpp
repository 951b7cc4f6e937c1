#include "dialog.h"
#include "face.h"
#include "frame/placement.h"
#include "res/dialog_template.h"
#include "res/resource.h"

namespace ui {
namespace {

GetDialogUserFunction userSource = nullptr;

} // namespace

void setDialogUserSource(GetDialogUserFunction source) { userSource = source; }

DialogUser* findDialogUser() { return userSource ? userSource() : nullptr; }

void reportPress(DialogEvents& events, int id) {
  switch (id) {
  case IDOK: return events.onOk();
  case IDCANCEL: return events.onCancel();
  case IDHELP: return events.onHelp();
  default: events.onPress(id);
  }
}

Dialog::Dialog(unsigned number, OdString section) : m_number(number), m_section(std::move(section)) {}

Dialog::~Dialog() = default;

int Dialog::doModal() {
  if (m_face) throw std::logic_error("dialog " + std::to_string(m_number) + " is shown already");
  m_face = makeFace(m_number, res::dialogBytes(m_number), *this, findDialogUser());
  struct Closing {
    std::unique_ptr<Face>& face;
    ~Closing() { face.reset(); }
  } closing{m_face};
  return m_face->run();
}

Face& Dialog::face() const {
  if (!m_face) throw std::logic_error("dialog " + std::to_string(m_number) + " is not shown");
  return *m_face;
}

void Dialog::onOpen() {
  if (m_section.isEmpty()) return;
  if (const auto stored = frame::storedPlacement(m_section, face().isRightControlHeld()))
    setPlacement(*stored);
}

void Dialog::end(int code) {
  if (!m_section.isEmpty()) frame::savePlacement(m_section, placement());
  face().end(code);
}

OdString Dialog::title() const { return face().titleText(); }
void Dialog::setTitle(const OdString& title) { face().setTitle(title); }
OdString Dialog::text(int id) const { return face().text(id); }
void Dialog::setText(int id, const OdString& text) { face().setText(id, text); }
bool Dialog::isEnabled(int id) const { return face().isEnabled(id); }
void Dialog::enable(int id, bool on) { face().enable(id, on); }
bool Dialog::isShown(int id) const { return face().isShown(id); }
void Dialog::show(int id, bool on) { face().show(id, on); }
bool Dialog::isChecked(int id) const { return face().isChecked(id); }
void Dialog::setChecked(int id, bool on) { face().setChecked(id, on); }
int Dialog::addItem(int id, const OdString& text) { return face().addItem(id, text); }
void Dialog::removeItems(int id) { face().removeItems(id); }
int Dialog::itemCount(int id) const { return face().itemCount(id); }
OdString Dialog::itemText(int id, int index) const { return face().itemText(id, index); }
int Dialog::selection(int id) const { return face().selection(id); }
void Dialog::select(int id, int index) { face().select(id, index); }
void Dialog::setFocus(int id) { face().setFocus(id); }
int Dialog::focus() const { return face().focusedControl(); }
Placement Dialog::placement() const { return face().placement(); }
void Dialog::setPlacement(const Placement& placement) { face().setPlacement(placement); }
void* Dialog::window() const { return face().window(); }

MessageAnswer Dialog::messageBox(const OdString& text, const OdString& caption, MessageIcon icon,
                                 MessageButtons buttons) {
  return face().messageBox({text.c_str(), caption.c_str(), buttons, icon});
}

std::optional<OdString> Dialog::askFile(const FileRequest& request) { return face().askFile(request); }

} // namespace ui
