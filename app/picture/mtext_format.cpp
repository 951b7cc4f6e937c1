#include "mtext_format.h"
#include "palette.h"
#include "text.h"
#include <cmath>
#include <cstdlib>

namespace picture {

namespace {

/// A decimal number at the start of the text, whatever follows; none when there is none.
std::optional<double> numberAt(std::wstring_view text) {
  double value = 0;
  double place = 0;
  bool isNumber = false;
  std::size_t i = 0;
  const bool isNegative = !text.empty() && text[0] == L'-';
  if (isNegative || (!text.empty() && text[0] == L'+')) ++i;
  for (; i < text.size(); ++i) {
    if (text[i] == L'.' && place == 0) {
      place = 1;
    } else if (text[i] >= L'0' && text[i] <= L'9') {
      isNumber = true;
      value = value * 10 + (text[i] - L'0');
      place *= 10;
    } else {
      break;
    }
  }
  if (!isNumber) return std::nullopt;
  if (place > 1) value /= place;
  return isNegative ? -value : value;
}

/// The character that a code behind %% stands for; 0: none.
wchar_t signOf(wchar_t code) {
  switch (code) {
  case L'd':
  case L'D': return 0xB0;
  case L'p':
  case L'P': return 0xB1;
  case L'c':
  case L'C': return 0x2300;
  case L'%': return L'%';
  default: return 0;
  }
}

/// The character with the number of three digits at `at`; 0: none stands there.
wchar_t numberedSign(const std::wstring& text, std::size_t at) {
  constexpr int kDigits = 3;
  if (at + kDigits > text.size()) return 0;
  int number = 0;
  for (std::size_t i = at; i < at + kDigits; ++i) {
    if (text[i] < L'0' || text[i] > L'9') return 0;
    number = number * 10 + (text[i] - L'0');
  }
  return number < 256 ? static_cast<wchar_t>(number) : 0;
}

/// Replaces the character of a %% code at `at` (behind the signs); the number of characters that it took, or
/// 0.
std::size_t takeSign(const std::wstring& text, std::size_t at, OdString& out) {
  if (at >= text.size()) return 0;
  if (const wchar_t sign = signOf(text[at])) {
    out += sign;
    return 1;
  }
  const wchar_t numbered = numberedSign(text, at);
  if (!numbered) return 0;
  out += numbered;
  return 3;
}

/// The signs of the font for tolerances, which has them in place of the letters from a on. Those that fonts
/// seldom have are paraphrased.
OdString symbolsOf(const OdString& letters) {
  static constexpr std::wstring_view kSymbols[] = {L"\u2220",   // angularity
                                                   L"\u27C2",   // perpendicularity
                                                   L"\u25B1",   // flatness
                                                   L"\u2313",   // profile of a surface
                                                   L"\u25CB",   // circularity
                                                   L"\u2225",   // parallelism
                                                   L"/\u25CB/", // cylindricity
                                                   L"\u2197",   // circular runout
                                                   L"\u2261",   // symmetry
                                                   L"\u2295",   // position
                                                   L"\u2312",   // profile of a line
                                                   L"(L)",          L"(M)",
                                                   L"\u2300", // diameter
                                                   L"\u25A1", // square
                                                   L"(P)",
                                                   L"\u2104", // centre line
                                                   L"\u25CE", // concentricity
                                                   L"(S)",
                                                   L"\u2197\u2197", // total runout
                                                   L"\u2014"};      // straightness
  std::wstring text;
  for (const wchar_t c : letters.str()) {
    const bool isSign = c >= L'a' && c < L'a' + static_cast<wchar_t>(std::size(kSymbols));
    text += isSign ? kSymbols[c - L'a'] : std::wstring_view(&c, 1);
  }
  return OdString(std::move(text));
}

bool isDoublePercent(const std::wstring& text, std::size_t at) { return text.compare(at, 2, L"%%") == 0; }

class MTextDecoder {
public:
  MTextDecoder(const std::wstring& text, const TextFormat& initial) : m_text(text) {
    m_formats.push_back(initial);
  }
  std::vector<TextSpan> decode();

private:
  TextFormat& format() { return m_formats.back(); }
  void flush();
  void add(TextSpan::Kind kind);
  void plain(wchar_t c);
  void code(wchar_t code);
  bool lineCode(wchar_t code);
  void valueCode(wchar_t code, const std::wstring& value);
  void setFont(const std::wstring& value, bool isFile);
  void setParagraph(const std::wstring& value);
  void stack(const std::wstring& value);
  /// What stands up to the next semicolon, which is passed over; a stack may hold escaped ones.
  std::wstring takeValue();

