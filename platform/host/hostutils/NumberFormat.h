#pragma once
#include <string>

namespace host {

/// Numbers as text, with a point as decimal mark whatever the locale. Precision counts decimals.
std::string fixed(double value, int precision);
/// With a capital E and two digits of exponent.
std::string scientific(double value, int precision);

/// The text of a magnitude with the sign of its value; a text of zeros only has none.
std::string signedText(double value, const std::string& magnitude);

/// A precision as drawings may hold it: 0 to 8.
int usable(int precision);

} // namespace host
