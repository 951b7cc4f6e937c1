#pragma once
#include "OdString.h"
#include "dialog_user.h"
#include <vector>

namespace ui {

/// A piece of the text of a rich edit: typed text, or a field, which is shown grey and behaves as one unit.
struct TextRun {
  OdString text;
  /// The caller's number of the field, not 0; 0 for typed text.
  int field = 0;

  bool operator==(const TextRun&) const = default;
};

enum class EditCommand { cut, copy, paste, clear, selectAll };

/// The text of a rich edit, of one line, with its fields. What touches a part of a field takes the whole of
/// it.
class FieldEdit {
public:
  virtual std::vector<TextRun> runs() const = 0;
  /// Replaces the text; it then counts as not modified.
  virtual void setRuns(const std::vector<TextRun>& runs) = 0;
  /// The number of the field in which the caret or the beginning of the selection lies; 0 for none.
  virtual int fieldAtCaret() const = 0;
  /// Puts a run in the place of the selection, and the caret behind it; the text then counts as modified.
  virtual void insert(const TextRun& run) = 0;
  /// Whether a command would do anything now.
  virtual bool can(EditCommand command) const = 0;
  /// Carries a command out as its key would, with the notices of a change.
  virtual void perform(EditCommand command) = 0;

protected:
  ~FieldEdit() = default;
};

} // namespace ui
