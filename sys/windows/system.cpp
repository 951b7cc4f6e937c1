#include "sys/windows/system.h"
#include "sys/codepage.h"
#include "sys/surrogates.h"
#include <system_error>

namespace sys {

std::string utf8(std::wstring_view text) {
  std::string bytes;
  // A unit from U+DC80 to U+DCFF without a partner is no byte of another encoding here, but a unit of a file
  // name.
  for (std::size_t at = 0; at < text.size();) encodeUtf8(nextCodePoint(text, at), bytes);
  return bytes;
}

std::string reasonOf(DWORD error) {
  const std::error_condition known =
      std::error_code(static_cast<int>(error), std::system_category()).default_error_condition();
  if (known.category() == std::generic_category()) return known.message();
  wchar_t* text = nullptr;
  const DWORD length = FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM |
                                          FORMAT_MESSAGE_IGNORE_INSERTS,
                                      nullptr, error, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
  std::wstring_view sentence(text, length);
  while (sentence.ends_with(L'\n') || sentence.ends_with(L'\r') || sentence.ends_with(L'.'))
    sentence.remove_suffix(1);
  std::string reason = sentence.empty() ? "error " + std::to_string(error) : utf8(sentence);
  LocalFree(text);
  return reason;
}

} // namespace sys
