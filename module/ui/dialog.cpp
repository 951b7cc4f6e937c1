#include "dialog.h"
#include "face.h"
#include "frame/placement.h"
#include "res/dialog_template.h"
#include "res/resource.h"

namespace ui {
namespace {

DialogUserSource userSource = nullptr;

} // namespace

void setDialogUserSource(DialogUserSource source) { userSource = source; }

DialogUser* findDialogUser() { return userSource ? userSource() : nullptr; }

void reportPress(DialogEvents& events, int id) {
  switch (id) {
  case IDOK: return events.onOk();
  case IDCANCEL: return events.onCancel();
  case IDHELP: return events.onHelp();
  default: events.onPress(id);
  }
}

Dialog::Dialog(unsigned number, OdString section) : Form(number), m_section(std::move(section)) {}

Dialog::~Dialog() = default;

int Dialog::doModal() {
  if (m_face) throw std::logic_error("dialog " + std::to_string(number()) + " is shown already");
  m_face = makeFace(number(), res::dialogBytes(number()), *this, findDialogUser());
  struct Closing {
    Dialog& dialog;
    ~Closing() { dialog.forget(); }
  } closing{*this};
  m_shownBy = m_face.get();
  m_form = &m_face->frame();
  for (const auto& [name, handler] : m_handlers) m_face->listen(name);
  return m_face->run();
}

void Dialog::forget() {
  for (Page* page : m_pages) page->m_form = nullptr;
  m_pages.clear();
  m_form = nullptr;
  m_face.reset();
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
Placement Dialog::placement() const { return face().placement(); }
void Dialog::setPlacement(const Placement& placement) { face().setPlacement(placement); }
void Dialog::setVisible(bool on) { face().setVisible(on); }

void Dialog::addPage(int tabs, const OdString& title, Page& page) {
  if (page.m_form) throw std::logic_error("page " + std::to_string(page.number()) + " is shown already");
  page.m_form = &face().addPage(tabs, title, page.number(), res::dialogBytes(page.number()), page);
  page.m_shownBy = m_shownBy;
  m_pages.push_back(&page);
  page.onInit();
}

int Dialog::activePage() const { return face().activePage(); }
void Dialog::activatePage(int index) { face().activatePage(index); }

void Dialog::listen(const OdString& name, MessageHandler handler) {
  m_handlers[name] = std::move(handler);
  if (m_face) m_face->listen(name);
}

void Dialog::send(const OdString& name, std::intptr_t first, std::intptr_t second) {
  face().send(name, first, second);
}

void Dialog::post(const OdString& name, std::intptr_t first, std::intptr_t second) {
  face().post(name, first, second);
}

void Dialog::onMessage(const OdString& name, std::intptr_t first, std::intptr_t second) {
  const auto found = m_handlers.find(name);
  if (found == m_handlers.end()) return;
  const MessageHandler handler = found->second; // which may listen to more
  handler(first, second);
}

} // namespace ui
