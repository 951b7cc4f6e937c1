#pragma once
// Code points in wide strings, whose units are UTF-16 on Windows and UTF-32 elsewhere, and their case.
#include "OdPlatform.h"
#include <string>
#include <string_view>

inline constexpr char32_t kOdReplacementCharacter = 0xFFFD;

inline constexpr bool odIsSurrogate(char32_t c) { return c >= 0xD800 && c < 0xE000; }

/// The code point at `position`, which moves past it. A surrogate pair is one code point whatever the width
/// of a unit; an unpaired surrogate is returned as it stands.
char32_t odNextCodePoint(std::wstring_view text, std::size_t& position);
/// Appends a code point (as a surrogate pair where units have 16 bits). One beyond U+10FFFF becomes U+FFFD.
void odAppendCodePoint(std::wstring& text, char32_t codePoint);

/// The Unicode simple case mappings of one code point.
char32_t odToUpper(char32_t codePoint);
char32_t odToLower(char32_t codePoint);
char32_t odToFolded(char32_t codePoint);
