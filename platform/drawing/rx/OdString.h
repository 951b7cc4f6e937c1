#pragma once
#include "OdPlatform.h"
#include <compare>
#include <cstdarg>
#include <functional>
#include <string>
#include <string_view>

/// The library's wide string; a value type.
class OdString {
public:
  OdString() = default;
  OdString(const OdChar* text) : m_text(text ? text : L"") {}
  OdString(const OdChar* text, int length) : m_text(text, static_cast<std::size_t>(length)) {}
  /// Widens ASCII; a byte above 127 is read as Latin-1. For other encodings see fromUtf8.
  OdString(const char* text);
  OdString(OdChar unit, int count) : m_text(static_cast<std::size_t>(count), unit) {}
  OdString(std::wstring text) : m_text(std::move(text)) {}
  OdString(std::wstring_view text) : m_text(text) {}

  /// What becomes of an unpaired surrogate, which UTF-8 has no form for: U+FFFD takes its place, or it is
  /// written like any other code point (and read back from that form), so that nothing is lost inside one
  /// program.
  enum class Surrogates { kReplace, kKeep };
  /// Decodes UTF-8; each malformed byte becomes U+FFFD.
  static OdString fromUtf8(std::string_view bytes, Surrogates surrogates = Surrogates::kReplace);
  /// Encodes as UTF-8.
  std::string toUtf8(Surrogates surrogates = Surrogates::kReplace) const;

  const OdChar* c_str() const { return m_text.c_str(); }
  operator const OdChar*() const { return m_text.c_str(); }
  const std::wstring& str() const { return m_text; }
  int getLength() const { return static_cast<int>(m_text.size()); }
  bool isEmpty() const { return m_text.empty(); }
  void empty() { m_text.clear(); }
  /// The unit at `index`; throws OdError_InvalidIndex outside the string.
  OdChar getAt(int index) const;
  OdChar operator[](int index) const { return getAt(index); }

  /// Index of the first occurrence at or after `start`, or -1.
  int find(OdChar unit, int start = 0) const;
  int find(const OdString& part, int start = 0) const;
  int reverseFind(OdChar unit) const;
  OdString left(int count) const;
  OdString right(int count) const;
  OdString mid(int first) const;
  OdString mid(int first, int count) const;
  /// Replaces every occurrence and returns how many there were.
  int replace(const OdString& what, const OdString& with);
  /// Trims the blanks of ASCII.
  OdString& trimLeft();
  OdString& trimRight();

  /// Case mapping of the Unicode simple mappings, independent of the process locale.
  OdString& makeUpper();
  OdString& makeLower();

  int compare(const OdString& other) const { return m_text.compare(other.m_text); }
  /// Comparison without regard to case (simple case folding, locale-independent).
  int iCompare(const OdString& other) const;

  /// printf style, the same on every platform and in every locale: "%s" and "%ls" take a const OdChar*, "%hs"
  /// Latin-1 bytes, "%c" one unit; the numbers d i u o x X f e g take the lengths hh h l ll I64 I32 I z j t.
  /// Throws OdError(eInvalidInput) for any other directive.
  OdString& format(const OdChar* format, ...);
  OdString& formatV(const OdChar* format, va_list args);

  OdString& operator+=(const OdString& other);
  OdString& operator+=(OdChar unit);
  friend OdString operator+(OdString a, const OdString& b) { return a += b; }
  friend OdString operator+(OdString a, const OdChar* b) { return a += OdString(b); }
  friend OdString operator+(const OdChar* a, const OdString& b) { return OdString(a) += b; }
  friend OdString operator+(OdString a, OdChar b) { return a += b; }
  friend bool operator==(const OdString& a, const OdString& b) { return a.m_text == b.m_text; }
  friend bool operator==(const OdString& a, const OdChar* b) { return a.m_text == (b ? b : L""); }
  friend std::strong_ordering operator<=>(const OdString& a, const OdString& b) {
    return a.m_text <=> b.m_text;
  }

private:
  std::wstring m_text;
};

/// The folded form that names are compared by: two names are the same name exactly when these are equal.
std::wstring odFoldCase(std::wstring_view text);

template <>
struct std::hash<OdString> {
  std::size_t operator()(const OdString& s) const noexcept { return std::hash<std::wstring>()(s.str()); }
};
