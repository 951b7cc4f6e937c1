#include "Editor.h"
#include "EntityText.h"
#include "SelectionInput.h"
#include "hostgsmanager/Display.h"
#include <cmath>
#include <unordered_set>

namespace host {

namespace {

OdString trimmed(OdString text) { return text.trimLeft().trimRight(); }

bool fits(double number, int flags) {
  if ((flags & kHostEdNoZero) && number == 0) return false;
  return !((flags & kHostEdNoNegative) && number < 0);
}

/// "a distance", "a distance greater than 0"...
OdString numberPhrase(const OdChar* kind, int flags) {
  const bool positive = (flags & kHostEdNoNegative) != 0;
  const bool nonZero = (flags & kHostEdNoZero) != 0;
  if (positive && nonZero) return OdString(kind) + L" greater than 0";
  if (positive) return OdString(kind) + L" of at least 0";
  return nonZero ? OdString(kind) + L" other than 0" : OdString(kind);
}

} // namespace

// --- asking ---

Editor::Question Editor::question(const OdChar* prompt, const OdChar* keywords, int flags,
                                  OdString expected) {
  Question result{{}, KeywordList(keywords), flags, std::move(expected)};
  result.prompt = shownPrompt(prompt, result.keywords);
  return result;
}

int Editor::ask(const Question& question, const Judge& judge) {
  for (;;) {
    const OdString line = m_input.nextAnswer(question.prompt);
    if (Input::isEscape(line)) return kHostEdCancel;
    if (!question.text && m_input.runPromptCommand(line)) continue;
    const bool empty = question.text ? line.isEmpty() : trimmed(line).isEmpty();
    if (empty && !(question.flags & kHostEdNoEmpty)) return kHostEdEmpty;
    if (empty)
      m_input.complain(L"Enter alone is no answer here; expected is " + expectation(question, L" or ") +
                       L".");
    else if (const std::optional<int> code = answerCode(question, line, judge))
      return *code;
  }
}

std::optional<int> Editor::answerCode(const Question& question, const OdString& line, const Judge& judge) {
  const KeywordList::Match match = question.keywords.find(line, question.text);
  if (match.index >= 0) return kHostEdFirstKeyword + match.index;
  if (!match.candidates.isEmpty()) {
    m_input.complain(L"\"" + trimmed(line) + L"\" is ambiguous: " + match.candidates + L".");
    return std::nullopt;
  }
  switch (judge(line)) {
  case Verdict::accepted: return kHostEdValue;
  case Verdict::cancelled: return kHostEdCancel;
  case Verdict::refused: refuse(question, line); break;
  case Verdict::again: break;
  }
  return std::nullopt;
}

OdString Editor::expectation(const Question& question, const OdChar* joint) {
  if (question.keywords.isEmpty()) return question.expected;
  const OdString keywords = L"one of " + question.keywords.shown();
  return question.expected.isEmpty() ? keywords : question.expected + joint + keywords;
}

void Editor::refuse(const Question& question, const OdString& line) const {
  m_input.complain(L"\"" + trimmed(line) + L"\" is not " + expectation(question, L", nor ") + L".");
}

// --- points and what is measured between them ---

std::optional<OdGePoint3d> Editor::readMove(const OdString& line) const {
  constexpr OdChar kMove[] = L"move ";
  const OdString text = trimmed(line);
  if (text.left(5).iCompare(kMove) != 0) return std::nullopt;
  return parsePoint(text.mid(5), frame());
}

void Editor::tellPreview(const OdGePoint3d& cursor) const {
  for (const PreviewedEntity& drawn : display().preview().entities())
    m_input.print(L"Preview: " + entityText(*drawn.entity, cursor, *m_database));
}

int Editor::GetPoint(const OdGePoint3d*, OdGePoint3d& point, const OdChar* prompt, const OdChar* keywords,
                     int flags, void*, HostEdInputTracker* tracker) {
  const OdString expected = OdString(L"a point (") + kPointForms + L")";
  Tracking tracking(display().preview(), tracker);
  return ask(question(prompt, keywords, flags, expected), [&](const OdString& line) {
    if (const std::optional<OdGePoint3d> cursor = readMove(line)) {
      tracking.moveCursor(*cursor);
      tellPreview(*cursor);
      return Verdict::again;
    }
    const std::optional<OdGePoint3d> typed = parsePoint(line, frame());
    if (!typed) return Verdict::refused;
    point = m_lastPoint = *typed;
    return Verdict::accepted;
  });
}

Editor::Verdict Editor::readSpan(const OdString& line, const OdGePoint3d* base, Span& span) {
  if (readMove(line)) return Verdict::again;
  const std::optional<OdGePoint3d> typed = parsePoint(line, frame());
  if (!typed) return Verdict::refused;
  m_lastPoint = *typed;
  span = {base ? *base : *typed, *typed};
  if (base) return Verdict::accepted;
  const int code =
      GetPoint(&span.from, span.to, L"Specify second point", nullptr, kHostEdNoEmpty, nullptr, nullptr);
  return code == kHostEdValue ? Verdict::accepted : Verdict::cancelled;
}

int Editor::GetDistance(const OdGePoint3d* base, double& distance, const OdChar* prompt,
                        const OdChar* keywords, int flags, void*, void*) {
  const OdString expected = numberPhrase(L"a distance", flags);
  return ask(question(prompt, keywords, flags, expected), [&](const OdString& line) {
    std::optional<double> given = parseLength(line);
    if (!given) {
      Span span;
      const Verdict verdict = readSpan(line, base, span);
      if (verdict != Verdict::accepted) return verdict;
      given = span.from.distanceTo(span.to);
    }
    if (!fits(*given, flags)) return Verdict::refused;
    distance = *given;
    return Verdict::accepted;
  });
}

double Editor::directionOf(const Span& span) const {
  const OdGeVector3d inUcs = frame().ucsToWorld.inverse() * (span.to - span.from);
  return std::atan2(inUcs.y, inUcs.x);
}

int Editor::GetAngle(const OdGePoint3d* base, double& angle, const OdChar* prompt, const OdChar* keywords,
                     int flags, void*, void*) {
  const OdString expected = numberPhrase(L"an angle", flags);
  return ask(question(prompt, keywords, flags, expected), [&](const OdString& line) {
    std::optional<double> given = parseAngle(line, frame());
    if (!given) {
      Span span;
      const Verdict verdict = readSpan(line, base, span);
      if (verdict != Verdict::accepted) return verdict;
      given = directionOf(span);
    }
    if (!fits(*given, flags)) return Verdict::refused;
    angle = *given;
    return Verdict::accepted;
  });
}

// --- numbers and texts ---

int Editor::GetInteger(int& value, const OdChar* prompt, const OdChar* keywords, int flags, void*) {
  const OdString expected = numberPhrase(L"a whole number", flags);
  return ask(question(prompt, keywords, flags, expected), [&](const OdString& line) {
    const std::optional<int> given = parseInteger(line);
    if (!given || !fits(*given, flags)) return Verdict::refused;
    value = *given;
    return Verdict::accepted;
  });
}

int Editor::GetStringOrKeyword(const OdChar* prompt, const OdChar* keywords, int flags, OdString* out,
                               void*) {
  Question asked = question(prompt, keywords, flags, out ? L"a text" : L"");
  asked.text = out != nullptr;
  return ask(asked, [&](const OdString& line) {
    if (!out) return Verdict::refused;
    *out = line;
    return Verdict::accepted;
  });
}

bool Editor::GetString(OdString& out) {
  const int code = GetStringOrKeyword(L"Text", nullptr, 0, &out, nullptr);
  if (code == kHostEdEmpty) out.empty();
  return code != kHostEdCancel;
}

void Editor::Print(const OdChar* format, ...) {
  OdString text;
  va_list args;
  va_start(args, format);
  text.formatV(format, args);
  va_end(args);
  // Commands put line ends before and behind their messages; the console's lines have their own.
  if (text.left(1) == L"\n") text = text.mid(1);
  if (text.right(1) == L"\n") text = text.left(text.getLength() - 1);
  m_input.print(text);
}

// --- objects ---

int Editor::SelectEntity(const OdChar* prompt, int flags, OdDbObjectId& id, OdGePoint3d* pickPoint) {
  id = OdDbObjectId();
  const OdString expected = OdString(L"one object (") + kOneObjectForms + L")";
  return ask(question(prompt, nullptr, flags & kHostEdNoEmpty, expected), [&](const OdString& line) {
    const Selected selected = parseSelection(line, *m_database, frame(), m_previous);
    if (!selected.readable || !selected.one) return Verdict::refused;
    if (selected.ids.isEmpty()) {
      m_input.complain(selected.complaint);
      return Verdict::again;
    }
    id = selected.ids.first();
    m_lastPoint = selected.at;
    if (pickPoint) *pickPoint = selected.at;
    m_previous = selected.ids;
    return Verdict::accepted;
  });
}

int Editor::SelectEntities(const OdChar* prompt, int flags, void*, void*, OdDbObjectIdArray& ids) {
  OdDbObjectIdArray chosen;
  std::unordered_set<OdDbObjectId> seen;
  const OdString expected = OdString(L"a selection (") + kSelectionForms + L")";
  const Question asked = question(prompt, nullptr, flags & kHostEdNoEmpty, expected);
  const int code = ask(asked, [&](const OdString& line) {
    const Selected selected = parseSelection(line, *m_database, frame(), m_previous);
    if (!selected.readable) return Verdict::refused;
    if (!selected.complaint.isEmpty()) {
      m_input.complain(selected.complaint);
      return Verdict::again;
    }
    for (const OdDbObjectId& id : selected.ids)
      if (seen.insert(id).second) chosen.append(id);
    tellFound(selected.ids.size(), chosen.size());
    return Verdict::again;
  });
  if (code == kHostEdCancel || chosen.isEmpty()) {
    ids.clear();
    return code;
  }
  ids = m_previous = chosen;
  return kHostEdValue;
}

void Editor::tellFound(unsigned int found, unsigned int total) const {
  OdString text;
  text.format(found == total ? L"%u found." : L"%u found, %u selected.", found, total);
  m_input.print(text);
}

void Editor::Preview(int mode, OdDbEntity* entity) { display().preview().name(mode, entity); }

} // namespace host
