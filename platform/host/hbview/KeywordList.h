#pragma once
#include "OdString.h"
#include <vector>

namespace host {

/// The keywords of a prompt: words as the user knows them and, optionally, the language-independent ones in
/// the same order (behind the word "_").
class KeywordList {
public:
  /// Null means no keywords.
  explicit KeywordList(const OdChar* words);

  bool isEmpty() const { return m_local.empty(); }
  /// "Yes/No".
  OdString shown() const { return joined(m_local, L"/"); }
  /// Whether each keyword stands in the text.
  bool isShownIn(const OdString& text) const;

  struct Match {
    int index = -1;      ///< from 0; -1: no keyword, or not a unique one
    OdString candidates; ///< the keywords that fit, when they are several
  };
  /// Finds a typed keyword in any case. A word in full comes first, then one whose capitals were typed ("X"
  /// for "eXit"), then the beginning of one; with `inFull` only the first of these. A leading underscore asks
  /// for the language-independent words.
  Match find(const OdString& typed, bool inFull = false) const;

private:
  using Words = std::vector<OdString>;
  static OdString joined(const Words& words, const OdChar* separator);

  Words m_local;
  Words m_global;
};

/// A prompt as the user sees it: "%s" filled with the keywords, which are added in brackets, before a
/// default, when the prompt's own brackets do not show them; with a colon at the end.
OdString shownPrompt(const OdChar* prompt, const KeywordList& keywords);

} // namespace host
