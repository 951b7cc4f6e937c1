#include "dialog_recorder.h"
#include <gtest/gtest.h>
#include <sstream>
#include <stdexcept>

namespace {

DialogRecorder* newest = nullptr;

std::string utf8(const wchar_t* text) { return OdString(text).toUtf8(); }

std::vector<std::string> cells(const ui::OpenDialog& dialog, int id, int row) {
  std::vector<std::string> result;
  while (const wchar_t* cell = dialog.cell(id, row, static_cast<int>(result.size())))
    result.push_back(utf8(cell));
  return result;
}

std::string part(const std::wstring& text, ui::TextRange range) {
  return OdString(text.substr(static_cast<std::size_t>(range.begin),
                              static_cast<std::size_t>(range.end - range.begin)))
      .toUtf8();
}

DialogRecorder::Control seen(const ui::OpenDialog& dialog, const ui::ControlInfo& info) {
  const std::wstring text = info.text;
  DialogRecorder::Control control;
  control.kind = info.kind;
  control.text = utf8(info.text);
  control.tip = utf8(info.tip);
  control.enabled = info.enabled;
  control.shown = info.shown;
  control.checked = info.checked;
  control.selected = info.selectedItem;
  for (int item = 0; item < info.itemCount; ++item) {
    control.items.push_back(utf8(dialog.item(info.id, item)));
    control.swatches.push_back(dialog.swatch(info.id, item));
  }
  control.columns = cells(dialog, info.id, -1);
  for (int row = 0; info.kind == ui::ControlKind::listView && row < info.itemCount; ++row) {
    const ui::RowLook look = dialog.rowLook(info.id, row);
    control.rows.push_back(cells(dialog, info.id, row));
    control.emphasised.push_back(look.bold || look.textColor >= 0 || look.background >= 0);
  }
  for (int field = 0; field < info.fieldCount; ++field)
    control.fields.push_back(part(text, dialog.field(info.id, field)));
  const bool isEdit = info.kind == ui::ControlKind::edit || info.kind == ui::ControlKind::richEdit;
  if (isEdit) control.selection = part(text, dialog.selection(info.id));
  return control;
}

DialogRecorder::Dialog seen(const ui::OpenDialog& dialog) {
  DialogRecorder::Dialog result;
  result.number = dialog.number();
  result.title = utf8(dialog.title());
  result.focus = dialog.focus();
  ui::ControlInfo info;
  for (int i = 0; dialog.controlAt(i, info); ++i) result.controls[info.id] = seen(dialog, info);
  return result;
}

} // namespace

/// The export that a module asks for.
extern "C" ui::DialogUser* GetDialogUser();
extern "C" ui::DialogUser* GetDialogUser() { return newest; }

DialogRecorder* DialogRecorder::current() { return newest; }

DialogRecorder::DialogRecorder()
    : LineUser([this](const OdString& line) { m_printed.push_back(line.toUtf8()); },
               [this](const OdString& prompt) { return next(prompt); }),
      m_previous(newest) {
  newest = this;
}

DialogRecorder::~DialogRecorder() {
  newest = m_previous;
  for (const Step& step : m_steps)
    ADD_FAILURE() << "never asked for: " << (step.check ? "a look at the dialog" : step.line);
}

DialogRecorder& DialogRecorder::say(const std::string& lines) {
  std::istringstream stream(lines.empty() ? "\n" : lines);
  for (std::string line; std::getline(stream, line);) m_steps.push_back({line, {}, {}});
  return *this;
}

DialogRecorder& DialogRecorder::sayRefused(const std::string& line, const std::string& reason) {
  m_steps.push_back({line, reason, {}});
  return *this;
}

DialogRecorder& DialogRecorder::look(std::function<void(const Dialog&)> check) {
  m_steps.push_back({{}, {}, std::move(check)});
  return *this;
}

void DialogRecorder::runChecks() {
  while (!m_steps.empty() && m_steps.front().check) {
    const Step step = std::move(m_steps.front());
    m_steps.pop_front();
    const ui::OpenDialog* dialog = m_levels.back().dialog;
    if (dialog)
      step.check(seen(*dialog));
    else
      ADD_FAILURE() << "a look at a dialog was queued where a message or file question came";
  }
}

void DialogRecorder::noteRefusal(const Level& level) const {
  if (!level.unanswered) return;
  const Step& step = *level.unanswered;
  std::string said;
  for (std::size_t i = level.printedBefore; i < m_printed.size(); ++i) said += m_printed[i] + "\n";
  if (step.line == "show" || step.line == "?") return;
  if (!step.refusal)
    ADD_FAILURE() << "\"" << step.line << "\" was refused: " << said;
  else if (said.find(*step.refusal) == std::string::npos)
    ADD_FAILURE() << "\"" << step.line << "\" should be refused with \"" << *step.refusal
                  << "\", but: " << said;
}

OdString DialogRecorder::next(const OdString& prompt) {
  noteRefusal(m_levels.back());
  m_levels.back().unanswered.reset();
  runChecks();
  if (m_steps.empty()) {
    ADD_FAILURE() << "no answer is left for: " << prompt.toUtf8();
    throw std::runtime_error("no answer is left for: " + prompt.toUtf8());
  }
  Step step = std::move(m_steps.front());
  m_steps.pop_front();
  OdString line = OdString::fromUtf8(step.line);
  m_levels.back().unanswered = std::move(step);
  m_levels.back().printedBefore = m_printed.size();
  return line;
}

template <class Ask>
auto DialogRecorder::nested(const ui::OpenDialog* dialog, Ask ask) {
  m_levels.push_back({dialog, {}, 0});
  struct Pop {
    std::vector<Level>& levels;
    ~Pop() { levels.pop_back(); }
  } pop{m_levels};
  auto answer = ask();
  const std::optional<Step>& last = m_levels.back().unanswered;
  if (last && last->refusal) ADD_FAILURE() << "\"" << last->line << "\" should have been refused";
  return answer;
}

void DialogRecorder::opened(const ui::OpenDialog& dialog) {
  m_dialogs.push_back(seen(dialog));
  LineUser::opened(dialog);
}

void DialogRecorder::drive(ui::OpenDialog& dialog) {
  nested(&dialog, [&] {
    LineUser::drive(dialog);
    return true;
  });
}

ui::MessageAnswer DialogRecorder::answerMessage(const ui::MessageQuestion& question) {
  const std::size_t index = m_messages.size();
  m_messages.push_back({utf8(question.text), utf8(question.caption), question.buttons, question.icon, {}});
  const ui::MessageAnswer answer = nested(nullptr, [&] { return LineUser::answerMessage(question); });
  m_messages[index].answer = answer;
  return answer;
}

const wchar_t* DialogRecorder::answerFile(const ui::FileQuestion& question) {
  const std::size_t index = m_files.size();
  m_files.push_back({question.save,
                     utf8(question.filter),
                     utf8(question.initialPath),
                     utf8(question.defaultName),
                     question.fileMustExist,
                     question.pathMustExist,
                     question.overwritePrompt,
                     {}});
  const wchar_t* answer = nested(nullptr, [&] { return LineUser::answerFile(question); });
  if (answer) m_files[index].answer = utf8(answer);
  return answer;
}
