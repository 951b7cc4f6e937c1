#pragma once
// Puts the records of a damaged file into the sections, tables and blocks where they belong. Internal to the
// recovering reader.
#include "RecoverHeader.h"
#include <unordered_map>
#include <vector>

class RecoverStructure {
public:
  /// A table, a block definition, or all that a section without such parts holds.
  struct Part {
    RecoverRecord* head = nullptr;
    std::vector<RecoverRecord*> members;
    RecoverRecord* end = nullptr;
    RecoverRecord* sequence = nullptr; ///< while reading: the reference or polyline whose members may follow
    bool hasSequenceMembers = false;
  };
  enum Kind { kHeader, kClasses, kTables, kBlocks, kEntities, kObjects, kOther };
  struct Section {
    Kind kind = kOther;
    RecoverRecord* head = nullptr;
    std::deque<Part> parts;
    RecoverRecord* end = nullptr;
  };

  RecoverStructure(RecoverHeader& header, RecoverContext& context) : m_header(header), m_context(context) {}

  void read(std::deque<RecoverRecord>& records);
  /// The section; null when the drawing has none.
  Section* section(Kind kind) const { return m_known[kind]; }
  /// The table of this name, made when there is none.
  Part& table(const std::string& name);
  /// The parts of a section that is empty or absent too.
  Section& demand(Kind kind);
  /// Attributes and vertices that do not follow a reference or polyline; they stand nowhere.
  std::vector<RecoverRecord*> orphans;

  /// Calls `visit(record)` for every record in the order of the new file.
  template <class Visit>
  void visit(const Visit& visit) {
    for (Section* section : ordered()) {
      visit(section->head);
      for (Part& part : section->parts) {
        if (part.head) visit(part.head);
        for (RecoverRecord* record : part.members) visit(record);
        if (part.end) visit(part.end);
      }
      visit(section->end);
    }
  }

private:
  void take(RecoverRecord* record);
  void openSection(RecoverRecord* record);
  void nameSection(const RecoverRecord* first);
  void enterNamed(RecoverRecord* head);
  void closeSection(RecoverRecord* end);
  void place(RecoverRecord* record);
  void placeInTables(RecoverRecord* record);
  void placeInBlocks(RecoverRecord* record);
  void openTable(RecoverRecord* head);
  void openBlock(RecoverRecord* head);
  void closePart();
  void endSequence(Part& part);
  void addEntity(RecoverRecord* record, Part& part);
  bool fits(const Section* section, Kind home, const RecoverRecord& record) const;
  bool returns(Kind home, const RecoverRecord& record) const;
  void takeVariables(const RecoverRecord& record);
  void moveTo(Kind home, const RecoverRecord& record);
  void finish();
  std::vector<Section*> ordered();
  void repaired(const char* id, const RecoverRecord* record, std::string sentence) {
    m_context.tell(OdDbDxfFinding::kRepair, id, *record, std::move(sentence));
  }

  RecoverHeader& m_header;
  RecoverContext& m_context;
  std::deque<Section> m_sections;
  Section* m_known[kOther + 1] = {};
  std::unordered_map<std::string, Part*> m_tables;
  Section* m_declared = nullptr; ///< the section that SECTION opened
  Section* m_current = nullptr;  ///< the section that takes the records; another one where those do not fit
  Part* m_part = nullptr;        ///< the open table or block
  RecoverRecord* m_undecided = nullptr; ///< a SECTION without a known name, before its first record
  RecoverRecord* m_namelessTable = nullptr;
  bool m_named[kOther + 1] = {}; ///< the sections that the file has by name
  bool m_isLeftOut = false;      ///< between a SECTION that was left out and its ENDSEC
  int m_lastRank = -1;
};
