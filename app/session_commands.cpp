#include "session_commands.h"
#include "HostUtils.h"
#include "QkCore.h"
#include "drawing_file.h"
#include "hostgsmanager/Display.h"
#include "picture_loader.h"
#include "sys/files.h"
#include <algorithm>

namespace fs = std::filesystem;

namespace app {

const SessionCommands::Entry SessionCommands::kEntries[] = {
    {"?", &SessionCommands::list, "shows this list"},
    {"HELP", &SessionCommands::help, "explains a command or another topic"},
    {"NEW", &SessionCommands::create, "begins an empty drawing"},
    {"OPEN", &SessionCommands::open, "opens a drawing"},
    {"SAVE", &SessionCommands::save, "saves the drawing"},
    {"SAVEAS", &SessionCommands::saveAs, "saves the drawing under another name"},
    {"PICTURE", &SessionCommands::picture,
     "draws the current space into a file; also at prompts: picture FILE"},
    {"QUIT", &SessionCommands::quit, "ends the program"},
    {"EXIT", &SessionCommands::quit, "ends the program"},
};

SessionCommands::SessionCommands(host::HostSession& session, Workspace& workspace)
    : m_session(session), m_workspace(workspace) {
  for (const Entry& entry : kEntries)
    m_session.addCommand(
        entry.name, [this, run = entry.run] { return (this->*run)(); }, false);
  m_session.input().setPromptCommand([this](const OdString& line) {
    constexpr OdChar kPicture[] = L"picture ";
    OdString text = line;
    text.trimLeft().trimRight();
    const int length = OdString(kPicture).getLength();
    if (text.left(length).iCompare(kPicture) != 0) return false;
    drawPictureTo(text.mid(length).trimLeft());
    return true;
  });
}

SessionCommands::~SessionCommands() { m_session.input().setPromptCommand({}); }

// --- questions ---

bool SessionCommands::ask(const OdString& prompt, OdString& answer) {
  const int code = m_session.editor()->GetStringOrKeyword(prompt, nullptr, 0, &answer, nullptr);
  if (code == kHostEdEmpty) answer.empty();
  answer.trimLeft().trimRight();
  return code != kHostEdCancel;
}

SessionCommands::Reply SessionCommands::askYesNo(const OdString& question, Reply byDefault) {
  const OdString prompt = question + (byDefault == Reply::yes ? L" [%s] <Yes>" : L" [%s] <No>");
  const int code = m_session.editor()->GetStringOrKeyword(prompt, L"Yes No", 0, nullptr, nullptr);
  if (code == kHostEdCancel) return Reply::cancel;
  if (code == kHostEdEmpty) return byDefault;
  return code == kHostEdFirstKeyword ? Reply::yes : Reply::no;
}

bool SessionCommands::mayLoseDrawing() {
  // Scripts end as they are written: whoever wants the drawing kept writes SAVE.
  if (!m_session.input().console().isTerminal() || !m_workspace.hasUnsavedChanges()) return true;
  const OdString name = OdString::fromUtf8(m_workspace.name());
  switch (askYesNo(L"Save the changes to " + name + L"?", Reply::yes)) {
  case Reply::yes: return save() == kCmdCompleted;
  case Reply::no: return true;
  case Reply::cancel: break;
  }
  return false;
}

bool SessionCommands::mayReplace(const fs::path& file) {
  std::error_code ignored;
  if (!m_session.input().console().isTerminal() || !fs::exists(file, ignored)) return true;
  return askYesNo(OdString(sys::fromPath(file)) + L" exists. Replace it?", Reply::no) == Reply::yes;
}

// --- files ---

CMD_RUNSTATUS SessionCommands::failed(ExitStatus status, const OdError& error) {
  m_fileStatus = worse(m_fileStatus, status);
  m_session.input().report(error.description());
  return kCmdCancelled;
}

CMD_RUNSTATUS SessionCommands::create() {
  if (!mayLoseDrawing()) return kCmdCancelled;
  m_workspace.create();
  return kCmdCompleted;
}

CMD_RUNSTATUS SessionCommands::open() {
  OdString path;
  if (!mayLoseDrawing() || !ask(L"Drawing to open", path) || path.isEmpty()) return kCmdCancelled;
  try {
    m_workspace.open(sys::toPath(path.str()));
    return kCmdCompleted;
  } catch (const OdError& error) {
    return failed(kNotRead, error);
  }
}

CMD_RUNSTATUS SessionCommands::saveTo(const fs::path& file) {
  try {
    m_workspace.save(file);
    print("Saved to " + shown(file) + ".");
    return kCmdCompleted;
  } catch (const OdError& error) {
    return failed(kNotWritten, error);
  }
}

CMD_RUNSTATUS SessionCommands::save() {
  return m_workspace.file().empty() ? saveAs() : saveTo(m_workspace.file());
}

CMD_RUNSTATUS SessionCommands::saveAs() {
  const OdString current = sys::fromPath(m_workspace.file());
  OdString path;
  if (!ask(current.isEmpty() ? OdString(L"Save as") : L"Save as <" + current + L">", path))
    return kCmdCancelled;
  if (path.isEmpty()) path = current;
  if (path.isEmpty()) return kCmdCancelled;
  const fs::path file = sys::toPath(path.str());
  if (file != m_workspace.file() && !mayReplace(file)) return kCmdCancelled;
  return saveTo(file);
}

CMD_RUNSTATUS SessionCommands::picture() {
  OdString file;
  if (!ask(L"Picture to draw (.svg, .png or .pdf)", file) || file.isEmpty()) return kCmdCancelled;
  return drawPictureTo(file);
}

CMD_RUNSTATUS SessionCommands::drawPictureTo(const OdString& file) {
  OdDbDatabase& database = *m_session.database();
  picture::Request request;
  request.file = file.toUtf8();
  if (getActiveBTRId(&database) != database.getModelSpaceId())
    request.layout = database.currentLayoutName().toUtf8();
  request.highlighted = host::display().highlighted();
  for (const host::PreviewedEntity& drawn : host::display().preview().entities())
    request.preview.push_back(drawn.entity);
  try {
    for (const std::string& note : drawPicture(database, request))
      m_session.input().report(OdString::fromUtf8(note + "."));
    print("Picture drawn to " + request.file + ".");
    return kCmdCompleted;
  } catch (const OdError& error) {
    return failed(error.code() == eInvalidInput ? kWrongUsage : kNotWritten, error);
  }
}

CMD_RUNSTATUS SessionCommands::quit() {
  m_quit = mayLoseDrawing();
  return m_quit ? kCmdCompleted : kCmdCancelled;
}

// --- help ---

std::string SessionCommands::moduleCommands() const {
  std::vector<std::string> names;
  for (const host::Command& command : m_session.commands())
    if (command.creator) names.push_back(command.name);
  std::ranges::sort(names);
  std::string line;
  for (const std::string& name : names) line += (line.empty() ? "" : "  ") + name;
  return line;
}

CMD_RUNSTATUS SessionCommands::list() {
  constexpr std::size_t kNameWidth = 8;
  print("Commands of the module:");
  print("  " + moduleCommands());
  print("Commands of the program:");
  for (const Entry& entry : kEntries) {
    std::string name = entry.name;
    name.resize(std::max(kNameWidth, name.size()), ' ');
    print("  " + name + entry.about);
  }
  print("  U       takes back the last command; UNDO takes back several, REDO brings one back");
  print("Names may be shortened and typed in any case; Enter alone repeats the last command.");
  return kCmdCompleted;
}

CMD_RUNSTATUS SessionCommands::help() {
  OdString topic;
  if (!ask(L"Topic or command <index>", topic)) return kCmdCancelled;
  IHelpService* service = Get_IHelpService();
  const bool found = service->ShowTopic(topic.isEmpty() ? nullptr : topic.c_str(), nullptr);
  service->Release();
  return found ? kCmdCompleted : kCmdCancelled;
}

} // namespace app
