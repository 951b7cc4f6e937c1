#include "EncodingOverride.h"
#include "TextCheck.h"
#include "TextCodec.h"
#include "sys/codepage.h"
#include <algorithm>

namespace {

constexpr const char* kCodePageVariable = "$DWGCODEPAGE";

/// The value of a header variable that has one text, from the bytes of the file.
std::string_view headerValue(const DxfText& text, std::string_view variable) {
  const std::string_view header = text.bytes.substr(0, text.bytes.find("ENDSEC"));
  std::size_t at = header.find(variable);
  if (at == std::string_view::npos) return {};
  at += variable.size();
  if (text.isBinary) {
    // The end of the name and the code of the value, 1 or 3.
    at = std::min(header.find_first_not_of(std::string_view("\0\1\3", 3), at), header.size());
    return header.substr(at, header.find('\0', at) - at);
  }
  // The lines of the variable and of the group's code.
  for (int line = 0; line < 2 && at != std::string_view::npos; ++line)
    if ((at = header.find('\n', at)) != std::string_view::npos) ++at;
  if (at == std::string_view::npos) return {};
  return header.substr(at, header.find_first_of("\r\n", at) - at);
}

/// The code page as the header names it.
std::string storedCodePage(OdDbStore& store) {
  const OdDbHeaderVariable* variable = store.headerVariable(kCodePageVariable);
  const bool isText = variable && variable->groups->size() > 0 && (*variable->groups)[0].isText();
  return isText ? std::string((*variable->groups)[0].bytes()) : std::string();
}

std::shared_ptr<std::string> converted(std::string_view bytes, const OdDbDxfTextCodec& from,
                                       const OdDbDxfTextCodec& to) {
  auto result = std::make_shared<std::string>();
  result->reserve(bytes.size() + bytes.size() / 8);
  const char* end = bytes.data() + bytes.size();
  for (const char* at = bytes.data(); at < end;) {
    const char* beyond = dxfBeyondAscii(at, end);
    result->append(at, beyond);
    const std::string_view rest(beyond, static_cast<std::size_t>(end - beyond));
    const std::string_view line = rest.substr(0, rest.find('\n'));
    to.recode(line, from, *result);
    at = beyond + line.size();
  }
  return result;
}

} // namespace

DxfImage dxfConvertedImage(const DxfImage& asStored, const DxfText& text) {
  const auto named =
      asStored.encoding.isEmpty() ? nullptr : OdDbDxfTextCodec::named(asStored.encoding.toUtf8());
  if (!named) return asStored;
  // Names of releases follow one another like words.
  const bool isUnicode = headerValue(text, "$ACADVER") >= "AC1021";
  const auto stored = OdDbDxfTextCodec::forDrawing(isUnicode ? OdDb::vAC21 : OdDb::vAC15,
                                                   headerValue(text, kCodePageVariable));
  const bool bothArePages = stored->page() && named->page();
  if (bothArePages || stored->page() == named->page()) return asStored;
  if (text.isBinary)
    throw OdError(eInvalidInput, text.fileName + L": the texts of a binary drawing cannot be read as " +
                                     asStored.encoding + L" instead of the encoding of its release.");
  const auto image = converted(asStored.bytes, *named, *stored);
  return {image, *image, OdString()};
}

void dxfSettleEncoding(OdDbStore& store, const DxfText& asStored, const OdDbDxfReadOptions& options) {
  const DxfEncodingFacts facts{store.version, storedCodePage(store), options.encoding.toUtf8()};
  const sys::CodePage* used = static_cast<const OdDbDxfTextCodec&>(*store.codec).page();
  if (used != OdDbDxfTextCodec::forDrawing(facts.version, facts.codePage)->page()) {
    OdDbGroupListPtr value(new OdDbGroupList);
    value->append(value->makeBytes(3, sys::CodePage::headerName(sys::CodePage::number(facts.encoding))));
    store.storeHeaderVariable(kCodePageVariable, std::move(value));
  }
  if (!options.note) return;
  for (const std::string& sentence : dxfCheckText(asStored, facts))
    options.note(OdString::fromUtf8(sentence));
}
