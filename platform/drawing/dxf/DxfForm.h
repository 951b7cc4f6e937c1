#pragma once
// The forms of drawing files: lines of text (ASCII), or a binary stream of the same groups.
#include "DbStore.h"
#include "DxfOutput.h"
#include "DxfRecord.h"
#include "DxfText.h"
#include <functional>

/// A group as it stands in the file.
struct DxfRawGroup {
  int code;
  std::string_view value; ///< ASCII: the whole line without its end, numbers may have blanks around them;
                          ///< binary: the bytes of the number, or of the text without its end
  const char* place;      ///< where the group begins
};

/// What readers and writers need to know of a file's form. It stays with the drawing and turns slices of the
/// file into groups.
class DxfParser : public OdDbRawParser {
public:
  explicit DxfParser(std::shared_ptr<const DxfText> text) : m_text(std::move(text)) {}
  const DxfText& text() const { return *m_text; }
  /// Splits the file into records. The parser must outlive the source.
  virtual std::unique_ptr<DxfRecordSource> records() const = 0;
  /// Calls `visit(group, behind)` for each group of a slice; `behind` is where the next one begins.
  virtual void
  visit(std::string_view slice,
        const std::function<void(const DxfRawGroup& group, const char* behind)>& visit) const = 0;
  /// Where the record begins whose contents are at `raw`: before its group 0.
  virtual const char* recordBegin(const char* raw, std::string_view name) const = 0;
  /// How the file lays its groups out, seen from behind the name of a section.
  virtual DxfStyle style(const char* behindName) const = 0;

protected:
  std::shared_ptr<const DxfText> m_text;
};

/// The parser for the form that the file's first bytes tell. Throws OdError_FileException for files of other
/// kinds.
std::shared_ptr<const DxfParser> dxfParserFor(const std::shared_ptr<DxfText>& text);
