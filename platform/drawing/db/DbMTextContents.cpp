// How the text of several lines is stored, and what of it is plain text.
#include "DbMText.h"

namespace {

enum Code { kLast = 1, kMore = 3 };
constexpr std::size_t kMaxBytes = 250; // of one group

/// End of the piece that begins at `start`: at most kMaxBytes, and no character is split.
std::size_t pieceEnd(std::string_view text, std::size_t start) {
  std::size_t end = start + kMaxBytes;
  if (end >= text.size()) return text.size();
  while (end > start + 1 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return end;
}

OdString withParagraphs(OdString text) {
  text.replace(L"\r\n", L"\\P");
  text.replace(L"\n", L"\\P");
  text.replace(L"\r", L"\\P");
  return text;
}

} // namespace

OdString odDbMTextContents(const OdDbGroupList& groups, odDbGroups::Range range) {
  // Pieces are cut at a fixed length, perhaps within a character: they belong together before they are
  // decoded.
  std::string bytes;
  OdString whole;
  OdUInt8 flags = OdDbGroup::kNone;
  const auto flush = [&] {
    if (bytes.empty()) return;
    OdDbGroup joined = OdDbGroup::ofBytes(kLast, bytes);
    joined.flags = flags;
    whole += groups.text(joined);
    bytes.clear();
  };
  for (int i = range.first; i < range.last; ++i) {
    const OdDbGroup& group = groups[i];
    if (group.code != kMore && group.code != kLast) continue;
    if (group.flags != flags) flush();
    flags = group.flags;
    bytes += group.bytes();
  }
  flush();
  return whole;
}

OdString OdDbMText::contents() const { return odDbMTextContents(groups(), body()); }

void OdDbMText::setContents(const OdString& contents) {
  OdDbGroupList& list = mutableGroups();
  auto [first, last] = body();
  int at = -1;
  for (int i = last - 1; i >= first; --i) {
    if (list[i].code != kMore && list[i].code != kLast) continue;
    list.erase(i, i + 1);
    at = i;
  }
  if (at < 0) at = odDbGroups::place(list, schema(), *schema().back(), kLast);
  const std::string text = withParagraphs(contents).toUtf8();
  std::size_t start = 0;
  for (std::size_t end = pieceEnd(text, start); end < text.size(); end = pieceEnd(text, start)) {
    list.insert(at++, list.makeBytes(kMore, std::string_view(text).substr(start, end - start)));
    start = end;
  }
  list.insert(at, list.makeBytes(kLast, std::string_view(text).substr(start)));
}

OdString OdDbMText::plainLine() const { return odDbPlainLine(contents()); }

OdString odDbPlainLine(const OdString& contents) {
  // Codes with a value run to a semicolon; the others are single letters.
  constexpr std::wstring_view kWithValue = L"ACHQTWfFp";
  constexpr std::wstring_view kBlank = L"P~N";
  constexpr std::wstring_view kLiteral = L"\\{}";
  const std::wstring& text = contents.str();
  std::wstring plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const wchar_t c = text[i];
    if (c == L'{' || c == L'}') continue;
    if (c == L'\n') plain += L' ';
    if (c != L'\\') {
      if (c >= L' ') plain += c;
      continue;
    }
    if (++i >= text.size()) break;
    const wchar_t code = text[i];
    const std::size_t end = text.find(L';', i);
    if (kBlank.find(code) != std::wstring_view::npos) {
      plain += L' ';
    } else if (kLiteral.find(code) != std::wstring_view::npos) {
      plain += code;
    } else if (kWithValue.find(code) != std::wstring_view::npos && end != std::wstring::npos) {
      i = end;
    } else if (code == L'S' && end != std::wstring::npos) {
      for (std::size_t k = i + 1; k < end; ++k) plain += text[k] == L'^' || text[k] == L'#' ? L'/' : text[k];
      i = end;
    }
  }
  return OdString(std::move(plain));
}
