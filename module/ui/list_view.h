#pragma once
#include "OdString.h"
#include <cstdint>

namespace ui {

/// A list of rows with columns, of which one row may be selected. Rows and columns are counted from 0; -1 is
/// no row. An index of none throws std::out_of_range.
class ListView {
public:
  /// Puts a column behind the others; widths are in pixels.
  virtual void addColumn(const OdString& title, int width) = 0;
  /// Removes all columns, with all rows.
  virtual void clearColumns() = 0;
  virtual int columnCount() const = 0;
  /// As the user left it.
  virtual int columnWidth(int column) const = 0;
  virtual void setColumnWidth(int column, int width) = 0;

  /// Puts a row with empty texts at `row` (-1: behind the others) and gives its index; `data` is the caller's
  /// own. The selection stays with its row.
  virtual int addRow(int row, std::intptr_t data = 0) = 0;
  virtual void removeRow(int row) = 0;
  virtual void clearRows() = 0;
  virtual int rowCount() const = 0;
  virtual OdString text(int row, int column) const = 0;
  virtual void setText(int row, int column, const OdString& text) = 0;
  virtual std::intptr_t data(int row) const = 0;
  virtual void setData(int row, std::intptr_t data) = 0;

  virtual int selection() const = 0;
  /// Selects a row and scrolls to it; -1 selects none.
  virtual void select(int row) = 0;
  /// Asks anew how each row looks (FormEvents::rowLook).
  virtual void redraw() = 0;

protected:
  ~ListView() = default;
};

} // namespace ui
