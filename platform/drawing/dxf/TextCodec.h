#pragma once
// The text of drawing files: bytes in the drawing's encoding, with \U+XXXX, \M+nXXXX and ^ escapes.
#include "DbGroup.h"
#include "OdaDefs.h"
#include <memory>

namespace sys {
class CodePage;
}

class OdDbDxfTextCodec : public OdDbTextCodec {
public:
  /// A null page means UTF-8.
  explicit OdDbDxfTextCodec(const sys::CodePage* page) : m_page(page) {}
  /// The codec for a drawing's release and the name of its code page ($DWGCODEPAGE). From 2007 on texts are
  /// UTF-8 whatever the name says; before, a name that is not known means 1252.
  static std::shared_ptr<OdDbDxfTextCodec> forDrawing(OdDb::DwgVersion version, std::string_view codePage);
  /// The codec for an encoding that a user named; null when there is none of that name.
  static std::shared_ptr<OdDbDxfTextCodec> named(std::string_view encoding);

  OdString decode(std::string_view bytes) const override;
  /// The inverse: appends the bytes that decode to the text. Characters that the encoding lacks become
  /// \U+XXXX, control characters and carets ^ escapes.
  void encode(std::wstring_view text, std::string& bytes) const;
  /// The same for text in UTF-8, as group lists own it.
  void encodeOwned(std::string_view utf8, std::string& bytes) const;
  /// Appends bytes of another encoding in this one. Line ends and escapes stay as they are, so that whole
  /// pieces of a file can be given.
  void recode(std::string_view bytes, const OdDbDxfTextCodec& from, std::string& recoded) const;

  /// Null for UTF-8.
  const sys::CodePage* page() const { return m_page; }

private:
  std::wstring characters(std::string_view bytes) const;
  void encodeCharacter(char32_t character, std::string& bytes) const;
  const sys::CodePage* m_page;
};
