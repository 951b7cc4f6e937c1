#include "TextCheck.h"
#include "BinaryForm.h"
#include "TextCodec.h"
#include "sys/codepage.h"
#include <cstring>

namespace {

/// Texts of one kind.
struct Texts {
  std::size_t count = 0;
  const char* first = nullptr;
  void add(const char* place) {
    if (count++ == 0) first = place;
  }
};

/// The texts beyond ASCII of a file.
struct Findings {
  Texts all;
  Texts notUtf8;
  Texts undefined;               ///< with bytes that the code page does not define
  bool hasLongSequences = false; ///< bytes that begin three or four in UTF-8

  void add(const char* place, std::string_view text, const sys::CodePage* page) {
    all.add(place);
    if (!sys::isUtf8(text)) notUtf8.add(place);
    if (!page) return;
    if (!page->defines(text)) undefined.add(place);
    for (const char c : text) hasLongSequences |= static_cast<unsigned char>(c) >= 0xE0;
  }
};

Findings lookAtLines(std::string_view bytes, const sys::CodePage* page) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (bytes.substr(0, kByteOrderMark.size()) == kByteOrderMark) bytes.remove_prefix(kByteOrderMark.size());
  const char* begin = bytes.data();
  const char* end = begin + bytes.size();
  Findings findings;
  for (const char* at = dxfBeyondAscii(begin, end); at < end; at = dxfBeyondAscii(at, end)) {
    const char* first = at;
    while (first > begin && first[-1] != '\n') --first;
    // What stands before the first byte beyond ASCII is ASCII in every encoding.
    const std::string_view rest(at, static_cast<std::size_t>(end - at));
    const std::string_view line = rest.substr(0, rest.find('\n'));
    at += line.size();
    findings.add(first, line, page);
  }
  return findings;
}

/// Binary files hold numbers between their texts, so every group is asked for its kind.
Findings lookAtGroups(const DxfText& text, const sys::CodePage* page) {
  Findings findings;
  const auto look = [&](const char* place, std::string_view value) {
    const char* end = value.data() + value.size();
    if (dxfBeyondAscii(value.data(), end) != end) findings.add(place, value, page);
  };
  const std::shared_ptr<const DxfParser> parser = dxfParserFor(std::make_shared<DxfText>(text));
  const std::unique_ptr<DxfRecordSource> records = parser->records();
  for (DxfRecord record; records->next(record);) {
    look(record.place, record.name);
    parser->visit(record.raw, [&](const DxfRawGroup& group, const char* /*behind*/) {
      if (binaryValue(group.code) == BinaryValue::kText) look(group.place, group.value);
    });
  }
  return findings;
}

/// Whether the bytes can hardly be anything but UTF-8. Two letters of an East Asian code page may happen to
/// look like a short sequence.
bool looksLikeUtf8(const Findings& findings, const sys::CodePage& page) {
  return findings.all.count > 0 && findings.notUtf8.count == 0 &&
         (!page.isDoubleByte() || findings.hasLongSequences);
}

/// The sentences about one file.
class Notes {
public:
  Notes(const DxfText& text, const DxfEncodingFacts& facts) : m_text(text), m_facts(facts) {}

  std::vector<std::string> about(const OdDbDxfTextCodec& codec) {
    const Findings findings =
        m_text.isBinary ? lookAtGroups(m_text, codec.page()) : lookAtLines(m_text.bytes, codec.page());
    if (!m_facts.encoding.empty())
      aboutNamed(findings, codec.page());
    else if (codec.page())
      aboutPage(findings, *codec.page());
    else
      aboutUtf8(findings);
    return std::move(m_notes);
  }

private:
  /// "3 texts (the first in line 12)", or "1 text (at byte 12)".
  std::string counted(const Texts& texts, const std::string& kind = "") const {
    const std::string place = (m_text.isBinary ? "at " : "in ") + m_text.describe(texts.first) + ")";
    if (texts.count == 1) return "1 text" + kind + " (" + place;
    return std::to_string(texts.count) + " texts" + kind + " (the first " + place;
  }

