// OdString::format. The printf family is not used: what its wide forms take "%s" for differs between the
// platforms, and it writes numbers in the process locale.
#include "OdError.h"
#include "OdString.h"
#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

/// Larger widths and precisions are taken for a damaged format.
constexpr int kLargestField = 4096;

enum class Length { kPlain, kChar, kShort, kLong, k64, kPointer };

struct Directive {
  bool leftAligned = false;
  bool zeroFilled = false;
  bool alternate = false;
  OdChar plus = 0; ///< Written before a number that is not negative: '+', ' ' or nothing.
  int width = 0;
  int precision = -1; ///< -1: not given.
  Length length = Length::kPlain;
  OdChar conversion = 0;
};

/// A number ready to be padded: what stands before the fill zeros, and the digits behind them.
struct Number {
  std::string prefix;
  std::string digits;
};

class Formatter {
public:
  /// Takes the arguments over; the caller may not use its list again.
  Formatter(std::wstring_view format, va_list args) : m_format(format) { va_copy(m_args, args); }
  ~Formatter() { va_end(m_args); }
  Formatter(const Formatter&) = delete;
  Formatter& operator=(const Formatter&) = delete;

  std::wstring run() {
    constexpr std::size_t kTypicalValues = 32;
    m_result.reserve(m_format.size() + kTypicalValues);
    while (m_position < m_format.size()) {
      const std::size_t percent = std::min(m_format.find(L'%', m_position), m_format.size());
      m_result += m_format.substr(m_position, percent - m_position);
      m_position = percent;
      if (percent < m_format.size()) writeDirective();
    }
    return std::move(m_result);
  }

private:
  [[noreturn]] void refuse() const {
    OdString message = L"The format text \"";
    message += OdString(m_format);
    message += L"\" holds a directive that cannot be used at position ";
    message += OdString(std::to_wstring(m_start + 1));
    message += OdString(L".");
    throw OdError(eInvalidInput, message);
  }

  OdChar peek() const { return m_position < m_format.size() ? m_format[m_position] : OdChar(0); }
  bool accept(std::wstring_view text) {
    if (!m_format.substr(m_position).starts_with(text)) return false;
    m_position += text.size();
    return true;
  }

  int readField() {
    if (accept(L"*")) return va_arg(m_args, int);
    int value = 0;
    for (; peek() >= L'0' && peek() <= L'9'; ++m_position) {
      value = std::min(value * 10 + static_cast<int>(peek() - L'0'), kLargestField + 1);
    }
    return value;
  }

  void readFlags(Directive& d) {
    for (;; ++m_position) {
      switch (peek()) {
      case L'-': d.leftAligned = true; break;
      case L'0': d.zeroFilled = true; break;
      case L'#': d.alternate = true; break;
      case L'+': d.plus = L'+'; break;
      case L' ': d.plus = d.plus ? d.plus : L' '; break;
      default: return;
      }
    }
  }

  Length readLength() {
    if (accept(L"I64") || accept(L"ll") || accept(L"j")) return Length::k64;
    if (accept(L"I32")) return Length::kPlain;
    if (accept(L"I") || accept(L"z") || accept(L"t")) return Length::kPointer;
    if (accept(L"hh")) return Length::kChar;
    if (accept(L"h")) return Length::kShort;
    if (accept(L"l")) return Length::kLong;
    return Length::kPlain;
  }

  Directive readDirective() {
    Directive d;
    m_start = m_position++;
    readFlags(d);
    d.width = readField();
    if (d.width < 0) {
      d.leftAligned = true;
      d.width = -std::max(d.width, -kLargestField - 1);
    }
    if (accept(L".")) d.precision = std::max(readField(), -1);
    if (d.width > kLargestField || d.precision > kLargestField) refuse();
    d.length = readLength();
    d.conversion = peek();
    ++m_position;
    return d;
  }

  void writeDirective() {
    const Directive d = readDirective();
    switch (d.conversion) {
    case L'%': m_result += L'%'; break;
    case L's': writeString(d); break;
    case L'c': writeField(d, std::wstring(1, static_cast<OdChar>(va_arg(m_args, int)))); break;
    case L'd':
    case L'i': writeNumber(d, signedNumber(d)); break;
    case L'u':
    case L'o':
    case L'x':
    case L'X': writeNumber(d, unsignedNumber(d)); break;
    case L'f':
    case L'F':
    case L'e':
    case L'E':
    case L'g':
    case L'G': writeFloating(d); break;
    default: refuse();
    }
  }

  void writeString(const Directive& d) {
    const auto limited = [&d](auto text) {
      return d.precision < 0 ? text : text.substr(0, static_cast<std::size_t>(d.precision));
    };
    if (d.length == Length::kShort) {
      const char* text = va_arg(m_args, const char*);
      writeField(d, limited(OdString(text ? text : "(null)").str()));
    } else {
      const OdChar* text = va_arg(m_args, const OdChar*);
      writeField(d, limited(std::wstring(text ? text : L"(null)")));
    }
  }

