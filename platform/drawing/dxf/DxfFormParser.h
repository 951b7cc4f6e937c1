#pragma once
// Records and groups of a file, for every form alike. A form provides
//   scanner(text, slice)              an object whose next(DxfRawGroup&) is false at the end of the slice
//   contents(text)                    the file without marks at its beginning
//   trimmed(value)                    a name without what may surround it
//   isValid(group code kind, value)   whether a value that is no handle converts to what its code requires
//   toReal, toInteger, toHandle       the conversions; false when the value is none
//   append(list, group)               a text group with the value
//   expected(kind)                    what a value had to be, for messages
#include "DxfForm.h"
#include <algorithm>

namespace dxfGroups {

constexpr int kCommentCode = 999;

/// The kinds of the group codes in one table, because every group of a file is looked up.
struct KindTable {
  static constexpr int kCodes = 1072;
  OdDbGroupKind kinds[kCodes];
  KindTable() {
    for (int code = 0; code < kCodes; ++code) kinds[code] = odDbGroupKind(code);
  }
  OdDbGroupKind operator[](int code) const {
    return code >= 0 && code < kCodes ? kinds[code] : OdDbGroupKind::kText;
  }
};
inline const KindTable kKinds;

/// Dimension styles may hold names where handles belong: of arrow blocks (5) in old releases, of a text style
/// (340) in drawings of careless programs. Such groups are texts.
inline bool mayBeName(int code) { return code == 5 || (code >= 340 && code <= 349); }

} // namespace dxfGroups

/// Which groups of a record are its own handle and its owner: the first handle (5, or 105 in dimension
/// styles) and the first 330, both outside braces and before the first subclass marker.
class IdentityFinder {
public:
  /// To be asked for every group of the record in turn.
  OdDbGroup::Flags flagsOf(const DxfRawGroup& group) {
    const int before = m_before;
    m_before = group.code;
    if (m_done) return OdDbGroup::kNone;
    switch (group.code) {
    case 5:
      // Dimension styles of old releases name an arrow block here, behind the suffix of alternate units.
      if (before == 4) return OdDbGroup::kNone;
      [[fallthrough]];
    case 105: return m_braces || m_hasHandle ? OdDbGroup::kNone : (m_hasHandle = true, OdDbGroup::kOwnHandle);
    case 330: return m_braces || m_hasOwner ? OdDbGroup::kNone : (m_hasOwner = true, OdDbGroup::kOwner);
    case 100: m_done = true; return OdDbGroup::kNone;
    case 102: m_braces = !group.value.empty() && group.value.front() == '{'; return OdDbGroup::kNone;
    default: return OdDbGroup::kNone;
    }
  }

private:
  int m_before = 0; ///< code of the group before
  bool m_done = false;
  bool m_braces = false;
  bool m_hasHandle = false;
  bool m_hasOwner = false;
};

/// Splits a file into records.
template <class Form>
class DxfFormSource : public DxfRecordSource {
public:
  /// The text must outlive the source.
  DxfFormSource(const Form& form, const DxfText& text);
  bool next(DxfRecord& record) override;
  std::string_view preamble() const override { return m_preamble; }
  std::string_view tail() const override { return m_tail; }
  OdUInt64 largestHandleAhead() const override;

private:
  void take(DxfRecord& record, OdDbGroupKind kind, OdDbGroup::Flags flags);
  void finish();
  bool isTrue() const {
    OdInt64 value = 0;
    return m_form.toInteger(m_group.value, value) && value != 0;
  }

  const Form m_form;
  const DxfText& m_text;
  typename Form::Scanner m_scanner;
  DxfRawGroup m_group{};
  bool m_pending = false; ///< `m_group` is the beginning of the next record
  const char* m_place = nullptr;
  std::string_view m_preamble;
  std::string_view m_tail;
};

template <class Form>
[[noreturn]] void dxfFailValue(const Form& form, const DxfText& text, const DxfRawGroup& group) {
  text.fail(group.place, "group " + std::to_string(group.code) + ": expected " +
                             form.expected(odDbGroupKind(group.code)) + ", met " + dxfQuoted(group.value));
}

template <class Form>
DxfFormSource<Form>::DxfFormSource(const Form& form, const DxfText& text)
    : m_form(form), m_text(text), m_scanner(m_form.scanner(text, m_form.contents(text))) {
  while ((m_pending = m_scanner.next(m_group)) && m_group.code != 0)
    if (m_group.code != dxfGroups::kCommentCode)
      m_text.fail(m_group.place,
                  "expected the beginning of a section (group 0), met group " + std::to_string(m_group.code));
  const char* end = m_pending ? m_group.place : m_scanner.position();
  m_preamble = m_text.bytes.substr(0, static_cast<std::size_t>(end - m_text.bytes.data()));
  m_place = end;
}

