#include "request.h"
#include "OdString.h"
#include "sys/files.h"
#include <charconv>

namespace picture {

Format formatOf(const std::string& file) {
  const OdString extension(sys::fromPath(std::filesystem::path(file).extension()));
  if (extension.iCompare(L".svg") == 0) return Format::svg;
  if (extension.iCompare(L".png") == 0) return Format::png;
  return extension.iCompare(L".pdf") == 0 ? Format::pdf : Format::unknown;
}

bool parseSize(const std::string& text, int& width, int& height) {
  constexpr int kLargest = 20000; // pixels on a side
  const char* end = text.data() + text.size();
  const auto first = std::from_chars(text.data(), end, width);
  if (first.ec != std::errc() || first.ptr == end || (*first.ptr != 'x' && *first.ptr != 'X')) return false;
  const auto second = std::from_chars(first.ptr + 1, end, height);
  const auto isSide = [](int side) { return side > 0 && side <= kLargest; };
  return second.ec == std::errc() && second.ptr == end && isSide(width) && isSide(height);
}

} // namespace picture
