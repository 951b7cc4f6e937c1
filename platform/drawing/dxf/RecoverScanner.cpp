#include "RecoverScanner.h"
#include <algorithm>
#include <cmath>

namespace {

constexpr int kTitleCode = 2;
constexpr int kVariableCode = 9;
constexpr int kSpaceCode = 67;
constexpr int kMarkerCode = 100;
constexpr int kCommentCode = 999;
constexpr int kSmallestUsualCode = -5;
constexpr int kLargestUsualCode = 1071;

bool isRecordName(std::string_view value) {
  constexpr std::size_t kLongest = 255;
  const std::string_view name = asciiTrimmed(value);
  const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  const auto isNamePart = [&](char c) {
    return isLetter(c) || (c >= '0' && c <= '9') || c == '_' || c == '-';
  };
  double number;
  return name.size() <= kLongest && std::any_of(name.begin(), name.end(), isLetter) &&
         std::all_of(name.begin(), name.end(), isNamePart) && !AsciiForm().toReal(name, number);
}

bool isVariable(const RecoverGroup& group) {
  return group.code == kVariableCode && group.value.starts_with('$');
}

/// A whole number as the reader demands it from a number with only zeros behind its point.
std::string mendedInteger(std::string_view value) {
  constexpr double kExact = 9007199254740992.0; // 2^53
  double number = 0;
  if (!AsciiForm().toReal(value, number) || number != std::floor(number) || std::fabs(number) > kExact)
    return {};
  return std::to_string(static_cast<OdInt64>(number));
}

/// A number as the reader demands it from one with a decimal comma, or with the exponent letter of Fortran.
std::string mendedReal(std::string_view value) {
  std::string text(asciiTrimmed(value));
  if (std::count(text.begin(), text.end(), ',') > 1) return {};
  if (text.find('.') == std::string::npos) std::replace(text.begin(), text.end(), ',', '.');
  std::replace(text.begin(), text.end(), 'D', 'E');
  std::replace(text.begin(), text.end(), 'd', 'e');
  double number;
  return AsciiForm().toReal(text, number) ? text : std::string();
}

} // namespace

RecoverScanner::RecoverScanner(const DxfText& text, RecoverContext& context)
    : m_context(context), m_form(context.form), m_begin(text.bytes.data()),
      m_end(text.bytes.data() + text.bytes.size()), m_at(m_form.contents(text).data()),
      m_recordBegin(text.bytes.data()) {}

void RecoverScanner::scan() {
  while (m_at < m_end && !m_atEnd) {
    const RecoverGroup group = m_form.groupAt(m_at, m_end);
    if (qualityOf(group) == Quality::sound)
      take(group);
    else
      settle(group);
  }
  tellSkipped();
  if (m_atEnd) return;
  finishRecord(m_end);
  m_context.findings.add(OdDbDxfFinding::kRepair, "end-missing", where(), 0,
                         "the file ends without EOF: the end was put there");
}

void RecoverScanner::advance(const char* to, std::size_t lines) {
  m_at = to;
  m_line += lines;
}

RecoverScanner::Quality RecoverScanner::qualityOf(const RecoverGroup& group) const {
  if (!group.isGroup) return Quality::malformed;
  const OdDbGroupKind kind = odDbGroupKind(group.code);
  if (group.code == 0) {
    if (isRecordName(group.value)) return Quality::sound;
    double number;
    const std::string_view name = asciiTrimmed(group.value);
    return name.empty() || AsciiForm().toReal(name, number) ? Quality::malformed : Quality::doubtful;
  }
  if (kind != OdDbGroupKind::kText && !m_form.isValid(kind, group.value)) {
    // Dimension styles hold names under the codes of handles; what is no identity is let through.
    IdentityFinder identity = m_identity;
    const bool isIdentity = identity.flagsOf({group.code, group.value, group.begin}) != OdDbGroup::kNone;
    return dxfGroups::mayBeName(group.code) && !isIdentity ? Quality::doubtful : Quality::malformed;
  }
  return group.code < kSmallestUsualCode || group.code > kLargestUsualCode ? Quality::doubtful
                                                                           : Quality::sound;
}

/// How many of the groups from a line on are sound, up to the number that convinces.
int RecoverScanner::agreement(const char* at) const {
  constexpr std::ptrdiff_t kReach = 4096; // keeps the search for the end of a text from becoming a long one
  const int convincing = m_form.convincing();
  for (int count = 0; count < convincing; ++count) {
    if (at == m_end) return convincing;
    const RecoverGroup group = m_form.groupAt(at, m_end, m_end - at > kReach ? at + kReach : m_end);
    if (qualityOf(group) != Quality::sound) return count;
    if (group.code == 0 && m_form.trimmed(group.value) == "EOF") return convincing;
    at = group.end;
  }
  return convincing;
}

/// Decides between a bad group in its place and groups that are out of step.
void RecoverScanner::settle(const RecoverGroup& group) {
  if (!group.isGroup && stepBack(group)) return;
  if (!group.isGroup || agreement(group.end) < agreement(group.next))
    skip(group);
  else if (qualityOf(group) == Quality::doubtful)
    take(group);
  else
    takeMalformed(group);
}

