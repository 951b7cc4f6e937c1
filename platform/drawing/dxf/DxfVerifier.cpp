#include "DxfVerifier.h"
#include "ClassRecords.h"
#include "DxfForm.h"
#include "DxfHeaderText.h"
#include <algorithm>

namespace {

class Verifier {
public:
  Verifier(const OdDbStore& store, const DxfStoreWriter& writer, const std::shared_ptr<DxfText>& text)
      : m_store(store), m_writer(writer), m_parser(dxfParserFor(text)), m_text(text),
        m_source(m_parser->records()) {}

  void verify(const std::function<void(const char*)>& passed) {
    constexpr std::ptrdiff_t kStep = std::ptrdiff_t{1} << 23;
    const char* nextCall = m_text->bytes.data();
    while (m_source->next(m_record)) {
      if (m_record.name == "SECTION")
        verifySection();
      else if (m_record.name != "ENDSEC" && m_record.name != "ENDTAB" && m_record.name != "EOF")
        verifyObject();
      if (m_record.place < nextCall) continue;
      passed(m_record.place);
      nextCall = m_record.place + kStep;
    }
    if (m_record.name != "EOF") fail("expected EOF, met the end of the file");
    if (m_next != m_writer.written().size())
      fail("expected " + describe(m_writer.written()[m_next]) + ", met EOF");
  }

private:
  [[noreturn]] void fail(const std::string& sentence) const { m_text->fail(m_record.place, sentence); }

  static std::string describe(const OdDbStub* stub) {
    return stub->dxfName() + " " + OdDbHandle(stub->handle).ascii().toUtf8();
  }

  void verifySection() {
    const std::string name(m_record.title);
    const char* begin = m_record.behindTitle;
    if (name == "HEADER")
      verifyHeader({begin, m_record.raw.size() - static_cast<std::size_t>(begin - m_record.raw.data())});
    constexpr std::string_view kModelled[] = {"HEADER", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"};
    if (std::find(std::begin(kModelled), std::end(kModelled), name) != std::end(kModelled)) return;
    while (m_source->next(m_record) && m_record.name != "ENDSEC") {}
    const std::string_view bytes(begin, static_cast<std::size_t>(m_record.place - begin));
    const bool isSame =
        std::any_of(m_store.sections.begin(), m_store.sections.end(), [&](const auto& section) {
          if (section.name != name || !bytes.starts_with(section.raw)) return false;
          return section.raw == bytes || (name == "CLASSES" && addsClasses(bytes.substr(section.raw.size())));
        });
    if (!isSame && !(name == "CLASSES" && addsClasses(bytes)))
      fail("section " + name + " differs from what was read");
  }

  /// Whether these declarations are those that were missing, no more and no less.
  bool addsClasses(std::string_view bytes) const {
    constexpr int kRecordName = 1;
    std::vector<std::string_view> added;
    m_parser->visit(bytes, [&](const DxfRawGroup& group, const char*) {
      if (group.code == kRecordName) added.push_back(group.value);
    });
    const std::vector<DxfClassRecord> missing = dxfMissingClasses(m_store);
    return !missing.empty() && std::equal(added.begin(), added.end(), missing.begin(), missing.end(),
                                          [](std::string_view name, const DxfClassRecord& record) {
                                            return name == record.record;
                                          });
  }

  void verifyHeader(std::string_view bytes) const {
    if (!DxfHeaderText(m_parser.get(), *m_store.codec, bytes).holds(m_store.header))
      fail("the variables of the header differ");
  }

  void verifyObject() {
    if (m_next == m_writer.written().size())
      fail("expected no further object, met " + std::string(m_record.name));
    const OdDbStub* stub = m_writer.written()[m_next++];
    if (m_record.name != stub->dxfName())
      fail("expected " + describe(stub) + ", met " + std::string(m_record.name));
    const OdDbGroupList* replaced = m_writer.replacement(stub);
    const bool same = stub->raw && !replaced ? m_record.raw == std::string_view(stub->raw, stub->rawSize)
                                             : holds(replaced ? *replaced : *stub->content(), stub);
    if (!same) fail(describe(stub) + " does not hold what it should");
  }

  bool holds(const OdDbGroupList& expected, const OdDbStub* stub) const {
    OdDbGroupList read;
    read.codec = m_store.codec.get();
    m_parser->parse(m_record.raw, read);
    return std::equal(read.items.begin(), read.items.end(), expected.items.begin(), expected.items.end(),
                      [&](const OdDbGroup& met, const OdDbGroup& wanted) {
                        if (wanted.flags & OdDbGroup::kOwnHandle) return met.handle == stub->handle;
                        if (wanted.flags & OdDbGroup::kOwner)
                          return met.handle == (stub->owner ? stub->owner->handle : 0);
                        return dxfSameGroup(read, met, expected, wanted);
                      });
  }

  const OdDbStore& m_store;
  const DxfStoreWriter& m_writer;
  std::shared_ptr<const DxfParser> m_parser;
  std::shared_ptr<const DxfText> m_text;
  std::unique_ptr<DxfRecordSource> m_source;
  DxfRecord m_record;
  std::size_t m_next = 0;
};

} // namespace

void dxfVerify(const OdDbStore& store, const DxfStoreWriter& writer, const std::shared_ptr<DxfText>& text,
               const std::function<void(const char*)>& passed) {
  Verifier(store, writer, text).verify(passed);
}