  bool isNamed() const { return sys::CodePage::numbered(sys::CodePage::number(m_facts.codePage)) != nullptr; }
  /// Whether the header names a page that holds more than ASCII.
  bool isSettled() const {
    const OdString name = OdString::fromUtf8(m_facts.codePage);
    return isNamed() && !m_facts.codePage.empty() && name.iCompare(L"ascii") != 0 &&
           name.iCompare(L"undefined") != 0;
  }
  /// Reading in an encoding that the release does not allow takes a conversion.
  std::string readsSo(const std::string& encoding) const {
    return m_text.isBinary ? "; only drawings in text form can be read so"
                           : "; --encoding " + encoding + " reads it so";
  }
  std::string headerTells() const {
    if (m_facts.codePage.empty()) return "the header names no code page";
    const std::string named = "the header names the code page " + dxfQuoted(m_facts.codePage);
    return isNamed() ? named : named + ", which is not known";
  }

  void aboutNamed(const Findings& findings, const sys::CodePage* page) {
    if (page && looksLikeUtf8(findings, *page))
      m_notes.push_back(counted(findings.all, " beyond ASCII") +
                        (findings.all.count == 1 ? " is" : " are all") + " UTF-8, but read as " +
                        m_facts.encoding + " as was asked for");
    else
      aboutMeaningless(page ? findings.undefined : findings.notUtf8, m_facts.encoding, "");
  }

  void aboutUtf8(const Findings& findings) {
    if (findings.notUtf8.count == 0) return;
    const std::string known = isSettled() && sys::CodePage::number(m_facts.codePage) != sys::CodePage::kUtf8
                                  ? m_facts.codePage
                                  : "ANSI_1252";
    const bool mixed = findings.notUtf8.count < findings.all.count;
    aboutMeaningless(findings.notUtf8, "UTF-8, which this release stores",
                     mixed || m_text.isBinary ? "" : readsSo(known));
  }

  void aboutPage(const Findings& findings, const sys::CodePage& page) {
    if (looksLikeUtf8(findings, page)) {
      m_notes.push_back(headerTells() + ", but " + counted(findings.all, " beyond ASCII") +
                        (findings.all.count == 1 ? " is" : " are all") + " UTF-8" + readsSo("UTF-8"));
      return;
    }
    if (!isSettled() && findings.all.count > 0)
      m_notes.push_back(headerTells() + ", so " + counted(findings.all, " beyond ASCII") +
                        (findings.all.count == 1 ? " is" : " are") +
                        " read as ANSI_1252; --encoding NAME reads the drawing in another");
    else if (!isNamed())
      m_notes.push_back(headerTells());
    aboutMeaningless(findings.undefined, isSettled() ? m_facts.codePage : "ANSI_1252",
                     "; --encoding NAME reads the drawing in another");
  }

  void aboutMeaningless(const Texts& texts, const std::string& encoding, const std::string& advice) {
    if (texts.count == 0) return;
    m_notes.push_back(counted(texts) + (texts.count == 1 ? " holds" : " hold") +
                      " bytes that mean nothing in " + encoding +
                      (advice.empty() ? "; they are kept as they are" : advice));
  }

  const DxfText& m_text;
  const DxfEncodingFacts& m_facts;
  std::vector<std::string> m_notes;
};

} // namespace

const char* dxfBeyondAscii(const char* at, const char* end) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  constexpr std::size_t kWords = 8;
  constexpr std::size_t kStep = kWords * sizeof(std::uint64_t);
  // The loop has no branch inside, so that the compiler may take wide registers.
  for (; static_cast<std::size_t>(end - at) >= kStep; at += kStep) {
    std::uint64_t words[kWords];
    std::memcpy(words, at, kStep);
    std::uint64_t all = 0;
    for (const std::uint64_t word : words) all |= word;
    if (all & kHighBits) break;
  }
  while (at < end && static_cast<unsigned char>(*at) < 0x80) ++at;
  return at;
}

std::vector<std::string> dxfCheckText(const DxfText& text, const DxfEncodingFacts& facts) {
  const auto named = facts.encoding.empty() ? nullptr : OdDbDxfTextCodec::named(facts.encoding);
  const auto codec = named ? named : OdDbDxfTextCodec::forDrawing(facts.version, facts.codePage);
  return Notes(text, facts).about(*codec);
}
