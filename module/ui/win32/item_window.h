#pragma once
#include "ui/dialog_user.h"
#include "ui/items.h"
#include <vector>
#include <windows.h>

namespace ui::win32 {

/// The items of a combo box's or list box's window.
class ItemWindow final : public Items {
public:
  ItemWindow(HWND window, ControlKind kind);

  int add(const OdString& text, std::intptr_t data, std::optional<Color> swatch) override;
  void clear() override;
  int count() const override { return static_cast<int>(m_items.size()); }
  OdString text(int index) const override;
  std::intptr_t data(int index) const override { return at(index).data; }
  int selection() const override;
  void select(int index) override;

  /// The user has typed into the combo box, or chosen: what is typed is no item, whatever the window says.
  void noteTyped(bool typed) { m_typed = typed; }

  std::optional<Color> swatch(int index) const { return at(index).swatch; }
  /// The window asks for an item to be drawn.
  void draw(const DRAWITEMSTRUCT& request) const;

private:
  /// What the window does not keep.
  struct Item {
    std::intptr_t data;
    std::optional<Color> swatch;
  };
  struct Messages;

  const Item& at(int index) const;
  int send(UINT Messages::*message, WPARAM wParam = 0, LPARAM lParam = 0) const;

  HWND m_window;
  const Messages& m_messages;
  std::vector<Item> m_items;
  bool m_typed = false;
};

} // namespace ui::win32
