#pragma once
// The forms of files that are being recovered. Unlike the strict scanners, this one tells what is no group
// instead of failing. Internal to the recovering reader.
#include "AsciiForm.h"
#include "BinaryForm.h"

/// A group as far as it can be made out.
struct RecoverGroup {
  const char* begin = nullptr;
  const char* next = nullptr; ///< where to look for a group when this is none: the next line or byte
  const char* end = nullptr;  ///< start of the next group
  bool isGroup = false;       ///< whether there is a code, and a value behind it
  int code = 0;
  std::string_view value; ///< as DxfRawGroup has it
  std::string_view shown; ///< where it is no group: what stands there instead
};

class RecoverForm {
public:
  /// Looks at the text's first bytes. Throws OdError_FileException for files of other kinds.
  explicit RecoverForm(const std::shared_ptr<DxfText>& text);

  bool isBinary() const { return m_isBinary; }
  /// How ASCII lines end: "\r\n" or "\n".
  std::string_view lineEnd() const { return m_lineEnd; }
  /// The file behind marks at its beginning.
  std::string_view contents(const DxfText& text) const {
    return m_isBinary ? m_binary.contents(text) : m_ascii.contents(text);
  }
  /// How many groups in a row that make sense settle where groups begin.
  int convincing() const;
  /// The group at `at`, which is before `end`. No text of a binary file is searched for its end beyond
  /// `reach`.
  RecoverGroup groupAt(const char* at, const char* end, const char* reach) const {
    return m_isBinary ? binaryAt(at, end, reach) : asciiAt(at, end);
  }
  RecoverGroup groupAt(const char* at, const char* end) const { return groupAt(at, end, end); }

  std::string_view trimmed(std::string_view value) const { return m_isBinary ? value : asciiTrimmed(value); }
  bool isValid(OdDbGroupKind kind, std::string_view value) const {
    OdUInt64 handle = 0;
    if (kind == OdDbGroupKind::kHandle)
      return m_isBinary ? m_binary.toHandle(value, handle) : m_ascii.toHandle(value, handle);
    return m_isBinary ? m_binary.isValid(kind, value) : m_ascii.isValid(kind, value);
  }
  bool toReal(std::string_view value, double& result) const {
    return m_isBinary ? m_binary.toReal(value, result) : m_ascii.toReal(value, result);
  }
  bool isTrue(std::string_view value) const;
  /// 0 for what is no handle.
  OdUInt64 handle(std::string_view value) const;

  /// A group as the file has it. The code is one of texts or handles.
  std::string group(int code, std::string_view value) const;
  std::string handleGroup(int code, OdUInt64 handle) const;
  /// The group that ends the file.
  std::string end() const;
  /// Appends bytes of the file, which may end within their last line.
  void append(std::string& text, std::string_view bytes) const;

private:
  static RecoverGroup asciiAt(const char* at, const char* end);
  RecoverGroup binaryAt(const char* at, const char* end, const char* reach) const;

  bool m_isBinary;
  std::string_view m_lineEnd = "\n";
  AsciiForm m_ascii;
  BinaryForm m_binary;
};
