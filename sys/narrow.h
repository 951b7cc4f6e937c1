#pragma once
#include <string>

namespace sys {

/// Appends one character in the system's narrow code page; false, with nothing appended, when the page does
/// not have it.
bool encodeNarrow(char32_t character, std::string& bytes);

} // namespace sys
