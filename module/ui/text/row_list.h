#pragma once
#include "ui/list_view.h"
#include <vector>

namespace ui::text {

class RowList final : public ListView {
public:
  void addColumn(const OdString& title, int width) override;
  void clearColumns() override;
  int columnCount() const override { return static_cast<int>(m_columns.size()); }
  int columnWidth(int column) const override { return m_columns[columnIndex(column)].width; }
  void setColumnWidth(int column, int width) override { m_columns[columnIndex(column)].width = width; }

  int addRow(int row, std::intptr_t data) override;
  void removeRow(int row) override;
  void clearRows() override;
  int rowCount() const override { return static_cast<int>(m_rows.size()); }
  OdString text(int row, int column) const override;
  void setText(int row, int column, const OdString& text) override;
  std::intptr_t data(int row) const override { return m_rows[rowIndex(row)].data; }
  void setData(int row, std::intptr_t data) override { m_rows[rowIndex(row)].data = data; }

  int selection() const override { return m_selection; }
  void select(int row) override;
  void redraw() override {}

  /// Row -1 holds the titles; null for a place of no text.
  const wchar_t* cell(int row, int column) const;

private:
  struct Column {
    OdString title;
    int width;
  };
  struct Row {
    std::intptr_t data;
    std::vector<OdString> texts;
  };
  std::size_t rowIndex(int row) const;
  std::size_t columnIndex(int column) const;

  std::vector<Column> m_columns;
  std::vector<Row> m_rows;
  int m_selection = -1;
};

} // namespace ui::text
