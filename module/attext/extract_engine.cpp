#include "extract_engine.h"
#include "record_reader.h"
#include "sys/codepage.h"
#include "sys/files.h"
#include "text_file.h"
#include <algorithm>
#include <cstdint>

namespace attext {
namespace {

/// A value in the code page of the file, and its width in characters as far as that matters to a column.
struct Cell {
  std::string_view bytes;
  std::size_t width;
};

/// The values of all records, one after another in a single text, because a large drawing has millions.
class Records {
public:
  explicit Records(std::size_t values) { m_cells.reserve(values); }

  void append(const std::vector<OdString>& values) {
    for (const OdString& value : values) {
      sys::appendNarrow(value.str(), m_text);
      m_cells.push_back({m_text.size(), std::min(value.str().size(), kWidest)});
    }
  }
  Cell value(std::size_t index) const {
    const std::size_t start = index == 0 ? 0 : m_cells[index - 1].end;
    return {std::string_view(m_text).substr(start, m_cells[index].end - start), m_cells[index].width};
  }

private:
  static constexpr std::size_t kWidest = 0xFFFF; // of a column
  struct Place {
    std::uint64_t end : 48;
    std::uint64_t width : 16;
  };
  std::string m_text;
  std::vector<Place> m_cells;
};

class Layout {
public:
  Layout(const std::vector<ExtractField>& columns, const ExtractSettings& settings)
      : m_columns(columns), m_delimiter(settings.delimiter.str()),
        m_quote(settings.quote.isEmpty() ? L"'" : settings.quote.str()),
        m_spaced(settings.format == ExtractFormat::sdf) {}

  bool hasHeading() const { return m_spaced; }

  std::string heading() const {
    std::wstring line;
    for (const ExtractField& column : m_columns) {
      const std::wstring name = L"(" + column.name.str() + L")";
      line += name;
      line.append(padding(column, name.size()), L' ');
    }
    return sys::toNarrow(line) + '\n';
  }

  const std::string& record(const Records& records, std::size_t number) {
    m_line.clear();
    for (std::size_t i = 0; i < m_columns.size(); ++i)
      appendCell(records.value(number * m_columns.size() + i), i);
    return m_line += '\n';
  }

private:
  /// A text that goes into every record.
  struct Mark {
    explicit Mark(const std::wstring& text) : bytes(sys::toNarrow(text)), width(text.size()) {}
    std::string bytes;
    std::size_t width;
  };

  static std::size_t padding(const ExtractField& column, std::size_t width) {
    return column.width - std::min<std::size_t>(column.width, width);
  }

  /// Value, quotes and delimiter count together towards the width.
  void appendCell(const Cell& value, std::size_t index) {
    const ExtractField& column = m_columns[index];
    const bool quoted = !m_spaced && !column.numeric;
    const bool delimited = index + 1 < m_columns.size();
    const std::size_t fill =
        padding(column, value.width + (quoted ? 2 * m_quote.width : 0) + (delimited ? m_delimiter.width : 0));
    if (!m_spaced) m_line.append(fill, ' ');
    if (quoted) m_line += m_quote.bytes;
    m_line += value.bytes;
    if (quoted) m_line += m_quote.bytes;
    if (delimited) m_line += m_delimiter.bytes;
    if (m_spaced) m_line.append(fill, ' ');
  }

  const std::vector<ExtractField>& m_columns;
  Mark m_delimiter;
  Mark m_quote;
  bool m_spaced;
  std::string m_line;
};

/// The columns of a template file; none when it cannot be read.
std::vector<ExtractField> readTemplate(const OdString& path, ExtractSettings& settings) {
  try {
    return parseTemplate(sys::readFile(sys::toPath(path.str())).bytes, settings);
  } catch (const sys::FileError&) {
    return {};
  }
}

Records readRecords(const std::vector<ExtractField>& columns, const OdDbObjectIdArray& references) {
  Records records(columns.size() * references.size());
  RecordReader reader(columns);
  for (const OdDbObjectId id : references) {
    const OdDbBlockReferencePtr reference = id.safeOpenObject();
    records.append(reader.read(*reference));
  }
  return records;
}

} // namespace

int extractRecords(const OdString& templatePath, const OdString& outputPath,
                   const OdDbObjectIdArray& references, ExtractSettings& settings) {
  const std::vector<ExtractField> columns = readTemplate(templatePath, settings);
  if (columns.empty()) return 0;
  const Records records = readRecords(columns, references);

  TextFile file(outputPath);
  if (!file.isOpen()) return 0;
  Layout layout(columns, settings);
  if (layout.hasHeading()) file.write(layout.heading());
  for (OdDbObjectIdArray::size_type i = 0; i < references.size(); ++i) file.write(layout.record(records, i));
  return file.close() ? static_cast<int>(references.size()) : 0;
}

} // namespace attext
