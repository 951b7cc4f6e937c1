#include "RecoverHeader.h"
#include "DxfRecord.h"
#include <algorithm>
#include <unordered_set>

namespace {

constexpr int kVariableCode = 9;
constexpr std::string_view kRelease = "$ACADVER";
constexpr std::string_view kSeed = "$HANDSEED";
constexpr std::string_view kNewestRelease = "AC1032";
constexpr std::string_view kOldestWithCodePages = "AC1015";

struct Release {
  std::string_view name;
  OdDb::DwgVersion version;
};
constexpr Release kReleases[] = {
    {"AC1012", OdDb::vAC12}, {"AC1014", OdDb::vAC14}, {"AC1015", OdDb::vAC15}, {"AC1018", OdDb::vAC18},
    {"AC1021", OdDb::vAC21}, {"AC1024", OdDb::vAC24}, {"AC1027", OdDb::vAC27}, {"AC1032", OdDb::vAC32},
};
/// Releases from before there were handles of block records.
constexpr std::string_view kOldReleases[] = {"MC0.0",  "AC1.2",  "AC1.4",  "AC1.50", "AC2.10", "AC1001",
                                             "AC1002", "AC1003", "AC1004", "AC1006", "AC1009"};

OdDb::DwgVersion versionOf(std::string_view name) {
  for (const Release& release : kReleases)
    if (release.name == name) return release.version;
  return OdDb::vUnknown;
}

bool isKnown(std::string_view name) {
  return versionOf(name) != OdDb::vUnknown ||
         std::find(std::begin(kOldReleases), std::end(kOldReleases), name) != std::end(kOldReleases);
}

bool isNewer(std::string_view name) {
  return name.size() == kNewestRelease.size() && name.starts_with("AC") && name > kNewestRelease &&
         std::all_of(name.begin() + 2, name.end(), [](char c) { return c >= '0' && c <= '9'; });
}

enum class Encoding { ascii, utf8, other };

/// How the bytes beyond ASCII are to be understood.
Encoding encodingOf(std::string_view bytes) {
  Encoding met = Encoding::ascii;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    const auto lead = static_cast<unsigned char>(bytes[at]);
    if (lead < 0x80) continue;
    const int followers = lead >= 0xC2 && lead < 0xE0   ? 1
                          : lead >= 0xE0 && lead < 0xF0 ? 2
                          : lead >= 0xF0 && lead < 0xF5 ? 3
                                                        : 0;
    if (followers == 0) return Encoding::other;
    for (int i = 0; i < followers; ++i)
      if (++at == bytes.size() || (static_cast<unsigned char>(bytes[at]) & 0xC0) != 0x80)
        return Encoding::other;
    met = Encoding::utf8;
  }
  return met;
}

/// Calls `visit(name, begin, end, value)` for the variables of a record, `value` being the first group.
template <class Visit>
void visitVariables(const RecoverForm& form, std::string_view bytes, const Visit& visit) {
  const char* end = bytes.data() + bytes.size();
  RecoverGroup variable;
  RecoverGroup value;
  const auto finish = [&](const char* behind) {
    if (variable.begin) visit(form.trimmed(variable.value), variable.begin, behind, value);
  };
  for (const char* at = bytes.data(); at < end;) {
    const RecoverGroup group = form.groupAt(at, end);
    if (group.code == kVariableCode) {
      finish(group.begin);
      variable = group;
      value = {};
    } else if (variable.begin && !value.begin) {
      value = group;
    }
    at = group.end;
  }
  finish(end);
}

} // namespace

RecoverHeader::RecoverHeader(std::deque<RecoverRecord>& records, RecoverContext& context)
    : m_records(records), m_context(context) {
  const auto find = [&](const auto& isWanted) {
    const auto found = std::find_if(records.begin(), records.end(), isWanted);
    return found == records.end() ? nullptr : &*found;
  };
  m_record = find([](const RecoverRecord& record) {
    return record.name == "SECTION" &&
           (record.title == "HEADER" || (!record.hasTitle() && record.holdsVariables));
  });
  if (m_record) return;
  if (const RecoverRecord* astray = find([](const RecoverRecord& record) { return record.isStrayHeader(); }))
    merge(*astray);
}