template <class Form>
bool DxfFormSource<Form>::next(DxfRecord& record) {
  if (!m_pending) return false;
  record = {};
  record.name = m_form.trimmed(m_group.value);
  record.place = m_place = m_group.place;
  if (record.name == "EOF") {
    finish();
    return true;
  }
  const char* begin = m_scanner.position();
  IdentityFinder identity;
  while ((m_pending = m_scanner.next(m_group)) && m_group.code != 0) {
    const OdDbGroup::Flags flags = identity.flagsOf(m_group);
    const OdDbGroupKind kind = dxfGroups::kKinds[m_group.code];
    // Most groups are texts, and only the first name of a record matters.
    if (kind != OdDbGroupKind::kText || (m_group.code == 2 && !record.behindTitle)) take(record, kind, flags);
  }
  const char* end = m_pending ? m_group.place : m_scanner.position();
  record.raw = std::string_view(begin, static_cast<std::size_t>(end - begin));
  return true;
}

template <class Form>
void DxfFormSource<Form>::finish() {
  m_pending = false;
  m_tail = m_text.bytes.substr(static_cast<std::size_t>(m_place - m_text.bytes.data()));
}

template <class Form>
void DxfFormSource<Form>::take(DxfRecord& record, OdDbGroupKind kind, OdDbGroup::Flags flags) {
  OdUInt64 handle = 0;
  switch (kind) {
  case OdDbGroupKind::kText:
    record.title = m_form.trimmed(m_group.value);
    record.behindTitle = m_scanner.position();
    return;
  case OdDbGroupKind::kHandle:
    if (!m_form.toHandle(m_group.value, handle) &&
        (flags != OdDbGroup::kNone || !dxfGroups::mayBeName(m_group.code)))
      dxfFailValue(m_form, m_text, m_group);
    if (flags == OdDbGroup::kOwnHandle) record.handle = handle;
    if (flags == OdDbGroup::kOwner) record.owner = handle;
    return;
  default:
    if (!m_form.isValid(kind, m_group.value)) dxfFailValue(m_form, m_text, m_group);
    if (m_group.code == 66) record.attributesFollow = isTrue();
    if (m_group.code == 67) record.inPaperSpace = isTrue();
  }
}

template <class Form>
OdUInt64 DxfFormSource<Form>::largestHandleAhead() const {
  const auto behind = static_cast<std::size_t>(m_place - m_text.bytes.data());
  typename Form::Scanner scanner = m_form.scanner(m_text, m_text.bytes.substr(behind));
  DxfRawGroup group{};
  OdUInt64 largest = 0;
  while (scanner.next(group) && !(group.code == 0 && m_form.trimmed(group.value) == "EOF")) {
    OdUInt64 handle = 0;
    if ((group.code == 5 || group.code == 105) && m_form.toHandle(group.value, handle))
      largest = std::max(largest, handle);
  }
  return largest;
}

/// Turns slices of a file into groups.
template <class Form>
class DxfFormParser : public DxfParser {
public:
  DxfFormParser(const Form& form, std::shared_ptr<const DxfText> text)
      : DxfParser(std::move(text)), m_form(form) {}

  void parse(std::string_view raw, OdDbGroupList& out, int last) const override {
    typename Form::Scanner scanner = m_form.scanner(*m_text, raw);
    DxfRawGroup group{};
    IdentityFinder identity;
    while (scanner.next(group)) {
      append(group, identity.flagsOf(group), out);
      if (group.code == last) return;
    }
  }

  std::unique_ptr<DxfRecordSource> records() const override {
    return std::make_unique<DxfFormSource<Form>>(m_form, *m_text);
  }

  void visit(std::string_view slice,
             const std::function<void(const DxfRawGroup&, const char*)>& visit) const override {
    typename Form::Scanner scanner = m_form.scanner(*m_text, slice);
    DxfRawGroup group{};
    while (scanner.next(group)) visit(group, scanner.position());
  }

  const char* recordBegin(const char* raw, std::string_view name) const override {
    return m_form.recordBegin(*m_text, raw, name);
  }

  DxfStyle style(const char* behindName) const override { return m_form.style(*m_text, behindName); }

private:
  void append(const DxfRawGroup& group, OdDbGroup::Flags flags, OdDbGroupList& out) const {
    OdDbGroup result;
    result.code = static_cast<OdInt16>(group.code);
    result.kind = dxfGroups::kKinds[group.code];
    result.flags = flags;
    bool isNumber = true;
    switch (result.kind) {
    case OdDbGroupKind::kReal: isNumber = m_form.toReal(group.value, result.real); break;
    case OdDbGroupKind::kInteger:
    case OdDbGroupKind::kBool: isNumber = m_form.toInteger(group.value, result.integer); break;
    case OdDbGroupKind::kHandle: isNumber = m_form.toHandle(group.value, result.handle); break;
    default: m_form.append(out, result, group.value); return;
    }
    if (isNumber) {
      out.append(result);
      return;
    }
    if (!dxfGroups::mayBeName(group.code)) dxfFailValue(m_form, *m_text, group);
    result.kind = OdDbGroupKind::kText;
    result.flags = OdDbGroup::kNone;
    m_form.append(out, result, group.value);
  }

  const Form m_form;
};
