#pragma once
#include <string>
#include <string_view>

namespace host {

/// Takes the pieces of a typed measure from left to right. Blanks between pieces are passed over. Nothing
/// depends on the process locale.
class NumberScanner {
public:
  /// Text that holds anything but ASCII, other than the degree sign (read as "d"), scans as empty and failed.
  explicit NumberScanner(std::wstring_view text);

  /// A number without sign: digits with an optional fraction (behind a point or, as the only mark, a comma)
  /// and exponent. False, with the position unchanged, when there is none.
  bool number(double& value);
  /// Whole digits.
  bool digits(double& value);
  /// The given sign, letters without regard to case.
  bool take(char sign);
  /// +1, or -1 for a minus; a plus or minus is taken.
  double sign();
  bool atEnd();
  std::size_t position() const { return m_position; }
  void moveTo(std::size_t position) { m_position = position; }

private:
  void skipBlanks();
  std::string m_text;
  std::size_t m_position = 0;
};

} // namespace host
