#include "menu_template.h"
#include "byte_reader.h"
#include "error.h"
#include "module_resources.h"
#include <algorithm>

namespace res {
namespace {

enum Flag : std::uint16_t {
  grayedFlag = 0x1,
  disabledFlag = 0x2,
  checkedFlag = 0x8,
  popupFlag = 0x10,
  lastFlag = 0x80
};

/// Deeper menus than anybody can use would exhaust the stack of a reader of damaged bytes.
constexpr int deepestMenu = 8;

std::string nameOf(unsigned number) { return "menu " + std::to_string(number); }

std::vector<MenuTemplateItem> readItems(ByteReader& reader, unsigned number, int depth) {
  if (depth > deepestMenu) throw Error(nameOf(number) + " is damaged: it is nested too deeply");
  std::vector<MenuTemplateItem> items;
  for (bool last = false; !last;) {
    const std::uint16_t flags = reader.u16();
    last = (flags & lastFlag) != 0;
    MenuTemplateItem item;
    item.grayed = (flags & (grayedFlag | disabledFlag)) != 0;
    item.checked = (flags & checkedFlag) != 0;
    if (!(flags & popupFlag)) item.id = reader.u16();
    item.text = reader.zeroEndedText();
    if (flags & popupFlag) item.items = readItems(reader, number, depth + 1);
    items.push_back(std::move(item));
  }
  return items;
}

} // namespace

std::vector<MenuTemplateItem> parseMenu(std::span<const std::uint8_t> bytes, unsigned number) {
  ByteReader reader(bytes, nameOf(number));
  if (reader.u16() != 0) throw Error(nameOf(number) + " is not in the form of a MENU statement");
  reader.skip(reader.u16()); // a header of that size, today empty
  std::vector<MenuTemplateItem> items = readItems(reader, number, 1);
  if (std::ranges::any_of(items, [](const MenuTemplateItem& item) { return item.items.empty(); }))
    throw Error(nameOf(number) + " has an item that opens nothing");
  return items;
}

std::vector<MenuTemplateItem> loadMenu(unsigned number) {
  const auto bytes = moduleResource(ResourceType::menu, number);
  if (!bytes) throw Error("the module's resources hold no menu number " + std::to_string(number));
  return parseMenu(*bytes, number);
}

} // namespace res
