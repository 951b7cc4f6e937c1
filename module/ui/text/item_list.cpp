#include "item_list.h"
#include "ui/control_kind.h"

namespace ui::text {

int ItemList::add(const OdString& text, std::intptr_t data, std::optional<Color> swatch) {
  m_items.push_back({text, data, swatch});
  return count() - 1;
}

void ItemList::clear() {
  m_items.clear();
  m_selection = -1;
}

void ItemList::select(int index) {
  if (index >= count()) refuseIndex(index);
  m_selection = index < 0 ? -1 : index;
}

const ItemList::Item& ItemList::at(int index) const {
  if (index < 0 || index >= count()) refuseIndex(index);
  return m_items[static_cast<std::size_t>(index)];
}

const wchar_t* ItemList::textAt(int index) const {
  return index < 0 || index >= count() ? nullptr : at(index).text.c_str();
}

} // namespace ui::text
