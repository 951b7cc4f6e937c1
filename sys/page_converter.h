#pragma once
#include <memory>
#include <string_view>

namespace sys {

/// ISO 8859-n has the number kIsoPages + n.
inline constexpr int kIsoPages = 28590, kLastIsoPage = 28606;

/// The system's own table of a code page.
class PageConverter {
public:
  enum class Outcome { kCharacter, kIncomplete, kInvalid };

  virtual ~PageConverter() = default;
  /// The character that the bytes, one or two, stand for all together.
  virtual Outcome convert(std::string_view bytes, char32_t& character) = 0;
  /// The converter of the page with this number; null when the system does not have it.
  static std::unique_ptr<PageConverter> open(int number);
};

} // namespace sys
