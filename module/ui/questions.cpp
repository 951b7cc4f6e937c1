#include "questions.h"
#include "res/strings.h"
#include "sys/files.h"
#include <filesystem>

namespace ui {
namespace {

/// A user that gives so many times running a path that cannot be taken would go on forever.
constexpr int mostRefusals = 100;

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

bool accepts(const FileRequest& request, const OdString& path, const OdString& title,
             const ShowMessage& show) {
  const std::filesystem::path file = sys::toPath(path.str());
  const std::filesystem::path folder = file.parent_path();
  std::error_code ignored;
  const bool exists = std::filesystem::exists(file, ignored);
  const auto ask = [&](unsigned text, MessageButtons buttons) {
    return show({sentence(text, path), title, buttons, MessageIcon::warning});
  };
  if (request.pathMustExist && !folder.empty() && !std::filesystem::is_directory(folder, ignored))
    return ask(IDS_PATH_NOT_FOUND, MessageButtons::ok), false;
  if (request.fileMustExist && !exists) return ask(IDS_FILE_NOT_FOUND, MessageButtons::ok), false;
  return !request.overwritePrompt || !exists ||
         ask(IDS_FILE_EXISTS, MessageButtons::yesNo) == MessageAnswer::yes;
}

} // namespace

OdString sentence(unsigned number, const OdString& value) {
  return OdString().format(res::loadString(number), value.c_str());
}

MessageAnswer askForAnswer(DialogUser& user, const MessageQuestion& question, const OdString& title) {
  const MessageAnswer answer = user.answerMessage(question);
  if (!offers(question.buttons, answer)) throw DialogError(sentence(IDS_DIALOG_WRONG_ANSWER, title));
  return answer;
}

std::optional<OdString> askForPath(DialogUser& user, const FileRequest& request, const OdString& title,
                                   const ShowMessage& show) {
  const FileQuestion question{
      request.save,          request.filter.c_str(), request.initialPath.c_str(), request.defaultName.c_str(),
      request.fileMustExist, request.pathMustExist,  request.overwritePrompt};
  for (int turn = 0; turn < mostRefusals; ++turn) {
    const wchar_t* answer = user.answerFile(question);
    if (!answer) return std::nullopt;
    const OdString path(answer);
    if (!path.isEmpty() && accepts(request, path, title, show)) return path;
  }
  throw DialogError(sentence(IDS_FILE_NOT_CHOSEN, title));
}

} // namespace ui
