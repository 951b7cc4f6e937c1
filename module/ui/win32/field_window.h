#pragma once
#include "ui/field_text.h"
#include <windows.h>

namespace ui::win32 {

/// The text of a rich edit's window with its fields, which are shown on a grey ground. The window knows
/// characters only: after each change, what became of the fields is worked out.
class FieldWindow final : public FieldEdit {
public:
  explicit FieldWindow(HWND window);

  std::vector<TextRun> runs() const override { return m_text.runs(); }
  void setRuns(const std::vector<TextRun>& runs) override;
  int fieldAtCaret() const override { return m_text.fieldAt(selection()); }
  void insert(const TextRun& run) override;
  bool can(EditCommand command) const override;
  void perform(EditCommand command) override;

  const FieldText& text() const { return m_text; }
  TextRange selection() const;
  /// Selects the range with the whole of every field that it touches.
  void select(TextRange range);
  /// What the user does to the text; the window tells the change.
  void splice(const Splice& change);
  /// A message that may change the text is about to reach the window.
  void beforeChange() { m_selectionBefore = selection(); }
  /// The window tells a change of its text; false when it is of our own making.
  bool followChange();
  /// The window tells a change of its selection.
  void followSelection();
  /// The Backspace key. Some systems first move the caret as the arrow key does, which selects a field.
  void eraseBack();
  /// The caret goes to an end of the selection; false when nothing is selected. Some systems move it on from
  /// the other end, and it would never come out of a field.
  bool moveCaret(bool right);
  /// A disabled rich edit does not look so by itself.
  void showEnabled(bool on) const;

private:
  LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
  void write();
  void paint();
  void setSelection(TextRange range) const;

  HWND m_window;
  FieldText m_text;
  /// Before the key or command that is under way.
  std::optional<TextRange> m_selectionBefore;
  /// The window is being changed by us, which is no change of the user.
  bool m_working = false;
};

} // namespace ui::win32
