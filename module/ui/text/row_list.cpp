#include "row_list.h"
#include "ui/control_kind.h"

namespace ui::text {

std::size_t RowList::rowIndex(int row) const {
  if (row < 0 || row >= rowCount()) refuseIndex(row);
  return static_cast<std::size_t>(row);
}

std::size_t RowList::columnIndex(int column) const {
  if (column < 0 || column >= columnCount()) refuseIndex(column);
  return static_cast<std::size_t>(column);
}

void RowList::addColumn(const OdString& title, int width) {
  m_columns.push_back({title, width});
  for (Row& row : m_rows) row.texts.emplace_back();
}

void RowList::clearColumns() {
  clearRows();
  m_columns.clear();
}

int RowList::addRow(int row, std::intptr_t data) {
  if (row < 0) row = rowCount();
  if (row > rowCount()) refuseIndex(row);
  m_rows.insert(m_rows.begin() + row, {data, std::vector<OdString>(m_columns.size())});
  if (m_selection >= row) ++m_selection;
  return row;
}

void RowList::removeRow(int row) {
  m_rows.erase(m_rows.begin() + static_cast<std::ptrdiff_t>(rowIndex(row)));
  if (m_selection == row) m_selection = -1;
  if (m_selection > row) --m_selection;
}

void RowList::clearRows() {
  m_rows.clear();
  m_selection = -1;
}

OdString RowList::text(int row, int column) const { return m_rows[rowIndex(row)].texts[columnIndex(column)]; }

void RowList::setText(int row, int column, const OdString& text) {
  m_rows[rowIndex(row)].texts[columnIndex(column)] = text;
}

void RowList::select(int row) { m_selection = row < 0 ? -1 : static_cast<int>(rowIndex(row)); }

const wchar_t* RowList::cell(int row, int column) const {
  if (row < -1 || row >= rowCount() || column < 0 || column >= columnCount()) return nullptr;
  const auto c = static_cast<std::size_t>(column);
  return row < 0 ? m_columns[c].title.c_str() : m_rows[static_cast<std::size_t>(row)].texts[c].c_str();
}

} // namespace ui::text