  const std::wstring& m_text;
  std::size_t m_at = 0;
  std::vector<TextFormat> m_formats;
  TextSpan::Align m_align = TextSpan::Align::inherited;
  OdString m_pending;
  std::vector<TextSpan> m_spans;
};

void MTextDecoder::flush() {
  if (m_pending.isEmpty()) return;
  add(TextSpan::Kind::text);
  m_spans.back().text = format().isSymbols ? symbolsOf(m_pending) : m_pending;
  m_pending.empty();
}

void MTextDecoder::add(TextSpan::Kind kind) {
  TextSpan span;
  span.kind = kind;
  span.align = m_align;
  span.format = format();
  m_spans.push_back(std::move(span));
}

std::vector<TextSpan> MTextDecoder::decode() {
  constexpr std::size_t kDeepest = 1000;
  while (m_at < m_text.size()) {
    const wchar_t c = m_text[m_at++];
    if (c == L'{') {
      flush();
      if (m_formats.size() < kDeepest) m_formats.push_back(format());
    } else if (c == L'}') {
      flush();
      if (m_formats.size() > 1) m_formats.pop_back();
    } else if (c == L'\\' && m_at < m_text.size()) {
      code(m_text[m_at++]);
    } else {
      plain(c);
    }
  }
  flush();
  return std::move(m_spans);
}

void MTextDecoder::plain(wchar_t c) {
  if (c == L'%' && isDoublePercent(m_text, m_at - 1)) {
    if (const std::size_t taken = takeSign(m_text, m_at + 1, m_pending)) {
      m_at += 1 + taken;
      return;
    }
  }
  if (c == L'\n' || c == L'\t') {
    flush();
    add(c == L'\n' ? TextSpan::Kind::paragraph : TextSpan::Kind::tab);
  } else if (c >= L' ') {
    m_pending += c;
  }
}

bool MTextDecoder::lineCode(wchar_t code) {
  switch (code) {
  case L'L': format().underlined = true; return true;
  case L'l': format().underlined = false; return true;
  case L'O': format().overlined = true; return true;
  case L'o': format().overlined = false; return true;
  case L'K': format().struck = true; return true;
  case L'k': format().struck = false; return true;
  default: return false;
  }
}

void MTextDecoder::code(wchar_t code) {
  constexpr wchar_t kNoBreak = 0xA0;
  constexpr std::wstring_view kWithValue = L"ACcHQTWfFpS";
  if (code == L'\\' || code == L'{' || code == L'}') {
    m_pending += code;
  } else if (code == L'~') {
    m_pending += kNoBreak;
  } else {
    flush();
    if (code == L'P' || code == L'X') add(TextSpan::Kind::paragraph);
    if (code == L'N') add(TextSpan::Kind::column);
    if (!lineCode(code) && kWithValue.find(code) != std::wstring_view::npos) valueCode(code, takeValue());
  }
}

std::wstring MTextDecoder::takeValue() {
  std::wstring value;
  while (m_at < m_text.size() && m_text[m_at] != L';') {
    if (m_text[m_at] == L'\\' && m_at + 1 < m_text.size()) ++m_at;
    value += m_text[m_at++];
  }
  ++m_at;
  return value;
}

void MTextDecoder::valueCode(wchar_t code, const std::wstring& value) {
  const std::optional<double> number = numberAt(value);
  switch (code) {
  case L'H':
    if (number && *number > 0) format().height = value.back() == L'x' ? format().height * *number : *number;
    break;
  case L'W':
    if (number && *number > 0) format().widthFactor = *number;
    break;
  case L'Q':
    if (number) format().oblique = *number * OdaPI / 180;
    break;
  case L'C':
    // 256 and 0 leave it to the entity.
    if (number)
      format().color = *number >= 1 && *number <= 255 ? std::optional(paletteColor(static_cast<int>(*number)))
                                                      : std::nullopt;
    break;
  case L'c':
    if (number) {
      const Color stored = fromRgb(static_cast<OdUInt32>(static_cast<OdInt64>(*number)));
      format().color = Color{stored.blue, stored.green, stored.red}; // blue stands first here
    }
    break;
  case L'f': setFont(value, false); break;
  case L'F': setFont(value, true); break;
  case L'p': setParagraph(value); break;
  case L'S': stack(value); break;
  default: break;
  }
}

void MTextDecoder::setFont(const std::wstring& value, bool isFile) {
  const std::size_t end = value.find(L'|');
  const OdString name(value.substr(0, end));
  Font font = isFile ? fontOfFile(name) : fontNamed(name);
  if (end != std::wstring::npos) {
    font.bold = value.find(L"|b1", end) != std::wstring::npos;
    font.italic = value.find(L"|i1", end) != std::wstring::npos;
  }
  format().font = font;
  format().isSymbols = name.iCompare(L"gdt") == 0 || name.iCompare(L"gdt.shx") == 0;
}

void MTextDecoder::setParagraph(const std::wstring& value) {
  const std::size_t at = value.find(L'q');
  if (at == std::wstring::npos || at + 1 >= value.size()) return;
  switch (value[at + 1]) {
  case L'l':
  case L'j': m_align = TextSpan::Align::left; break;
  case L'c': m_align = TextSpan::Align::center; break;
  case L'r': m_align = TextSpan::Align::right; break;
  default: m_align = TextSpan::Align::inherited;
  }
}

void MTextDecoder::stack(const std::wstring& value) {
  const std::size_t at = value.find_first_of(L"^/#");
  if (at == std::wstring::npos) {
    m_pending += OdString(value);
    return;
  }
  const auto part = [](std::wstring text) {
    // The blank that files put behind a caret is no part of the text.
    return OdString(std::move(text)).trimLeft().trimRight();
  };
  add(TextSpan::Kind::stack);
  m_spans.back().text = part(value.substr(0, at));
  m_spans.back().below = part(value.substr(at + 1));
  if (value[at] != L'^')
    m_spans.back().line = value[at] == L'/' ? TextSpan::Line::horizontal : TextSpan::Line::slanted;
}

} // namespace

std::vector<TextSpan> decodeMText(const OdString& contents, const TextFormat& initial) {
  return MTextDecoder(contents.str(), initial).decode();
}

std::vector<TextSpan> decodeLine(const OdString& contents, const TextFormat& initial) {
  const std::wstring& text = contents.str();
  std::vector<TextSpan> spans(1);
  spans.back().format = initial;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!isDoublePercent(text, i) || i + 2 >= text.size()) {
      if (text[i] >= L' ') spans.back().text += text[i];
      continue;
    }
    if (const std::size_t taken = takeSign(text, i + 2, spans.back().text)) {
      i += 1 + taken;
      continue;
    }
    TextFormat format = spans.back().format;
    switch (text[i + 2]) {
    case L'u':
    case L'U': format.underlined = !format.underlined; break;
    case L'o':
    case L'O': format.overlined = !format.overlined; break;
    case L'k':
    case L'K': format.struck = !format.struck; break;
    default: spans.back().text += L'%'; continue; // no code
    }
    i += 2;
    spans.emplace_back().format = format;
  }
  return spans;
}

} // namespace picture