/// Where a group has lost its value, the code 0 of the next record was taken for that. Gives it back.
bool RecoverScanner::stepBack(const RecoverGroup& group) {
  const RecoverGroup last = std::exchange(m_previous, {});
  if (m_form.isBinary() || !last.isGroup || last.code == 0 || m_form.trimmed(last.value) != "0" ||
      !isRecordName(group.shown) || agreement(last.next) < m_form.convincing())
    return false;
  if (m_record->title.data() == m_form.trimmed(last.value).data()) m_record->title = {};
  m_at = last.begin;
  m_line -= 2;
  skip(last);
  return true;
}

// --- what is left out ---

void RecoverScanner::cut(const char* begin, const char* end, std::string text) {
  const bool continues =
      text.empty() && !m_cuts.empty() && m_cuts.back().end == begin && m_cuts.back().text.empty();
  if (continues)
    m_cuts.back().end = end;
  else
    m_cuts.push_back({begin, end, std::move(text)});
}

void RecoverScanner::skip(const RecoverGroup& group) {
  m_previous = {};
  if (m_skipped++ == 0) {
    m_skippedFrom = where();
    m_skippedText = group.shown;
  }
  cut(group.begin, group.next);
  advance(group.next, 1);
}

/// One finding for lines that follow one another.
void RecoverScanner::tellSkipped() {
  if (m_skipped == 0) return;
  const std::string unit = m_form.isBinary() ? "byte" : "line";
  const std::string what =
      m_skipped == 1 ? "the " + unit + " is" : std::to_string(m_skipped) + " " + unit + "s are";
  m_context.findings.add(OdDbDxfFinding::kError, "no-group", m_skippedFrom, m_record->handle,
                         "expected a group code, met " + dxfQuoted(m_skippedText) + ": " + what +
                             " left out");
  m_skipped = 0;
}

void RecoverScanner::takeMalformed(const RecoverGroup& group) {
  tellSkipped();
  m_previous = {};
  if (!mend(group)) {
    m_context.findings.add(OdDbDxfFinding::kError, "malformed-value", where(), m_record->handle,
                           describe(group) + ": the group is left out");
    cut(group.begin, group.end);
  }
  advance(group.end, 2);
}

bool RecoverScanner::mend(const RecoverGroup& group) {
  if (m_form.isBinary()) return false;
  std::string value;
  switch (odDbGroupKind(group.code)) {
  case OdDbGroupKind::kInteger:
  case OdDbGroupKind::kBool: value = mendedInteger(group.value); break;
  case OdDbGroupKind::kReal: value = mendedReal(group.value); break;
  default: break;
  }
  if (value.empty()) return false;
  m_context.findings.add(OdDbDxfFinding::kRepair, "number-form", where(), m_record->handle,
                         describe(group) + ": it is written as " + value);
  cut(group.begin, group.end, m_form.group(group.code, value));
  return true;
}

std::string RecoverScanner::describe(const RecoverGroup& group) const {
  const std::string of = m_record == &preamble ? "" : " of " + RecoverContext::describe(*m_record);
  return "group " + std::to_string(group.code) + of + " has the value " + dxfQuoted(group.value);
}

// --- records ---

void RecoverScanner::take(const RecoverGroup& group) {
  tellSkipped();
  if (group.code == 0) {
    const std::string_view name = m_form.trimmed(group.value);
    if (name == "EOF") {
      finishRecord(group.begin);
      ending = {group.begin, static_cast<std::size_t>(m_end - group.begin)};
      m_atEnd = true;
      return;
    }
    beginRecord(group, name);
  } else if (m_record == &preamble && isVariable(group)) {
    beginRecord(group, {}); // a header that has lost its beginning
    m_record->holdsVariables = true;
  } else if (m_record == &preamble) {
    if (group.code != kCommentCode) {
      m_context.findings.add(OdDbDxfFinding::kError, "group-outside-record", where(), 0,
                             describe(group) + " and stands before the first record: it is left out");
      cut(group.begin, group.end);
    }
  } else {
    takeIdentity(group);
    if (group.code == kTitleCode && !m_record->title.data()) m_record->title = m_form.trimmed(group.value);
    if (isVariable(group)) m_record->holdsVariables = true;
    if (group.code == kSpaceCode) m_record->inPaperSpace = m_form.isTrue(group.value);
    if (group.code == kMarkerCode) {
      m_record->hasMarkers = true;
      m_record->saysEntity |= m_form.trimmed(group.value) == "AcDbEntity";
    }
    m_previous = group;
  }
  advance(group.end, 2);
}

void RecoverScanner::takeIdentity(const RecoverGroup& group) {
  const OdDbGroup::Flags flags = m_identity.flagsOf({group.code, group.value, group.begin});
  if (flags == OdDbGroup::kOwnHandle) m_record->handle = m_form.handle(group.value);
  if (flags == OdDbGroup::kOwner) m_record->owner = m_form.handle(group.value);
}

void RecoverScanner::beginRecord(const RecoverGroup& group, std::string_view name) {
  finishRecord(group.begin);
  m_previous = {};
  m_recordBegin = group.begin;
  m_identity = {};
  m_record = &records.emplace_back();
  m_record->name = name;
  m_record->where = where();
}

void RecoverScanner::finishRecord(const char* recordEnd) {
  m_record->bytes = {m_recordBegin, static_cast<std::size_t>(recordEnd - m_recordBegin)};
  if (m_cuts.empty()) return;
  std::string text;
  const char* at = m_recordBegin;
  for (const Cut& part : m_cuts) {
    text.append(at, part.begin).append(part.text);
    at = part.end;
  }
  m_record->bytes = m_context.keep(text.append(at, recordEnd));
  m_cuts.clear();
}
