#include "system_boxes.h"
#include "control_windows.h"
#include "res/strings.h"
#include "stand_in.h"
#include "ui/questions.h"
#include <algorithm>
#include <commdlg.h>
#include <dlgs.h>

namespace ui::win32 {
namespace {

UINT styleOf(MessageButtons buttons) {
  switch (buttons) {
  case MessageButtons::ok: return MB_OK;
  case MessageButtons::okCancel: return MB_OKCANCEL;
  case MessageButtons::yesNo: return MB_YESNO;
  case MessageButtons::yesNoCancel: return MB_YESNOCANCEL;
  }
  return MB_OK;
}

UINT styleOf(MessageIcon icon) {
  switch (icon) {
  case MessageIcon::none: return 0;
  case MessageIcon::error: return MB_ICONERROR;
  case MessageIcon::question: return MB_ICONQUESTION;
  case MessageIcon::warning: return MB_ICONWARNING;
  case MessageIcon::information: return MB_ICONINFORMATION;
  }
  return 0;
}

/// The sole button of a box with OK alone may have the number of Cancel, so that Esc presses it.
void pressAnswer(HWND box, MessageAnswer answer) {
  if (!pressButton(box, static_cast<int>(answer)) && answer == MessageAnswer::ok) pressButton(box, IDCANCEL);
}

/// The file dialog's own buffer, and its settings.
class FileBox {
public:
  FileBox(HWND owner, const FileRequest& request) : m_save(request.save), m_filter(request.filter.str()) {
    std::ranges::replace(m_filter, L'|', L'\0');
    m_settings.lStructSize = sizeof m_settings;
    m_settings.hwndOwner = owner;
    m_settings.lpstrFilter = m_filter.empty() ? nullptr : m_filter.c_str();
    m_settings.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_ENABLESIZING;
    m_settings.nMaxFile = static_cast<DWORD>(m_path.size());
    m_settings.lpstrFile = m_path.data();
    const OdString& start = request.initialPath.isEmpty() ? request.defaultName : request.initialPath;
    start.str().copy(m_path.data(), m_path.size() - 1);
  }

  /// The rules that the dialog is to keep by itself.
  void keepRules(const FileRequest& request) {
    if (request.fileMustExist) m_settings.Flags |= OFN_FILEMUSTEXIST;
    if (request.pathMustExist) m_settings.Flags |= OFN_PATHMUSTEXIST;
    if (request.overwritePrompt) m_settings.Flags |= OFN_OVERWRITEPROMPT;
  }

  /// False after Cancel or an error.
  bool ask() {
    if (open()) return true;
    if (CommDlgExtendedError() != FNERR_INVALIDFILENAME) return false;
    // A path to start at that the system does not like is no reason not to ask.
    m_path.front() = L'\0';
    return open();
  }

  OdString path() const { return m_path.c_str(); }

private:
  bool open() { return (m_save ? GetSaveFileNameW(&m_settings) : GetOpenFileNameW(&m_settings)) != FALSE; }

  static constexpr std::size_t longestPath = 0x8000;

  bool m_save;
  std::wstring m_filter;
  std::wstring m_path = std::wstring(longestPath, L'\0');
  OPENFILENAMEW m_settings{};
};

/// Types a path into a file dialog and presses its button, or Cancel.
void answerFileBox(HWND box, const std::optional<OdString>& path) {
  if (path) {
    HWND combo = GetDlgItem(box, cmb13);
    SetWindowTextW(combo ? combo : GetDlgItem(box, edt1), path->c_str());
  }
  pressButton(box, path ? IDOK : IDCANCEL);
}

[[noreturn]] void throwNotMade(const OdString& title) {
  const DWORD error = GetLastError();
  throw DialogError(OdString().format(res::loadString(IDS_WINDOW_NOT_MADE), title.c_str(), error));
}

} // namespace

MessageAnswer showMessage(HWND owner, DialogUser* user, const OdString& title,
                          const MessageQuestion& question) {
  std::optional<StandIn> standIn;
  if (user) {
    const auto answer = [&](HWND box) { pressAnswer(box, askForAnswer(*user, question, title)); };
    standIn.emplace(owner, answer);
  }
  const int pressed =
      MessageBoxW(owner, question.text, question.caption, styleOf(question.buttons) | styleOf(question.icon));
  if (standIn) standIn->rethrow();
  if (pressed == 0) throwNotMade(title);
  return static_cast<MessageAnswer>(pressed);
}

std::optional<OdString> showFileDialog(HWND owner, DialogUser* user, const OdString& title,
                                       const FileRequest& request) {
  FileBox fileBox(owner, request);
  std::optional<StandIn> standIn;
  if (user) {
    // The rules are kept by messages of our own, which the user answers, before the dialog sees the path.
    standIn.emplace(owner, [&](HWND box) {
      const auto show = [&](const MessageQuestion& message) {
        return showMessage(box, user, title, message);
      };
      answerFileBox(box, askForPath(*user, request, title, show));
    });
  } else {
    fileBox.keepRules(request);
  }
  const bool chosen = fileBox.ask();
  if (standIn) standIn->rethrow();
  if (standIn && standIn->wasDismissed()) throw DialogError(sentence(IDS_FILE_NOT_CHOSEN, title));
  if (!chosen) return std::nullopt;
  return fileBox.path();
}

} // namespace ui::win32
