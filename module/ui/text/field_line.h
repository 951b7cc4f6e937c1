#pragma once
#include "control_tree.h"
#include "ui/field_edit.h"
#include <functional>

namespace ui::text {

/// The text of a rich edit. Cut and copied text stays in the process: there is no clipboard here.
class FieldLine final : public FieldEdit {
public:
  /// `changed` is called when a command has changed the text.
  FieldLine(Control& control, std::function<void()> changed)
      : m_control(control), m_changed(std::move(changed)) {}

  std::vector<TextRun> runs() const override { return m_control.fields.runs(); }
  void setRuns(const std::vector<TextRun>& runs) override;
  int fieldAtCaret() const override { return m_control.fields.fieldAt(m_control.selection); }
  void insert(const TextRun& run) override;
  bool can(EditCommand command) const override;
  void perform(EditCommand command) override;

  /// What the user does to the text.
  void splice(const Splice& change);

private:
  bool hasSelection() const { return m_control.selection.begin != m_control.selection.end; }
  OdString selectedText() const;

  Control& m_control;
  std::function<void()> m_changed;
};

} // namespace ui::text
