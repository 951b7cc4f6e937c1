#include "text_face.h"
#include "placement.h"
#include "res/strings.h"
#include "res/styles.h"
#include "ui/control_kind.h"
#include "ui/questions.h"
#include <algorithm>
#include <stdexcept>
#include <utility>

namespace ui::text {
namespace {

/// What the tabs take of their control, in pixels: a row of captions, and a border.
constexpr int captionHeight = 22, border = 3;

} // namespace

TextFace::TextFace(unsigned number, DialogEvents& events, DialogUser* user, const res::DialogTemplate& source)
    : WorkedDialog(number), m_events(events), m_user(user), m_template(source),
      m_frame(number, source, events, *this), m_title(source.caption),
      m_placement(initialPlacement(source.rect)), m_area(normalArea(m_placement)) {}

int TextFace::run() {
  if (!m_user) throw DialogError(sentence(IDS_DIALOG_NOT_SHOWN, m_title));
  m_events.onOpen();
  m_events.onInit();
  if (!hasEnded() && m_activePage < 0 && !m_pages.empty()) showPage(0);
  if (!hasEnded() && !m_focus.form) passFocusOn();
  deliverPosted();
  if (!hasEnded()) m_user->opened(*this);
  while (!hasEnded()) {
    giveTurn(*m_user, m_title);
    deliverPosted();
  }
  return m_result;
}

void TextFace::end(int code) {
  m_result = code;
  if (hasEnded()) return;
  markEnded();
  if (const OpenPage* page = openPage()) page->events.onDeactivate();
  focusOn({});
  m_events.onClose();
  for (const OpenPage& page : m_pages) page.events.onClose();
}

FormFace& TextFace::addPage(int tabs, const OdString& title, unsigned number,
                            std::span<const std::uint8_t> source, PageEvents& events) {
  const res::DialogTemplate page = res::parseDialog(source, number);
  refuseUnfitPage(page, number, m_template);
  if (m_frame.controls().at(tabs).kind != ControlKind::tabs || (m_tabs && m_tabs != tabs))
    refuseControl(static_cast<unsigned>(this->number()), static_cast<unsigned>(tabs), "it takes no pages");
  m_tabs = tabs;
  FocusKeeper& keeper = *this;
  m_pages.push_back({title, events, std::make_unique<TextForm>(number, page, events, keeper)});
  const Area area = m_frame.area(tabs);
  m_pages.back().form->resize(area.width() - 2 * border, area.height() - captionHeight - border);
  return *m_pages.back().form;
}

TextFace::OpenPage* TextFace::openPage() const {
  return m_activePage < 0 ? nullptr : &m_pages[static_cast<std::size_t>(m_activePage)];
}

void TextFace::activatePage(int index) {
  if (index < 0 || index >= static_cast<int>(m_pages.size())) refuseIndex(index);
  if (index == m_activePage) return;
  if (const OpenPage* page = openPage()) {
    page->events.onDeactivate();
    if (m_focus.form == page->form.get()) focusOn({&m_frame, m_tabs});
  }
  showPage(index);
}

void TextFace::showPage(int index) {
  m_activePage = index;
  openPage()->events.onActivate();
}

void TextFace::setPlacement(const Placement& placement) {
  m_placement = placement;
  Area area = normalArea(placement);
  if (m_template.style & WS_THICKFRAME) {
    area.right = std::max(area.right, area.left + m_area.width());
    area.bottom = std::max(area.bottom, area.top + m_area.height());
    setNormalArea(m_placement, area);
  }
  m_frame.resize(area.width(), area.height());
  if (!m_tabs) return;
  const Area tabs = m_frame.area(m_tabs);
  for (const OpenPage& page : m_pages)
    page.form->resize(tabs.width() - 2 * border, tabs.height() - captionHeight - border);
}

void TextFace::send(const OdString& name, std::intptr_t first, std::intptr_t second) {
  m_events.onMessage(name, first, second);
}

void TextFace::post(const OdString& name, std::intptr_t first, std::intptr_t second) {
  m_posted.push_back({name, first, second});
}

void TextFace::deliverPosted() {
  while (!m_posted.empty() && !hasEnded()) {
    const Message message = std::move(m_posted.front());
    m_posted.pop_front();
    send(message.name, message.first, message.second);
  }
}

void TextFace::focusOn(const Focus& target) {
  if (target == m_focus) return;
  const Focus left = std::exchange(m_focus, target);
  const Control* control = left.form ? left.form->controls().find(left.id) : nullptr;
  if (control && tellsLeave(control->kind)) left.form->events().onLeave(left.id);
}

void TextFace::passFocusOn() {
  const int next = nextTabStop();
  focusOn(next ? Focus{at(next).form, next} : Focus{});
}

MessageAnswer TextFace::messageBox(const MessageQuestion& question) {
  return askForAnswer(*m_user, question, m_title);
}

std::optional<OdString> TextFace::askFile(const FileRequest& request) {
  return askForPath(*m_user, request, m_title,
                    [this](const MessageQuestion& question) { return messageBox(question); });
}

} // namespace ui::text
