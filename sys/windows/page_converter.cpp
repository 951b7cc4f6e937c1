#include "sys/page_converter.h"
#include "sys/windows/system.h"

namespace sys {

namespace {

class TableConverter final : public PageConverter {
public:
  TableConverter(int number, const CPINFOEXW& info)
      : m_page(static_cast<UINT>(number)), m_info(info),
        m_hasControls(number > kIsoPages && number <= kLastIsoPage) {}

  Outcome convert(std::string_view bytes, char32_t& character) override {
    if (bytes.size() == 1 && isLead(static_cast<unsigned char>(bytes[0]))) return Outcome::kIncomplete;
    wchar_t units[4];
    const int count = MultiByteToWideChar(m_page, MB_ERR_INVALID_CHARS, bytes.data(),
                                          static_cast<int>(bytes.size()), units, 4);
    if (count != 1) return Outcome::kInvalid;
    character = units[0];
    // For bytes without a character the system gives control characters and its default character.
    const bool isControl = character >= 0x80 && character < 0xA0 && !m_hasControls;
    const bool isDefault = character == m_info.UnicodeDefaultChar && bytesOf(units[0]) != bytes;
    return isControl || isDefault ? Outcome::kInvalid : Outcome::kCharacter;
  }

private:
  std::string bytesOf(wchar_t unit) const {
    char bytes[4];
    const int count = WideCharToMultiByte(m_page, 0, &unit, 1, bytes, sizeof bytes, nullptr, nullptr);
    return {bytes, static_cast<std::size_t>(count)};
  }
  bool isLead(unsigned char byte) const {
    for (int i = 0; i + 1 < MAX_LEADBYTES && m_info.LeadByte[i] != 0; i += 2)
      if (byte >= m_info.LeadByte[i] && byte <= m_info.LeadByte[i + 1]) return true;
    return false;
  }

  UINT m_page;
  CPINFOEXW m_info;
  bool m_hasControls;
};

} // namespace

std::unique_ptr<PageConverter> PageConverter::open(int number) {
  CPINFOEXW info;
  if (!GetCPInfoExW(static_cast<UINT>(number), 0, &info) || info.MaxCharSize > 2) return nullptr;
  return std::make_unique<TableConverter>(number, info);
}

} // namespace sys
