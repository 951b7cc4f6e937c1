#pragma once
#include "ui/list_view.h"
#include <windows.h>

namespace ui::win32 {

/// The rows and columns of a list view's window.
class ListWindow final : public ListView {
public:
  explicit ListWindow(HWND window);

  void addColumn(const OdString& title, int width) override;
  void clearColumns() override;
  int columnCount() const override;
  int columnWidth(int column) const override;
  void setColumnWidth(int column, int width) override;

  int addRow(int row, std::intptr_t data) override;
  void removeRow(int row) override;
  void clearRows() override;
  int rowCount() const override;
  OdString text(int row, int column) const override;
  void setText(int row, int column, const OdString& text) override;
  std::intptr_t data(int row) const override;
  void setData(int row, std::intptr_t data) override;

  int selection() const override;
  void select(int row) override;
  void redraw() override;

  OdString columnTitle(int column) const;
  /// As a click on the row selects it: takeSelection gives it.
  void click(int row);
  /// Whether the user has selected another row since the selection was told or set the last time. The window
  /// tells several changes for one.
  bool takeSelection();

private:
  LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
  WPARAM rowIndex(int row) const;
  WPARAM columnIndex(int column) const;

  HWND m_window;
  int m_toldSelection = -1;
};

} // namespace ui::win32
