#pragma once
// Bytes of named code pages to wide text and back. Bytes that do not belong to an encoding stand in wide text
// as U+DC80 to U+DCFF (0xDC00 plus the byte), which no well-formed text contains, so that they can be written
// back.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sys {

class PageConverter;

inline constexpr char32_t kForeignByte = 0xDC00;
inline constexpr bool isForeignByte(char32_t c) { return c >= 0xDC80 && c <= 0xDCFF; }

/// The names that CodePage::number knows, as a sentence tells them. Other spellings of them are known too.
inline constexpr char kEncodings[] =
    "UTF-8; ANSI_874, 932, 936, 949, 950, 1250 to 1258; DOS437, 737, 775, 850, 852, 855, 857, 860 to 866, "
    "869; ISO8859-1 to 16; BIG5, GB2312, JOHAB, KOI8-R, KSC5601, MAC-ROMAN and SHIFT-JIS";

/// A code page with one or two bytes a character, other than UTF-8. Pages live as long as the program.
class CodePage {
public:
  static constexpr int kUtf8 = 65001;
  /// The number behind a name in any of the spellings that drawing files use, in any case ("ANSI_1252",
  /// "dos850", "gb2312", "8859_1", "UTF-8", a bare "1252"); 0 for a name that is not known. "ascii" and
  /// "undefined" mean 1252. The system need not have a page of that number.
  static int number(std::string_view name);
  /// The name by which headers of drawings know the page with this number ("ANSI_1252", "dos850").
  static std::string headerName(int number);
  /// The page with this number; null when the system does not have it (and for UTF-8).
  static const CodePage* numbered(int number);

  /// Appends the text of the bytes.
  void decode(std::string_view bytes, std::wstring& text) const;
  /// Whether all of the bytes stand for characters.
  bool defines(std::string_view bytes) const;
  bool isDoubleByte() const { return !m_double.empty(); }
  /// Appends one character; false, with nothing appended, when the page does not have it.
  bool encode(char32_t character, std::string& bytes) const;

private:
  explicit CodePage(PageConverter& converter);
  void readTables(PageConverter& converter);
  std::size_t decodeOne(std::string_view bytes, std::wstring& text) const;

  static constexpr char16_t kLeadByte = 0xFFFF; ///< in m_single: the first byte of two
  static constexpr char16_t kNothing = 0xFFFE;
  char16_t m_single[256];
  std::vector<char16_t> m_double; ///< by lead byte - 0x80, then trail byte; empty for single-byte pages
  std::vector<std::uint32_t> m_fromText; ///< character << 16 | bytes, sorted
};

/// Appends the text of UTF-8 bytes. Bytes that are no well-formed UTF-8 (surrogates neither) are foreign, so
/// that all bytes survive the way there and back.
void decodeUtf8(std::string_view bytes, std::wstring& text);
/// Whether the bytes are well-formed UTF-8.
bool isUtf8(std::string_view bytes);
/// Appends a code point as UTF-8; U+DC80 to U+DCFF as the byte they stand for.
void encodeUtf8(char32_t codePoint, std::string& bytes);

/// Text in the system's narrow code page, for files that other programs read: the user's ANSI code page on
/// Windows, UTF-8 elsewhere. What it cannot hold becomes a question mark.
std::string toNarrow(std::wstring_view text);
/// The same, behind other bytes.
void appendNarrow(std::wstring_view text, std::string& bytes);
/// Text of a file that another program wrote in that code page.
std::wstring fromNarrow(std::string_view bytes);

} // namespace sys
