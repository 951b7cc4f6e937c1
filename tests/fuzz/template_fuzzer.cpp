// The templates of the attribute extraction.
#include "attext/extract_template.h"
#include "check.h"
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  attext::ExtractSettings settings;
  const std::vector<attext::ExtractField> columns = attext::parseTemplate(text, settings);
  constexpr std::size_t kShortestColumn = 9; // N C008000
  check(columns.size() <= (size + 1) / (kShortestColumn + 1),
        "there are more columns than the template has room for");
  for (const attext::ExtractField& column : columns) {
    check(!column.name.isEmpty(), "a column has no name");
    // Three signs at most, the first of which may be a minus.
    const auto fits = [](OdUInt16 number) { return number <= 999 || number >= static_cast<OdUInt16>(-99); };
    check(fits(column.width) && fits(column.decimals),
          "a column's width or decimals are none of three signs");
  }
  return 0;
}
