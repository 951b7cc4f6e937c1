#include "menu.h"
#include "res/menu_template.h"

ui::Menu ui::loadMenu(unsigned number) {
  Menu menu;
  const std::vector<res::MenuTemplateItem> popups = res::loadMenu(number);
  for (const res::MenuTemplateItem& item : popups.front().items)
    menu.push_back({static_cast<int>(item.id), item.text, !item.grayed, item.checked});
  return menu;
}
