#include "sys/page_converter.h"
#include <cerrno>
#include <cstring>
#include <iconv.h>
#include <string>

namespace sys {

namespace {

std::string systemName(int number) {
  switch (number) {
  case 949: return "UHC";
  case 1361: return "JOHAB";
  case 10000: return "MACINTOSH";
  case 20866: return "KOI8-R";
  default: break;
  }
  if (number > kIsoPages && number <= kLastIsoPage) return "ISO-8859-" + std::to_string(number - kIsoPages);
  return "CP" + std::to_string(number);
}

class IconvConverter final : public PageConverter {
public:
  explicit IconvConverter(int number) : m_handle(iconv_open("UTF-32LE", systemName(number).c_str())) {}
  ~IconvConverter() override {
    if (isOpen()) iconv_close(m_handle);
  }
  IconvConverter(const IconvConverter&) = delete;
  IconvConverter& operator=(const IconvConverter&) = delete;
  bool isOpen() const { return m_handle != reinterpret_cast<iconv_t>(-1); }

  Outcome convert(std::string_view bytes, char32_t& character) override {
    char buffer[4];
    std::memcpy(buffer, bytes.data(), bytes.size());
    char* in = buffer;
    std::size_t inLeft = bytes.size();
    char out[16];
    char* outAt = out;
    std::size_t outLeft = sizeof out;
    iconv(m_handle, nullptr, nullptr, nullptr, nullptr);
    errno = 0;
    const std::size_t result = iconv(m_handle, &in, &inLeft, &outAt, &outLeft);
    if (result == static_cast<std::size_t>(-1))
      return errno == EINVAL ? Outcome::kIncomplete : Outcome::kInvalid;
    // Letters that an accent could follow (1255, 1258) are held back until the end is told.
    iconv(m_handle, nullptr, nullptr, &outAt, &outLeft);
    if (outAt - out != sizeof(char32_t)) return Outcome::kInvalid;
    std::memcpy(&character, out, sizeof character);
    return Outcome::kCharacter;
  }

private:
  iconv_t m_handle;
};

} // namespace

std::unique_ptr<PageConverter> PageConverter::open(int number) {
  auto converter = std::make_unique<IconvConverter>(number);
  if (!converter->isOpen()) return nullptr;
  return converter;
}

} // namespace sys
