#include "DxfForm.h"
#include "AsciiForm.h"
#include "BinaryForm.h"
#include "DxfFormParser.h"
#include "OdError.h"

/// A file begins with a section (code 0) or a comment (code 999).
static bool hasShortCodes(std::string_view bytes) {
  const std::string_view codes = bytes.substr(binaryCodes::kMarkLength, 2);
  if (codes.size() < 2) return false;
  return codes[0] == static_cast<char>(binaryCodes::kLongCodeFollows) || (codes[0] == 0 && codes[1] != 0);
}

std::shared_ptr<const DxfParser> dxfParserFor(const std::shared_ptr<DxfText>& text) {
  const std::string_view bytes = text->bytes;
  const auto refuse = [&](const OdString& sentence) {
    throw OdError_FileException(eNotSupportedFormat, text->fileName + L": " + sentence);
  };
  if (bytes.empty()) refuse(L"the file is empty");
  if (binaryCodes::isMarked(bytes)) {
    text->isBinary = true;
    return std::make_shared<DxfFormParser<BinaryForm>>(BinaryForm{hasShortCodes(bytes)}, text);
  }
  if (bytes.substr(0, 3) == "AC1" && bytes.substr(0, 16).find('\0') != std::string_view::npos)
    refuse(L"this is a DWG drawing; only DXF is supported");
  if (bytes.find('\n') == std::string_view::npos && bytes.find('\r') != std::string_view::npos)
    refuse(L"the lines end in carriage returns only, which is not supported");
  return std::make_shared<DxfFormParser<AsciiForm>>(AsciiForm(), text);
}
