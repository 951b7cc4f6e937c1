#pragma once
#include "ui/line_user.h"
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// A dialog user for tests: answers from a queue, and keeps what was asked and shown. The newest recorder
/// that lives is what the test program exports as the dialog user, so it serves modules that are loaded as
/// well.
///
/// A question that comes when the queue is empty fails the test and closes the dialog by an exception; a line
/// that is refused where no refusal is expected fails the test; so do answers that were never asked for.
class DialogRecorder : public ui::LineUser {
public:
  struct Control {
    ui::ControlKind kind{};
    std::string text; ///< with its `&`
    bool enabled = false;
    bool shown = false;
    bool checked = false;
    int selected = -1;
    std::vector<std::string> items;
    std::string tip;
    std::vector<int> swatches;                  ///< one an item; -1 for none
    std::vector<std::string> columns;           ///< of a list view, their titles
    std::vector<std::vector<std::string>> rows; ///< of a list view, all cells
    std::vector<bool> emphasised;               ///< one a row: drawn bold or in a colour
    std::vector<std::string> fields;            ///< of a rich edit, their texts
    std::string selection;                      ///< of an edit or rich edit, the text that is selected
  };
  struct Dialog {
    int number = 0;
    std::string title;
    std::map<int, Control> controls;
    int focus = 0;
  };
  struct Message {
    std::string text, caption;
    ui::MessageButtons buttons{};
    ui::MessageIcon icon{};
    ui::MessageAnswer answer{};
  };
  struct File {
    bool save = false;
    std::string filter, initialPath, defaultName;
    bool fileMustExist = false;
    bool pathMustExist = false;
    bool overwritePrompt = false;
    std::optional<std::string> answer; ///< empty: cancelled
  };

  DialogRecorder();
  ~DialogRecorder() override;
  DialogRecorder(const DialogRecorder&) = delete;
  DialogRecorder& operator=(const DialogRecorder&) = delete;

  /// The newest recorder that lives, or null.
  static DialogRecorder* current();

  /// Queues lines, as LineUser takes them; a line break separates several.
  DialogRecorder& say(const std::string& lines);
  /// Queues a line that must be refused with a sentence that contains `reason`.
  DialogRecorder& sayRefused(const std::string& line, const std::string& reason);
  /// Queues a look at the dialog that is open when its turn comes.
  DialogRecorder& look(std::function<void(const Dialog&)> check);

  /// Each showing of a dialog, as it looked when it opened.
  const std::vector<Dialog>& dialogs() const { return m_dialogs; }
  const std::vector<Message>& messages() const { return m_messages; }
  const std::vector<File>& files() const { return m_files; }
  /// Every line that a person would have read.
  const std::vector<std::string>& printed() const { return m_printed; }

  void opened(const ui::OpenDialog& dialog) override;
  void drive(ui::OpenDialog& dialog) override;
  ui::MessageAnswer answerMessage(const ui::MessageQuestion& question) override;
  const wchar_t* answerFile(const ui::FileQuestion& question) override;

private:
  struct Step {
    std::string line;
    std::optional<std::string> refusal;
    std::function<void(const Dialog&)> check;
  };
  /// One question under way: a dialog's turn, a message or a file.
  struct Level {
    const ui::OpenDialog* dialog = nullptr;
    std::optional<Step> unanswered; ///< handed out, and not yet known to have done anything
    std::size_t printedBefore = 0;
  };

  OdString next(const OdString& prompt);
  void runChecks();
  /// A further line is asked for, so the last one of this level did nothing.
  void noteRefusal(const Level& level) const;
  template <class Ask>
  auto nested(const ui::OpenDialog* dialog, Ask ask);

  DialogRecorder* m_previous;
  std::deque<Step> m_steps;
  std::vector<Level> m_levels;
  std::vector<Dialog> m_dialogs;
  std::vector<Message> m_messages;
  std::vector<File> m_files;
  std::vector<std::string> m_printed;
};