/// Variables without a value would have the reader take the next name for one.
void RecoverHeader::repairVariables() {
  if (!m_record) return;
  const std::string_view old = m_record->bytes;
  std::string text;
  const char* kept = old.data();
  visitVariables(m_context.form, old,
                 [&](std::string_view name, const char* begin, const char* end, const RecoverGroup& value) {
                   if (value.begin) return;
                   m_context.tell(OdDbDxfFinding::kError, "variable-without-value", *m_record,
                                  "the variable " + dxfQuoted(name) +
                                      " of the header has no value: it is left out");
                   text.append(kept, begin);
                   kept = end;
                 });
  if (kept == old.data()) return;
  m_context.form.append(text, {kept, static_cast<std::size_t>(old.data() + old.size() - kept)});
  m_record->bytes = m_context.keep(std::move(text));
}

std::string_view RecoverHeader::value(std::string_view variable) const {
  std::string_view found;
  if (m_record)
    visitVariables(m_context.form, m_record->bytes,
                   [&](std::string_view name, const char*, const char*, const RecoverGroup& group) {
                     if (name == variable && !found.data()) found = m_context.form.trimmed(group.value);
                   });
  return found;
}

RecoverRecord& RecoverHeader::demand() {
  if (!m_record) m_record = m_context.make("SECTION", {{2, "HEADER"}});
  return *m_record;
}

/// An empty value removes the variable.
void RecoverHeader::set(std::string_view variable, int code, std::string_view value) {
  const std::string_view old = demand().bytes;
  std::string text;
  const char* kept = old.data();
  visitVariables(m_context.form, old,
                 [&](std::string_view name, const char* begin, const char* end, const RecoverGroup&) {
                   if (name != variable) return;
                   text.append(kept, begin);
                   kept = end;
                 });
  m_context.form.append(text, {kept, static_cast<std::size_t>(old.data() + old.size() - kept)});
  if (!value.empty())
    text += m_context.form.group(kVariableCode, variable) + m_context.form.group(code, value);
  m_record->bytes = m_context.keep(std::move(text));
}

// --- release ---

std::string RecoverHeader::guessedRelease() const {
  bool isNew = false; // has what old releases do not
  Encoding encoding = Encoding::ascii;
  for (const RecoverRecord& record : m_records) {
    isNew |= record.hasMarkers || record.owner != 0;
    if (encoding != Encoding::other) encoding = std::max(encoding, encodingOf(record.bytes));
  }
  if (!isNew) return {};
  return std::string(encoding == Encoding::utf8 ? kNewestRelease : kOldestWithCodePages);
}

void RecoverHeader::repairRelease() {
  const std::string_view stored = value(kRelease);
  if (isKnown(stored)) return;
  const std::string release = isNewer(stored) ? std::string(kNewestRelease) : guessedRelease();
  if (!stored.data() && release.empty()) return; // drawings of old releases need not tell theirs
  const std::string told = stored.empty() ? "the drawing does not tell its release"
                                          : "the release " + dxfQuoted(stored) + " is not known";
  m_context.findings.add(
      OdDbDxfFinding::kRepair, stored.empty() ? "release-missing" : "unknown-release",
      m_record ? m_record->where : 0, 0,
      told + ": " +
          (release.empty() ? "the drawing is taken for an old one without" : "it is read as " + release));
  constexpr int kTextCode = 1;
  set(kRelease, kTextCode, release);
}

bool RecoverHeader::storesBlockRecords() const { return dxfStoresBlockRecords(versionOf(value(kRelease))); }

std::shared_ptr<OdDbDxfTextCodec> RecoverHeader::codec() const {
  return OdDbDxfTextCodec::forDrawing(versionOf(value(kRelease)), value("$DWGCODEPAGE"));
}

// --- seed and merging ---

OdUInt64 RecoverHeader::seed() const { return m_context.form.handle(value(kSeed)); }

void RecoverHeader::setSeed(OdUInt64 seed) {
  constexpr int kHandleCode = 5;
  set(kSeed, kHandleCode, recoverHexadecimal(seed));
}

void RecoverHeader::merge(const RecoverRecord& other) {
  std::unordered_set<std::string_view> known;
  std::string text;
  m_context.form.append(text, demand().bytes);
  visitVariables(
      m_context.form, m_record->bytes,
      [&](std::string_view name, const char*, const char*, const RecoverGroup&) { known.insert(name); });
  visitVariables(m_context.form, other.bytes,
                 [&](std::string_view name, const char* begin, const char* end, const RecoverGroup& group) {
                   if (!known.contains(name) && group.begin)
                     m_context.form.append(text, {begin, static_cast<std::size_t>(end - begin)});
                 });
  m_record->bytes = m_context.keep(std::move(text));
}
