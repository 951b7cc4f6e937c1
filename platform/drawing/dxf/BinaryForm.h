#pragma once
// Binary drawing files: behind a mark of 22 bytes, group codes of one or two bytes and their values as
// little- endian numbers, texts with a zero behind them, and chunks with a length before them.
#include "DxfForm.h"

/// How the value of a group is stored.
enum class BinaryValue : OdUInt8 { kUnknown, kText, kReal, kInt8, kInt16, kInt32, kInt64, kChunk };

/// kUnknown for codes that the format does not define: nobody can tell where their values end.
BinaryValue binaryValue(int code);

namespace binaryCodes {
constexpr std::size_t kMarkLength = 22;
/// In files of one-byte codes, this one announces a code of two bytes.
constexpr int kLongCodeFollows = 255;
/// Whether the bytes begin with the mark of binary files.
bool isMarked(std::string_view bytes);
} // namespace binaryCodes

/// Splits a slice of a file into groups.
class BinaryScanner {
public:
  /// Until R12, codes are stored in one byte.
  BinaryScanner(const DxfText& text, std::string_view slice, bool shortCodes)
      : m_text(text), m_at(slice.data()), m_end(slice.data() + slice.size()), m_shortCodes(shortCodes) {}

  const char* position() const { return m_at; }
  /// The next group; false at the end of the slice. An unknown code, or one without its whole value, is an
  /// error.
  bool next(DxfRawGroup& group);

private:
  std::string_view take(std::size_t size, const DxfRawGroup& group);
  int code(const DxfRawGroup& group);

  const DxfText& m_text;
  const char* m_at;
  const char* m_end;
  bool m_shortCodes;
};

/// See DxfFormParser.h.
struct BinaryForm {
  bool shortCodes = false;

  using Scanner = BinaryScanner;
  Scanner scanner(const DxfText& text, std::string_view slice) const { return {text, slice, shortCodes}; }
  std::string_view contents(const DxfText& text) const { return text.bytes.substr(binaryCodes::kMarkLength); }
  std::string_view trimmed(std::string_view value) const { return value; }
  bool isValid(OdDbGroupKind /*kind*/, std::string_view /*value*/) const { return true; }
  bool toReal(std::string_view value, double& result) const;
  bool toInteger(std::string_view value, OdInt64& result) const;
  bool toHandle(std::string_view value, OdUInt64& result) const;
  /// Chunks become hexadecimal digits, which is what group lists hold.
  void append(OdDbGroupList& list, OdDbGroup& group, std::string_view value) const;
  const char* expected(OdDbGroupKind kind) const;
  const char* recordBegin(const DxfText& text, const char* raw, std::string_view name) const;
  DxfStyle style(const DxfText& text, const char* behindName) const;
};