  Number signedNumber(const Directive& d) {
    const OdInt64 value = signedArgument(d.length);
    const OdUInt64 magnitude = value < 0 ? 0 - static_cast<OdUInt64>(value) : static_cast<OdUInt64>(value);
    return {sign(d, value < 0), digits(d, magnitude, 10)};
  }

  Number unsignedNumber(const Directive& d) {
    const OdUInt64 value = unsignedArgument(d.length);
    if (d.conversion == L'u') return {{}, digits(d, value, 10)};
    if (d.conversion == L'o') return {d.alternate ? "0" : "", digits(d, value, 8)};
    Number number{{}, digits(d, value, 16)};
    if (d.alternate && value != 0) number.prefix = d.conversion == L'X' ? "0X" : "0x";
    if (d.conversion == L'X') makeUpperAscii(number.digits);
    return number;
  }

  static bool has64Bits(Length length) {
    return length == Length::k64 || (length == Length::kLong && sizeof(long) == 8) ||
           (length == Length::kPointer && sizeof(void*) == 8);
  }

  OdInt64 signedArgument(Length length) {
    if (has64Bits(length)) return va_arg(m_args, OdInt64);
    const int value = va_arg(m_args, int);
    if (length == Length::kChar) return static_cast<OdInt8>(value);
    return length == Length::kShort ? static_cast<OdInt16>(value) : value;
  }

  OdUInt64 unsignedArgument(Length length) {
    if (has64Bits(length)) return va_arg(m_args, OdUInt64);
    const unsigned value = va_arg(m_args, unsigned);
    if (length == Length::kChar) return static_cast<OdUInt8>(value);
    return length == Length::kShort ? static_cast<OdUInt16>(value) : value;
  }

  static std::string sign(const Directive& d, bool negative) {
    if (negative) return "-";
    return d.plus ? std::string(1, static_cast<char>(d.plus)) : std::string();
  }

  static void makeUpperAscii(std::string& text) {
    for (char& c : text) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
  }

  static std::string digits(const Directive& d, OdUInt64 value, int base) {
    if (value == 0 && d.precision == 0) return {};
    char buffer[64];
    std::string text(buffer, std::to_chars(buffer, buffer + sizeof buffer, value, base).ptr);
    const std::size_t wanted = static_cast<std::size_t>(std::max(d.precision, 0));
    if (text.size() < wanted) text.insert(0, wanted - text.size(), '0');
    return text;
  }

  void writeFloating(Directive d) {
    if (d.alternate) refuse();
    const double value = va_arg(m_args, double);
    const OdChar kind = d.conversion | 32;
    const auto notation = kind == L'f'   ? std::chars_format::fixed
                          : kind == L'e' ? std::chars_format::scientific
                                         : std::chars_format::general;
    char buffer[kLargestField + 400];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value), notation,
                                   d.precision < 0 ? 6 : d.precision);
    Number number{sign(d, std::signbit(value)), std::string(buffer, end.ptr)};
    if (d.conversion != kind) makeUpperAscii(number.digits);
    d.zeroFilled = d.zeroFilled && std::isfinite(value);
    d.precision = -1;
    writeNumber(d, number);
  }

  void writeNumber(const Directive& d, const Number& number) {
    const std::size_t length = number.prefix.size() + number.digits.size();
    const auto width = static_cast<std::size_t>(d.width);
    const std::size_t fill = width > length ? width - length : 0;
    const bool zeros = d.zeroFilled && !d.leftAligned && d.precision < 0;
    if (!zeros && !d.leftAligned) m_result.append(fill, L' ');
    appendAscii(number.prefix);
    if (zeros) m_result.append(fill, L'0');
    appendAscii(number.digits);
    if (d.leftAligned) m_result.append(fill, L' ');
  }

  void appendAscii(std::string_view text) {
    for (const char c : text) m_result += static_cast<OdChar>(c);
  }

  void writeField(const Directive& d, const std::wstring& text) {
    const auto width = static_cast<std::size_t>(d.width);
    const std::size_t fill = width > text.size() ? width - text.size() : 0;
    if (!d.leftAligned) m_result.append(fill, L' ');
    m_result += text;
    if (d.leftAligned) m_result.append(fill, L' ');
  }

  std::wstring_view m_format;
  std::size_t m_position = 0;
  std::size_t m_start = 0; ///< Of the directive at hand.
  va_list m_args;
  std::wstring m_result;
};

} // namespace

OdString& OdString::format(const OdChar* format, ...) {
  va_list args;
  va_start(args, format);
  try {
    formatV(format, args);
  } catch (...) {
    va_end(args);
    throw;
  }
  va_end(args);
  return *this;
}

OdString& OdString::formatV(const OdChar* format, va_list args) {
  m_text = Formatter(format ? format : L"", args).run();
  return *this;
}
