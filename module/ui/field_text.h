#pragma once
#include "field_edit.h"
#include <optional>

namespace ui {

/// A change of a text: what stands in `range` becomes `text`.
struct Splice {
  TextRange range;
  OdString text;
};

/// The one change that makes `after` of `before`, as short as can be, but covering at least `around`.
Splice difference(const OdString& before, const OdString& after, std::optional<TextRange> around = {});

/// A text of typed runs and fields, and the rules for changing it.
class FieldText {
public:
  FieldText() = default;
  explicit FieldText(const std::vector<TextRun>& runs);

  const OdString& text() const { return m_text; }
  std::vector<TextRun> runs() const;
  /// Where the fields stand, in the order of the text.
  std::vector<TextRange> fields() const;
  /// The number of the field that the range touches, or in whose inside the caret stands; 0 for none.
  int fieldAt(TextRange range) const;
  /// The range inside the text, and with the whole of every field that it touches.
  TextRange widened(TextRange range) const;
  /// Puts a run in the place of the widened range; gives the end of it.
  int replace(TextRange range, const TextRun& run);

private:
  struct Field {
    TextRange range;
    int number;
  };

  OdString m_text;
  std::vector<Field> m_fields;
};

} // namespace ui
