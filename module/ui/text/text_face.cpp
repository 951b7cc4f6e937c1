#include "text_face.h"
#include "placement.h"
#include "res/strings.h"
#include <filesystem>
#include <utility>

namespace ui::text {
namespace {

/// A user that so many times running does nothing, or gives a path that cannot be taken, would go on forever.
constexpr int mostVainTurns = 100;

bool offers(MessageButtons buttons, MessageAnswer answer) {
  switch (answer) {
  case MessageAnswer::ok: return buttons == MessageButtons::ok || buttons == MessageButtons::okCancel;
  case MessageAnswer::cancel:
    return buttons == MessageButtons::okCancel || buttons == MessageButtons::yesNoCancel;
  case MessageAnswer::yes:
  case MessageAnswer::no: return buttons == MessageButtons::yesNo || buttons == MessageButtons::yesNoCancel;
  }
  return false;
}

std::filesystem::path toPath(const OdString& text) {
  const std::string bytes = text.toUtf8();
  return std::filesystem::path(std::u8string(bytes.begin(), bytes.end()));
}

OdString fill(unsigned number, const OdString& value) {
  return OdString().format(res::loadString(number), value.c_str());
}

} // namespace

TextFace::TextFace(unsigned number, DialogEvents& events, DialogUser* user, const res::DialogTemplate& source)
    : m_number(number), m_events(events), m_user(user), m_controls(source, number), m_title(source.caption),
      m_placement(initialPlacement(source.rect)) {}

int TextFace::run() {
  if (!m_user) throw DialogError(sentence(IDS_DIALOG_NOT_SHOWN));
  m_events.onInit();
  if (!m_ended && m_focus == 0) m_focus = m_controls.nextTabStop(0);
  if (!m_ended) m_user->opened(*this);
  for (int vainTurns = 0; !m_ended;) {
    m_acted = false;
    m_user->drive(*this);
    vainTurns = m_acted ? 0 : vainTurns + 1;
    if (!m_ended && vainTurns == mostVainTurns) throw DialogError(sentence(IDS_DIALOG_USER_IDLE));
  }
  return m_result;
}

void TextFace::end(int code) {
  m_result = code;
  if (m_ended) return;
  m_ended = true;
  setFocus(0);
}

OdString TextFace::sentence(unsigned number) const { return fill(number, m_title); }

OdString TextFace::text(int id) const {
  const Control& control = m_controls.at(id);
  return control.holdsItems() && control.selected >= 0 ? itemText(id, control.selected) : control.text;
}

void TextFace::setText(int id, const OdString& text) { m_controls.at(id).text = text; }

int TextFace::addItem(int id, const OdString& text) {
  std::vector<OdString>& items = m_controls.at(id).items;
  items.push_back(text);
  return static_cast<int>(items.size()) - 1;
}

void TextFace::removeItems(int id) {
  Control& control = m_controls.at(id);
  control.items.clear();
  control.selected = -1;
}

OdString TextFace::itemText(int id, int index) const {
  return m_controls.at(id).items.at(static_cast<std::size_t>(index));
}

void TextFace::select(int id, int index) {
  if (index >= itemCount(id)) throw std::out_of_range("item " + std::to_string(index));
  m_controls.at(id).selected = index < 0 ? -1 : index;
}

void TextFace::setFocus(int id) {
  if (id == m_focus) return;
  const int left = std::exchange(m_focus, id);
  const Control* control = m_controls.find(left);
  if (control && control->tellsLeave()) m_events.onLeave(left);
}

MessageAnswer TextFace::messageBox(const MessageQuestion& question) {
  const MessageAnswer answer = m_user->answerMessage(question);
  if (!offers(question.buttons, answer)) throw DialogError(sentence(IDS_DIALOG_WRONG_ANSWER));
  return answer;
}

std::optional<OdString> TextFace::askFile(const FileRequest& request) {
  const FileQuestion question{
      request.save,          request.filter.c_str(), request.initialPath.c_str(), request.defaultName.c_str(),
      request.fileMustExist, request.pathMustExist,  request.overwritePrompt};
  for (int turn = 0; turn < mostVainTurns; ++turn) {
    const wchar_t* answer = m_user->answerFile(question);
    if (!answer) return std::nullopt;
    const OdString path(answer);
    if (!path.isEmpty() && accepts(request, path)) return path;
  }
  throw DialogError(sentence(IDS_FILE_NOT_CHOSEN));
}

/// The rules that the system's own file dialogs keep, with their messages.
bool TextFace::accepts(const FileRequest& request, const OdString& path) {
  const std::filesystem::path file = toPath(path);
  const std::filesystem::path folder = file.parent_path();
  std::error_code ignored;
  const bool exists = std::filesystem::exists(file, ignored);
  if (request.pathMustExist && !folder.empty() && !std::filesystem::is_directory(folder, ignored)) {
    messageBox({fill(IDS_PATH_NOT_FOUND, path), m_title, MessageButtons::ok, MessageIcon::warning});
    return false;
  }
  if (request.fileMustExist && !exists) {
    messageBox({fill(IDS_FILE_NOT_FOUND, path), m_title, MessageButtons::ok, MessageIcon::warning});
    return false;
  }
  return !request.overwritePrompt || !exists ||
         messageBox({fill(IDS_FILE_EXISTS, path), m_title, MessageButtons::yesNo, MessageIcon::warning}) ==
             MessageAnswer::yes;
}

} // namespace ui::text

std::unique_ptr<ui::Face> ui::makeFace(unsigned number, DialogEvents& events, DialogUser* user) {
  return std::make_unique<text::TextFace>(number, events, user, res::loadDialog(number));
}
