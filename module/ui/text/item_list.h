#pragma once
#include "ui/items.h"
#include <vector>

namespace ui::text {

class ItemList final : public Items {
public:
  int add(const OdString& text, std::intptr_t data, std::optional<Color> swatch) override;
  void clear() override;
  int count() const override { return static_cast<int>(m_items.size()); }
  OdString text(int index) const override { return at(index).text; }
  std::intptr_t data(int index) const override { return at(index).data; }
  int selection() const override { return m_selection; }
  void select(int index) override;

  std::optional<Color> swatch(int index) const { return at(index).swatch; }
  /// Null for an index of no item.
  const wchar_t* textAt(int index) const;

private:
  struct Item {
    OdString text;
    std::intptr_t data;
    std::optional<Color> swatch;
  };
  const Item& at(int index) const;

  std::vector<Item> m_items;
  int m_selection = -1;
};

} // namespace ui::text
