#include "attext_run.h"
#include "events5/MessageUser.h"
#include "hbview/HostSession.h"
#include "sys/files.h"
#include "ui/line_user.h"
#include <cstdlib>
#include <deque>

namespace fs = std::filesystem;

namespace app {

namespace {

/// Numbers of the controls of the extraction dialog. Its texts may be translated, numbers are not.
enum Control : int {
  kOk = 1,
  kSelectObjects = 1021,
  kCdf = 1024,
  kSdf,
  kDxx,
  kTemplate,
  kOutput,
  kFound = 1030
};

/// Gives prepared answers and keeps what is printed.
class PreparedConsole final : public host::Console {
public:
  std::deque<std::string> answers;
  std::string lastLine; ///< that was printed

  std::optional<std::string> readLine(const std::string&) override {
    if (answers.empty()) return std::nullopt;
    std::string line = std::move(answers.front());
    answers.pop_front();
    return line;
  }
  void print(const std::string& line) override { lastLine = line; }
  std::string place() const override { return "extract"; }
  bool isTerminal() const override { return false; }
};

/// Message boxes end the command: whatever they say, the extraction did not happen.
class PreparedUser final : public ui::LineUser, public host::MessageUser {
public:
  explicit PreparedUser(host::Input& input)
      : LineUser([&input](const OdString& line) { input.print(line); },
                 [&input](const OdString& prompt) { return input.nextAnswer(prompt); }),
        m_before(host::setMessageUser(this)) {}
  ~PreparedUser() override { host::setMessageUser(m_before); }

  int found() const { return m_found; }
  const std::string& failure() const { return m_failure; }

  /// Many drawings may have their turn, and no screen be there.
  bool needsWindow() const override { return false; }
  void opened(const ui::OpenDialog& dialog) override {
    ui::ControlInfo count{};
    if (dialog.control(kFound, count)) m_found = static_cast<int>(std::wcstol(count.text, nullptr, 10));
  }
  ui::MessageAnswer answerMessage(const ui::MessageQuestion& question) override { stop(question.text); }
  int answer(const wchar_t* text, const wchar_t*, unsigned int) override { stop(text); }

private:
  void complain(const OdString& sentence) override { stop(sentence); }
  [[noreturn]] void stop(const OdString& text) {
    m_failure = OdString(text).trimRight().toUtf8();
    throw std::runtime_error(m_failure);
  }

  host::MessageUser* m_before;
  int m_found = 0;
  std::string m_failure;
};

std::string press(int control) { return "press #" + std::to_string(control); }

std::string type(int control, const fs::path& path) {
  return "set #" + std::to_string(control) + " = \"" + sys::shownPath(path) + "\"";
}

std::deque<std::string> answersFor(const AttExtJob& job) {
  const int format = job.format == ExtractFormat::cdf ? kCdf : job.format == ExtractFormat::sdf ? kSdf : kDxx;
  std::deque<std::string> answers = {press(kSelectObjects), "all", "", "tick #" + std::to_string(format)};
  if (job.format != ExtractFormat::dxx) answers.push_back(type(kTemplate, job.templatePath));
  answers.push_back(type(kOutput, job.output));
  answers.push_back(press(kOk));
  return answers;
}

} // namespace

AttExtResult runAttExt(const AttExtJob& job) {
  PreparedConsole console;
  console.answers = answersFor(job);
  host::HostSession session(console);
  session.setDrawing(job.database, sys::fromPath(job.drawing));
  PreparedUser user(session.input());
  session.setDialogUser(static_cast<ui::DialogUser*>(&user));
  const host::RunResult run = session.execute(L"AttExt");
  AttExtResult result{user.found(), 0, user.failure()};
  if (run == host::RunResult::failed || run == host::RunResult::unknown) {
    if (result.failure.empty()) result.failure = console.lastLine;
  } else {
    result.records = std::atoi(console.lastLine.c_str());
  }
  return result;
}

} // namespace app
