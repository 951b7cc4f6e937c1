#include "record_reader.h"
#include "DbAttribute.h"
#include "DbObjectIterator.h"
#include "number_text.h"

namespace attext {
namespace {

const OdString kKeywordPrefix(L"BL:");

} // namespace

RecordReader::Keyword RecordReader::keyword(const OdString& name) {
  using Reference = const OdDbBlockReference&;
  using Block = const OdDbBlockTableRecord*;
  static const std::unordered_map<OdString, Keyword> keywords = {
      {L"NAME", [](Reference, Block block) { return block ? block->getName() : OdString(); }},
      {L"LAYER", [](Reference r, Block) { return r.layer(); }},
      {L"HANDLE", [](Reference r, Block) { return r.getDbHandle().ascii(); }},
      {L"X", [](Reference r, Block) { return numberText(r.position().x); }},
      {L"Y", [](Reference r, Block) { return numberText(r.position().y); }},
      {L"Z", [](Reference r, Block) { return numberText(r.position().z); }},
      {L"ORIENT", [](Reference r, Block) { return numberText(r.rotation()); }},
      {L"XSCALE", [](Reference r, Block) { return numberText(r.scaleFactors().sx); }},
      {L"YSCALE", [](Reference r, Block) { return numberText(r.scaleFactors().sy); }},
      {L"ZSCALE", [](Reference r, Block) { return numberText(r.scaleFactors().sz); }},
      // Nesting is not followed and nothing is counted: readers of these files expect the texts as they are.
      {L"LEVEL", [](Reference, Block) { return OdString(L"1"); }},
      {L"NUMBER", [](Reference, Block) { return OdString(L"$Number$"); }},
      {L"XEXTRUDE", [](Reference r, Block) { return numberText(r.normal().x); }},
      {L"YEXTRUDE", [](Reference r, Block) { return numberText(r.normal().y); }},
      {L"ZEXTRUDE", [](Reference r, Block) { return numberText(r.normal().z); }},
  };
  const auto found = keywords.find(name);
  return found == keywords.end() ? nullptr : found->second;
}

RecordReader::RecordReader(const std::vector<ExtractField>& columns) : m_values(columns.size()) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const OdString& name = columns[i].name;
    if (name.left(kKeywordPrefix.getLength()) != kKeywordPrefix) {
      m_tagColumns.emplace(name, i);
    } else if (const Keyword value = keyword(name.mid(kKeywordPrefix.getLength()))) {
      m_keywordColumns.push_back({i, value});
    }
  }
}

const std::vector<OdString>& RecordReader::read(const OdDbBlockReference& reference) {
  m_definition = OdDbBlockTableRecord::cast(reference.blockTableRecord().openObject());
  for (OdString& value : m_values) value.empty();
  for (const auto& [column, value] : m_keywordColumns) m_values[column] = value(reference, m_definition);
  if (!m_tagColumns.empty()) readAttributes(reference);
  return m_values;
}

void RecordReader::readAttributes(const OdDbBlockReference& reference) {
  for (const OdDbObjectIteratorPtr i = reference.attributeIterator(); !i->done(); i->step()) {
    const OdDbAttributePtr attribute = OdDbAttribute::cast(i->objectId().openObject());
    if (attribute.isNull()) continue;
    const auto [first, last] = m_tagColumns.equal_range(attribute->tag());
    for (auto column = first; column != last; ++column) m_values[column->second] = attribute->textString();
  }
}

} // namespace attext
