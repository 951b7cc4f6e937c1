// What the audit of an open drawing tells, and what repair makes of it.
#include "DrawingAudit.h"
#include "DxfSelfCheck.h"
#include "dxf_text.h"
#include "support/drawings.h"
#include <gmock/gmock.h>

namespace {

using testing::Contains;
using testing::HasSubstr;

/// Tables, blocks and objects with which nothing is wrong; cases add to each.
struct Parts {
  std::string layers = {}, blocks = {}, blockRecords = {}, entities = {}, objects = {}, layoutEntries = {},
              header = {};
};

std::string drawing(const Parts& parts) {
  return dxf(
      "0 SECTION|2 HEADER|9 $ACADVER|1 AC1032|9 $HANDSEED|5 FFF|" + parts.header +
      "0 ENDSEC|0 SECTION|2 TABLES|"
      "0 TABLE|2 LTYPE|5 3|330 0|100 AcDbSymbolTable|70 1|"
      "0 LTYPE|5 11|330 3|100 AcDbSymbolTableRecord|100 AcDbLinetypeTableRecord|2 Continuous|70 0|0 ENDTAB|"
      "0 TABLE|2 LAYER|5 2|330 0|100 AcDbSymbolTable|70 1|"
      "0 LAYER|5 10|330 2|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 0|70 0|6 Continuous|" +
      parts.layers +
      "0 ENDTAB|0 TABLE|2 STYLE|5 4|330 0|100 AcDbSymbolTable|70 0|0 ENDTAB|"
      "0 TABLE|2 DIMSTYLE|5 6|330 0|100 AcDbSymbolTable|70 0|0 ENDTAB|"
      "0 TABLE|2 APPID|5 7|330 0|100 AcDbSymbolTable|70 0|0 ENDTAB|"
      "0 TABLE|2 BLOCK_RECORD|5 1|330 0|100 AcDbSymbolTable|70 3|"
      "0 BLOCK_RECORD|5 1F|330 1|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 *Model_Space|340 22|" +
      parts.blockRecords +
      "0 ENDTAB|0 ENDSEC|0 SECTION|2 BLOCKS|"
      "0 BLOCK|5 20|330 1F|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 *Model_Space|70 0|"
      "0 ENDBLK|5 21|330 1F|100 AcDbEntity|8 0|100 AcDbBlockEnd|" +
      parts.blocks + "0 ENDSEC|0 SECTION|2 ENTITIES|" + parts.entities +
      "0 ENDSEC|0 SECTION|2 OBJECTS|0 DICTIONARY|5 C|330 0|100 AcDbDictionary|3 ACAD_LAYOUT|350 1A|"
      "0 DICTIONARY|5 1A|330 C|100 AcDbDictionary|3 Model|350 22|" +
      parts.layoutEntries + "0 LAYOUT|5 22|330 1A|100 AcDbPlotSettings|1|100 AcDbLayout|1 Model|330 1F|" +
      parts.objects + "0 ENDSEC|0 EOF");
}

std::string blockRecord(const std::string& handle, const std::string& name) {
  return "0 BLOCK_RECORD|5 " + handle + "|330 1|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 " +
         name + "|";
}

std::string block(const std::string& handle, const std::string& name, const std::string& contents,
                  int flags = 0) {
  return "0 BLOCK|5 " + handle + "1|330 " + handle + "|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 " + name +
         "|70 " + std::to_string(flags) + "|" + contents + "0 ENDBLK|5 " + handle + "2|330 " + handle +
         "|100 AcDbEntity|8 0|100 AcDbBlockEnd|";
}

std::string insert(const std::string& handle, const std::string& owner, const std::string& name,
                   const std::string& more = "") {
  return "0 INSERT|5 " + handle + "|330 " + owner + "|100 AcDbEntity|8 0|100 AcDbBlockReference|" + more +
         "2 " + name + "|10 0.0|20 0.0|";
}

std::string entity(const std::string& kind, const std::string& groups) {
  return "0 " + kind + "|5 50|330 1F|100 AcDbEntity|" + groups;
}

std::string audit(OdDbDatabase& database, OdDbAuditMode mode) {
  OdDbDxfFindings collected;
  odDbAudit(database, mode, collected);
  std::string text;
  for (const OdDbDxfFinding& finding : collected.take()) {
    text += text.empty() ? "" : " ";
    text += (finding.kind == OdDbDxfFinding::kError ? "E " : "R ") + finding.id;
    if (finding.handle != 0) text += "@" + OdDbHandle(finding.handle).ascii().toUtf8();
  }
  return text;
}

struct Case {
  const char* what;
  Parts parts;
  const char* findings;
  const char* remain; ///< what cannot be repaired
  std::vector<const char*> holds;
};

void check(const Case& c) {
  SCOPED_TRACE(c.what);
  const OdDbDatabasePtr database = test::drawingFromText(drawing(c.parts));
  const std::string before = test::savedBytes(*database);
  EXPECT_EQ(audit(*database, OdDbAuditMode::readOnly), c.findings);
  EXPECT_EQ(test::savedBytes(*database), before);
  EXPECT_EQ(audit(*database, OdDbAuditMode::repair), c.findings);
  for (const char* part : c.holds) EXPECT_THAT(describe(*database), Contains(HasSubstr(part)));
  EXPECT_EQ(audit(*database, OdDbAuditMode::repair), c.remain);
  const OdDbDatabasePtr again = test::drawingFromText(test::savedBytes(*database));
  EXPECT_EQ(describe(*again), describe(*database));
  EXPECT_EQ(audit(*again, OdDbAuditMode::readOnly), c.remain);
}

TEST(AuditTest, NamesAndRecords) {
  const auto layer = [](const std::string& handle, const std::string& name) {
    return "0 LAYER|5 " + handle + "|330 2|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|" + name +
           "70 0|6 Continuous|";
  };
  const Case cases[] = {
      {"nothing", {}, "", "", {}},
      {"missing records",
       {.entities = entity("TEXT", "8 Walls|6 Dashed|100 AcDbText|1 x|7 Roman|1001 APP|1000 x|1003 Doors|")},
       "R missing-layer@50 R missing-linetype@50 R missing-text-style@50 R missing-application@50 R "
       "missing-layer@50",
       "",
       {"2='Walls'", "2='Doors'", "2='Dashed'", "2='Roman'", "2='APP'"}},
      {"each is missed once, whatever its case",
       {.entities =
            entity("LINE", "8 Walls|6 BYLAYER|") + "0 LINE|5 51|330 1F|100 AcDbEntity|8 WALLS|6 ByBlock|"},
       "R missing-layer@50",
       "",
       {"2='Walls'"}},
      {"a missing dimension style and block",
       {.entities = entity("DIMENSION", "8 0|100 AcDbDimension|2 *D1|3 ISO|")},
       "E missing-block@50 R missing-dimension-style@50",
       "E missing-block@50",
       {"2='ISO'"}},
      {"the header names a missing record",
       {.header = "9 $CLAYER|8 Walls|"},
       "R missing-layer",
       "",
       {"2='Walls'"}},
      {"a name twice",
       {.layers = layer("30", "2 A|") + layer("31", "2 a|"), .entities = entity("LINE", "8 A|")},
       "R duplicate-name@31",
       "",
       {"LAYER: 5=30 330=2 100='AcDbSymbolTableRecord' 100='AcDbLayerTableRecord' 2='A'", "2='a_2'"}},
      {"no name", {.layers = layer("30", "")}, "R name-missing@30", "", {"2='Unnamed_2'"}},
      {"a name that no drawing may hold",
       {.layers = layer("30", "2 a/b|"), .entities = entity("LINE", "8 A/B|"), .header = "9 $CLAYER|8 a/b|"},
       "R name-not-allowed@30",
       "",
       {"2='a_b'", "LINE: 5=50 330=1F 100='AcDbEntity' 8='a_b'"}},
      {"a block name that no drawing may hold",
       {.blocks = block("40", "a;b", ""),
        .blockRecords = blockRecord("40", "a;b"),
        .entities = insert("50", "1F", "A;B")},
       "R name-not-allowed@40",
       "",
       {"BLOCK: 5=401 330=40 100='AcDbEntity' 8='0' 100='AcDbBlockBegin' 2='a_b'",
        "100='AcDbBlockReference' 2='a_b'"}},
  };
  for (const Case& c : cases) check(c);
}

TEST(AuditTest, ObjectsByThemselves) {
  const Case cases[] = {
      {"dangling braces",
       {.entities = "0 LINE|5 50|102 {ACAD_XDICTIONARY|360 98|102 }|102 {ACAD_REACTORS|330 22|330 99|102 "
                    "}|330 1F|100 AcDbEntity|8 0|"},
       "R missing-extension-dictionary@50 R missing-reactor@50",
       "",
       {"LINE: 5=50 102='{ACAD_REACTORS' 330=22 102='}' 330=1F"}},
      {"a dangling entry",
       {.objects = "0 DICTIONARY|5 60|330 C|100 AcDbDictionary|3 A|350 99|3 B|350 22|"},
       "R missing-entry@60",
       "",
       {"100='AcDbDictionary' 3='B' 350=22"}},
      {"numbers that are none",
       {.entities = entity("LINE", "8 0|100 AcDbLine|10 nan|20 -inf|30 1e200|")},
       "R number-not-finite@50 R number-not-finite@50 E absurd-number@50",
       "E absurd-number@50",
       {"10=0 20=0 30=1e+200"}},
      {"attributes that do not follow",
       {.entities = insert("50", "1F", "*Model_Space", "66 1|")},
       "R attributes-flag@50 E block-cycle@50",
       "E block-cycle@50",
       {"100='AcDbBlockReference' 2='*Model_Space'"}},
      {"attributes that are not told",
       {.blocks = block("40", "A", ""),
        .blockRecords = blockRecord("40", "A"),
        .entities = insert("50", "1F", "A") +
                    "0 ATTRIB|5 51|330 50|100 AcDbEntity|8 0|100 AcDbText|1 v|100 "
                    "AcDbAttribute|2 T|70 0|0 SEQEND|5 52|330 50|100 AcDbEntity|8 0|"},
       "R attributes-flag@50",
       "",
       {"100='AcDbBlockReference' 66=1 2='A'"}},
  };
  for (const Case& c : cases) check(c);
}

TEST(AuditTest, Blocks) {
  const std::string definition =
      "0 ATTDEF|5 70|330 40|100 AcDbEntity|8 0|100 AcDbText|1 v|100 AcDbAttributeDefinition|3 P|2 T|70 ";
  const Case cases[] = {
      {"a reference to no block",
       {.entities = insert("50", "1F", "Gone")},
       "E missing-block@50",
       "E missing-block@50",
       {}},
      {"attributes that the block does not tell",
       {.blocks = block("40", "A", definition + "0|"), .blockRecords = blockRecord("40", "A")},
       "R block-flag@401",
       "",
       {"2='A' 70=2"}},
      {"attributes that the block does not have",
       {.blocks = block("40", "A", definition + "2|", 2), .blockRecords = blockRecord("40", "A")},
       "R block-flag@401",
       "",
       {"2='A' 70=0"}},
      {"a circle",
       {.blocks = block("40", "A", insert("71", "40", "B")) + block("41", "B", insert("72", "41", "a")),
        .blockRecords = blockRecord("40", "A") + blockRecord("41", "B"),
        .entities = insert("50", "1F", "A")},
       "E block-cycle@72",
       "E block-cycle@72",
       {}},
      {"no definition",
       {.blockRecords = blockRecord("40", "A"), .entities = insert("50", "1F", "A")},
       "E missing-definition@40",
       "",
       {"100='AcDbBlockBegin' 2='A'"}},
  };
  for (const Case& c : cases) check(c);
}

TEST(AuditTest, Layouts) {
  const std::string sheet = "0 LAYOUT|5 60|330 1A|100 AcDbPlotSettings|1|100 AcDbLayout|1 Sheet|330 ";
  const std::string record =
      "0 BLOCK_RECORD|5 1B|330 1|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 *Paper_Space|340 ";
  const std::string blocks = block("1B", "*Paper_Space", "");
  const std::string entry = "3 Sheet|350 60|";
  const Case cases[] = {
      {"linked well",
       {.blocks = blocks, .blockRecords = record + "60|", .objects = sheet + "1B|", .layoutEntries = entry},
       "",
       "",
       {}},
      {"the block points to nothing",
       {.blocks = blocks, .blockRecords = record + "99|", .objects = sheet + "1B|", .layoutEntries = entry},
       "R layout-link@60",
       "",
       {"2='*Paper_Space' 340=60"}},
      {"the layout points to nothing",
       {.blocks = blocks, .blockRecords = record + "60|", .objects = sheet + "99|", .layoutEntries = entry},
       "R layout-link@60",
       "",
       {"1='Sheet' 330=1B"}},
      {"both point to nothing",
       {.blocks = blocks, .blockRecords = record + "98|", .objects = sheet + "99|", .layoutEntries = entry},
       "R layout-link@60",
       "",
       {"1='Sheet' 330=1B", "2='*Paper_Space' 340=60"}},
      {"the block of another layout",
       {.objects = sheet + "1F|", .layoutEntries = entry},
       "E layout-without-block@60",
       "E layout-without-block@60",
       {}},
      {"not in the dictionary",
       {.blocks = blocks, .blockRecords = record + "60|", .objects = sheet + "1B|"},
       "R layout-not-listed@60",
       "",
       {"3='Sheet' 350=60"}},
      {"no layout",
       {.blocks = blocks, .blockRecords = record + "99|"},
       "R missing-layout@1B R sheet-without-layout@1B",
       "",
       {"1='Layout1'"}},
      {"a block that tells a layout",
       {.blocks = block("40", "A", ""), .blockRecords = blockRecord("40", "A") + "340 99|"},
       "R missing-layout@40",
       "",
       {"2='A' 340=0"}},
  };
  for (const Case& c : cases) check(c);
}

TEST(AuditTest, SeedAndEndOfTheFile) {
  const std::string text = drawing({.entities = entity("LINE", "8 0|")});
  std::string low = text;
  low.replace(low.find("FFF"), 3, "50");
  EXPECT_EQ(audit(*test::drawingFromText(low), OdDbAuditMode::readOnly), "R seed-too-low@50");
  EXPECT_EQ(audit(*test::drawingFromText(text + "trash"), OdDbAuditMode::readOnly), "R text-behind-end");
  EXPECT_EQ(audit(*test::drawingFromText(text + " \r\n\x1A"), OdDbAuditMode::readOnly), "");
}

/// What saving would say about a drawing, or the error that keeps from it.
std::vector<std::string> selfCheck(OdDbDatabase& database) {
  try {
    return dxfSelfCheck(database, L"new.dxf");
  } catch (const OdError& error) {
    return {error.what()};
  }
}

TEST(SelfCheckTest, LooksIntoChangesAndRefusesBrokenChains) {
  const OdDbDatabasePtr database =
      test::drawingFromText(drawing({.entities = insert("50", "1F", "gone", "66 1|") +
                                                 "0 ATTRIB|5 51|330 50|8 nowhere|0 SEQEND|5 52|330 50|8 0|" +
                                                 "0 LINE|5 53|330 1F|100 AcDbEntity|8 nowhere|"}));
  const auto open = [&](OdUInt64 handle) {
    return OdDbObjectId(database->store().find(handle)).safeOpenObject(OdDb::kForWrite);
  };
  EXPECT_THAT(selfCheck(*database), testing::IsEmpty());
  open(0x53)->mutableGroups();
  open(0x50)->mutableGroups();
  EXPECT_THAT(
      selfCheck(*database),
      testing::ElementsAre("INSERT 50 refers to the block \"gone\", which does not exist",
                           "LINE 53 names the record \"nowhere\" of the table LAYER, which does not exist"));
  open(0x52)->erase(true);
  EXPECT_THAT(selfCheck(*database),
              testing::ElementsAre("new.dxf: INSERT 50 has members without an end mark"));
  open(0x51)->erase(true);
  EXPECT_EQ(selfCheck(*database).size(), 2);
  database->store().header.back().groups->items[0].handle = 0x53;
  EXPECT_THAT(selfCheck(*database),
              testing::ElementsAre("new.dxf: LINE 53 has a handle that is not below the seed"));
}

TEST(AuditTest, RepairsCanBeUndone) {
  const Parts parts{.layers =
                        "0 LAYER|5 30|330 2|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 a/b|70 0|",
                    .entities = entity("TEXT", "8 A/B|6 Dashed|100 AcDbText|1 x|40 nan|")};
  const OdDbDatabasePtr database = test::drawingFromText(drawing(parts));
  const std::string before = test::savedBytes(*database);
  database->startUndoRecord();
  audit(*database, OdDbAuditMode::repair);
  EXPECT_NE(test::savedBytes(*database), before);
  database->undo();
  EXPECT_EQ(test::savedBytes(*database), before);
}

TEST(AuditTest, BlocksMayBeNestedAsDeepAsTheyLike) {
  Parts parts;
  constexpr int kDepth = 20000;
  for (int i = 0; i < kDepth; ++i) {
    const std::string handle = OdDbHandle(static_cast<OdUInt64>(0x1000 + i)).ascii().toUtf8();
    const std::string name = "B" + std::to_string(i);
    parts.blockRecords += blockRecord(handle, name);
    parts.blocks += block(handle, name, insert("A" + handle, handle, "B" + std::to_string(i + 1)));
  }
  EXPECT_EQ(audit(*test::drawingFromText(drawing(parts)), OdDbAuditMode::readOnly),
            "E missing-block@A" + OdDbHandle(0x1000 + kDepth - 1).ascii().toUtf8() + " R seed-too-low@" +
                OdDbHandle(0x10000 * 10 + 0x5E1F).ascii().toUtf8());
}

} // namespace
