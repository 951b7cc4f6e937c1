#pragma once
#include "DbBlockReference.h"
#include "DbBlockTableRecord.h"
#include "extract_template.h"
#include <unordered_map>

namespace attext {

/// Finds the values of a template's columns on block references.
class RecordReader {
public:
  explicit RecordReader(const std::vector<ExtractField>& columns);

  /// One value a column, in their order; empty where nothing on the reference has the column's name. Of
  /// several attributes with the same tag the last one counts. Valid until the next call.
  const std::vector<OdString>& read(const OdDbBlockReference& reference);

private:
  /// What a block keyword stands for. `block` is what the reference inserts, and may be null.
  using Keyword = OdString (*)(const OdDbBlockReference& reference, const OdDbBlockTableRecord* block);
  struct KeywordColumn {
    std::size_t column;
    Keyword value;
  };

  static Keyword keyword(const OdString& name);
  void readAttributes(const OdDbBlockReference& reference);

  std::vector<KeywordColumn> m_keywordColumns;
  std::unordered_multimap<OdString, std::size_t> m_tagColumns;
  std::vector<OdString> m_values;
  /// Kept open because the next reference mostly inserts the same one.
  OdDbBlockTableRecordPtr m_definition;
};

} // namespace attext
