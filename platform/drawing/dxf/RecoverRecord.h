#pragma once
// The records of a file that is being recovered, and how their texts are changed. Internal to the recovering
// reader.
#include "DxfFindings.h"
#include "RecoverForm.h"
#include <deque>
#include <optional>

struct RecoverRecord {
  std::string_view bytes; ///< the whole record, from its group 0 to the next: of the file, or written anew
  std::string_view name;
  std::string_view title;      ///< the first group 2; empty: none
  OdUInt64 handle = 0;         ///< 0: none
  OdUInt64 owner = 0;          ///< 0: none
  std::size_t where = 0;       ///< line or byte in the file; 0: the file does not have the record
  bool saysEntity = false;     ///< has the marker of entities
  bool hasMarkers = false;     ///< has a marker of any class
  bool inPaperSpace = false;   ///< group 67
  bool holdsVariables = false; ///< has groups 9, as the header does

  bool hasTitle() const { return !title.empty(); }
  /// Whether it holds variables of the header, but is no section.
  bool isStrayHeader() const;
  /// Whether it belongs to the reference or polyline before it.
  bool isMember() const { return name == "ATTRIB" || name == "VERTEX" || name == "SEQEND"; }
};

/// What is to be changed in a record.
struct RecoverEdit {
  std::optional<OdUInt64> handle = {}; ///< put behind the name where the record has none
  std::optional<OdUInt64> owner = {};  ///< put behind the handle where the record has none; 0: nobody
  std::optional<std::string> title = {};
};

/// What all steps of a recovery share.
class RecoverContext {
public:
  RecoverContext(const std::shared_ptr<DxfText>& text, OdDbDxfFindings& found) : form(text), findings(found) {
    found.countBytes(form.isBinary());
  }

  const RecoverForm form;
  OdDbDxfFindings& findings;

  /// Keeps a text as long as the recovery lasts.
  std::string_view keep(std::string text) { return m_texts.emplace_back(std::move(text)); }
  /// Writes the record anew. Its groups must be well-formed.
  void apply(RecoverRecord& record, const RecoverEdit& edit);
  /// A new record of these groups, all of them texts; it stands nowhere yet.
  RecoverRecord* make(const char* name, const std::vector<std::pair<int, std::string>>& groups);
  /// Adds a finding about a record.
  void tell(OdDbDxfFinding::Kind kind, const char* id, const RecoverRecord& record, std::string sentence) {
    findings.add(kind, id, record.where, record.handle, std::move(sentence));
  }
  /// "LINE 2A", "LINE" or, for those with a title, "LAYER "Walls"".
  static std::string describe(const RecoverRecord& record);
  /// "line 12" or "byte 1234".
  std::string place(std::size_t where) const {
    return (form.isBinary() ? "byte " : "line ") + std::to_string(where);
  }

private:
  std::deque<std::string> m_texts;
  std::deque<RecoverRecord> m_made;
};

std::string recoverHexadecimal(OdUInt64 handle);
