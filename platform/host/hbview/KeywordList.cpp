#include "KeywordList.h"
#include <algorithm>
#include <sstream>

namespace host {

namespace {

bool startsWith(const std::wstring& text, const std::wstring& head) {
  return text.compare(0, head.size(), head) == 0;
}

std::wstring folded(const OdString& word) { return odFoldCase(word.str()); }

std::wstring capitals(const OdString& word) {
  std::wstring found;
  for (const wchar_t c : word.str())
    if (c >= L'A' && c <= L'Z') found += c;
  return odFoldCase(found);
}

} // namespace

KeywordList::KeywordList(const OdChar* words) {
  std::wistringstream in(words ? words : L"");
  Words* part = &m_local;
  for (std::wstring word; in >> word;) {
    if (word == L"_")
      part = &m_global;
    else
      part->push_back(word);
  }
  if (m_global.size() != m_local.size()) m_global = m_local;
}

OdString KeywordList::joined(const Words& words, const OdChar* separator) {
  OdString text;
  for (const OdString& word : words) {
    if (!text.isEmpty()) text += separator;
    text += word;
  }
  return text;
}

KeywordList::Match KeywordList::find(const OdString& typed, bool inFull) const {
  OdString text = typed;
  text.trimLeft().trimRight();
  const bool global = text.getLength() > 1 && text[0] == L'_';
  const Words& words = global ? m_global : m_local;
  const std::wstring wanted = folded(global ? text.mid(1) : text);
  if (wanted.empty()) return {};

  using Test = bool (*)(const OdString& word, const std::wstring& wanted);
  const Test tests[] = {
      [](const OdString& word, const std::wstring& w) { return folded(word) == w; },
      [](const OdString& word, const std::wstring& w) { return capitals(word) == w; },
      [](const OdString& word, const std::wstring& w) { return startsWith(folded(word), w); },
  };
  for (const Test& test : tests) {
    Words candidates;
    int index = -1;
    for (std::size_t i = 0; i < words.size(); ++i) {
      if (!test(words[i], wanted)) continue;
      index = static_cast<int>(i);
      candidates.push_back(words[i]);
    }
    if (candidates.size() == 1) return {index, {}};
    if (candidates.size() > 1) return {-1, joined(candidates, L", ")};
    if (inFull) break;
  }
  return {};
}

bool KeywordList::isShownIn(const OdString& text) const {
  return std::ranges::all_of(m_local, [&text](const OdString& word) { return text.find(word) >= 0; });
}

namespace {

/// "Specify point [Undo] <Exit>": the keywords stand before the default.
OdString withKeywords(OdString prompt, const KeywordList& keywords) {
  prompt.trimRight();
  if (prompt.right(1) == L":") prompt = prompt.left(prompt.getLength() - 1).trimRight();
  const int start = prompt.right(1) == L">" ? prompt.reverseFind(L'<') : -1;
  const OdString byDefault = start < 0 ? OdString() : L" " + prompt.mid(start);
  if (start >= 0) prompt = prompt.left(start).trimRight();
  return prompt + L" [" + keywords.shown() + L"]" + byDefault;
}

} // namespace

OdString shownPrompt(const OdChar* prompt, const KeywordList& keywords) {
  OdString text(prompt);
  const int place = text.find(L"%s");
  if (place >= 0)
    text = text.left(place) + keywords.shown() + text.mid(place + 2);
  else if (const int bracket = text.find(L'[');
           !keywords.isEmpty() && (bracket < 0 || !keywords.isShownIn(text.mid(bracket))))
    text = withKeywords(text, keywords);
  text.trimLeft().trimRight();
  if (!text.isEmpty() && text.right(1) != L":" && text.right(1) != L"?") text += L':';
  return text + L' ';
}

} // namespace host
