// Damaged files through the recovering reader: what it tells, and what the drawing then holds.
#include "DxfRecover.h"
#include "dxf_text.h"
#include "support/drawings.h"
#include <gmock/gmock.h>

namespace {

using testing::Contains;
using testing::HasSubstr;

struct Recovered {
  OdDbDatabasePtr database = OdDbDatabase::createObject();
  std::vector<OdDbDxfFinding> findings;
  std::vector<std::string> objects; ///< described
};

Recovered recover(const std::string& text, const OdDbDxfReadOptions& options = {}) {
  Recovered result;
  const auto bytes = std::make_shared<std::string>(text);
  result.findings = odDbRecoverBytes(*result.database, *bytes, bytes, L"test.dxf", options);
  result.objects = describe(*result.database);
  return result;
}

/// Where the blocks of the drawings end that these tests begin with.
constexpr std::size_t kBase = 253;

/// "E id@12 R id": errors and repairs with their places; "@+2" is the third line behind the base.
std::string listed(const std::vector<OdDbDxfFinding>& findings) {
  std::string text;
  for (const OdDbDxfFinding& finding : findings) {
    text += text.empty() ? "" : " ";
    text += (finding.kind == OdDbDxfFinding::kError ? "E " : "R ") + finding.id;
    const bool isBehind = !finding.isByte && finding.where >= kBase;
    if (finding.where != 0)
      text += (isBehind ? "@+" : "@") + std::to_string(finding.where - (isBehind ? kBase : 0));
  }
  return text;
}

/// A recovered drawing is one that the strict reader takes, with the same contents.
void expectSound(const Recovered& recovered, const std::string& text) {
  const std::string saved = test::savedBytes(*recovered.database);
  const OdDbDatabasePtr again = OdDbDatabase::createObject();
  ASSERT_NO_THROW(odDbReadBytes(*again, saved, nullptr, L"saved.dxf")) << text << "\nsaved as\n" << saved;
  EXPECT_EQ(describe(*again), recovered.objects) << text;
}

/// A drawing of release 2018 with both spaces and no layouts, and these groups behind its blocks.
std::string drawing(const std::string& rest, const Layout& layout = {}) {
  std::string text = entities("", layout);
  for (const char* link : {"340 22", "340 1E"}) {
    const std::string group = dxf(link, layout);
    text.erase(text.find(group), group.size());
  }
  const std::string behind = dxf("0 SECTION|2 ENTITIES|0 ENDSEC|0 EOF", layout);
  return text.substr(0, text.size() - behind.size()) + dxf(rest, layout);
}

/// The same with these entities.
std::string model(const std::string& groups, const Layout& layout = {}) {
  return drawing("0 SECTION|2 ENTITIES|" + groups + "|0 ENDSEC|0 EOF", layout);
}

struct Case {
  const char* what;
  std::string text;
  std::string findings;
  std::vector<std::string> holds; ///< parts of what some object is described as
  int lacks = 0;                  ///< objects fewer than the undamaged drawing
};

void check(const Case& c) {
  SCOPED_TRACE(c.what);
  const Recovered recovered = recover(c.text);
  EXPECT_EQ(listed(recovered.findings), c.findings);
  for (const std::string& part : c.holds) EXPECT_THAT(recovered.objects, Contains(HasSubstr(part)));
  expectSound(recovered, c.what);
}

const std::string kLine = "0 LINE|5 41|330 1F|100 AcDbEntity|8 0|100 AcDbLine|10 1.0|20 2.0|11 3.0|21 4.0|";
const std::string kEnd = "|0 ENDSEC|0 EOF";

TEST(RecoverTest, SoundDrawingsKeepTheirBytes) {
  for (const std::string& text :
       {smallDrawing(), smallDrawing({"AC1015", "\n", false}), toBinary(smallDrawing())}) {
    const Recovered recovered = recover(text);
    for (const OdDbDxfFinding& finding : recovered.findings)
      EXPECT_EQ(finding.kind, OdDbDxfFinding::kRepair) << finding.sentence;
    const OdDbDatabasePtr strict = OdDbDatabase::createObject();
    odDbReadBytes(*strict, text, nullptr, L"test.dxf");
    EXPECT_GE(recovered.objects.size(), describe(*strict).size());
  }
  const std::string sound = model(kLine);
  const Recovered recovered = recover(sound);
  EXPECT_EQ(listed(recovered.findings), "");
  EXPECT_EQ(test::savedBytes(*recovered.database), sound);
}

TEST(RecoverTest, GroupsOutOfForm) {
  const std::string head = drawing("0 SECTION|2 ENTITIES|");
  const auto at = [](int lines) { return "+" + std::to_string(4 + lines); };
  const auto with = [&](const std::string& groups) { return head + dxf(groups) + dxf("0 ENDSEC|0 EOF"); };
  const Case cases[] = {
      {"a number that is none",
       with("0 LINE|5 41|330 1F|100 AcDbEntity|8 0|100 AcDbLine|10 one|20 2.0"),
       "E malformed-value@" + at(12),
       {"100='AcDbLine' 20=2"}},
      {"numbers in another form",
       with("0 LINE|5 41|330 1F|100 AcDbEntity|8 0|62 3.0|100 AcDbLine|10 1,5|20 2.5D+01|11 1e999"),
       "R number-form@" + at(10) + " R number-form@" + at(14) + " R number-form@" + at(16) +
           " E malformed-value@" + at(18),
       {"62=3 100='AcDbLine' 10=1.5 20=25"}},
      {"a handle that is none",
       with("0 LINE|5 4G|330 1F|100 AcDbEntity|8 0"),
       "E malformed-value@" + at(2) + " R handle-missing@" + at(0),
       {"LINE: 5=FFF 330=1F 100='AcDbEntity' 8='0'"}},
      {"a text in two lines",
       head + dxf("0 TEXT|5 41|330 1F|100 AcDbEntity|8 0|1 first") + "second\r\n" + dxf(kEnd),
       "E no-group@" + at(12),
       {"8='0' 1='first'"}},
      {"a code without its value's line",
       head + dxf("0 TEXT|5 41|330 1F|100 AcDbEntity|8 0") + " 62\r\n" +
           dxf("0 LINE|5 42|330 1F|100 AcDbEntity|8 0" + kEnd),
       "E no-group@" + at(10),
       {"TEXT: 5=41 330=1F 100='AcDbEntity' 8='0'", "LINE: 5=42"}},
      {"a value without its code",
       head + dxf("0 LINE|5 41|330 1F|100 AcDbEntity|8 0|100 AcDbLine") + "1.5\r\n" + dxf("20 2.0" + kEnd),
       "E no-group@" + at(12),
       {"100='AcDbLine' 20=2"}},
      {"noise between records",
       with(kLine).insert(head.size(), "@#!\r\n\x01\x02\r\n\r\n"),
       "E no-group@" + at(0),
       {"LINE: 5=41"}},
      {"a group before the first record",
       dxf("1 x") + model(kLine),
       "E group-outside-record@1",
       {"LINE: 5=41"}},
      {"carriage returns twice",
       [] {
         std::string text = model(kLine);
         for (std::size_t i = 0; (i = text.find("\r\n", i)) != std::string::npos; i += 3)
           text.insert(i, "\r");
         return text;
       }(),
       "R line-ends",
       {"LINE: 5=41"}},
      {"carriage returns alone", model(kLine, {"AC1032", "\r", true}), "R line-ends", {"LINE: 5=41"}},
  };
  for (const Case& c : cases) check(c);
}

TEST(RecoverTest, BinaryGroupsOutOfForm) {
  const std::string sound =
      toBinary(model(kLine + "0 CIRCLE|5 42|330 1F|100 AcDbEntity|8 0|100 AcDbCircle|10 1.0|20 1.0|40 2.0"));
  const std::size_t circle = sound.find("CIRCLE") - 2;
  ASSERT_LT(circle, sound.size());
  std::string noise = sound;
  noise.insert(circle, "\xFE\xFE\xFE");
  std::string torn = sound;
  torn.erase(circle - 5, 3);
  const Case cases[] = {
      {"noise between records",
       noise,
       "E no-group@" + std::to_string(circle),
       {"LINE: 5=41", "CIRCLE: 5=42"}},
      {"bytes of a number are missing", torn, "E no-group@" + std::to_string(circle + 6), {"LINE: 5=41"}},
      {"cut within a record",
       sound.substr(0, circle),
       "R end-missing@" + std::to_string(circle) + " R section-not-closed",
       {"LINE: 5=41"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const Recovered recovered = recover(c.text);
    EXPECT_THAT(listed(recovered.findings), HasSubstr(c.findings.substr(0, 10)));
    for (const std::string& part : c.holds) EXPECT_THAT(recovered.objects, Contains(HasSubstr(part)));
    for (const OdDbDxfFinding& finding : recovered.findings)
      EXPECT_TRUE(finding.isByte || finding.where == 0);
    expectSound(recovered, c.what);
  }
  EXPECT_EQ(listed(recover(noise).findings), cases[0].findings);
}

TEST(RecoverTest, Sections) {
  const std::string inModel = "|5 41|330 1F|100 AcDbEntity|8 0|";
  const std::string objects = "0 SECTION|2 OBJECTS|0 DICTIONARY|5 C|330 0|100 AcDbDictionary|281 1";
  const Case cases[] = {
      {"not closed",
       drawing("0 SECTION|2 ENTITIES|0 LINE" + inModel + objects + kEnd),
       "R section-not-closed@+14",
       {"LINE: 5=41", "DICTIONARY: 5=C"}},
      {"closed by the end",
       drawing("0 SECTION|2 ENTITIES|0 LINE" + inModel + "0 EOF"),
       "R section-not-closed@+0",
       {"LINE: 5=41"}},
      {"without EOF",
       drawing("0 SECTION|2 ENTITIES|0 LINE" + inModel + "0 ENDSEC"),
       "R end-missing@+16",
       {"LINE: 5=41"}},
      {"without a name",
       drawing("0 SECTION|0 LINE" + inModel + kEnd),
       "R section-without-name@+0",
       {"LINE: 5=41"}},
      {"with an unknown name",
       drawing("0 SECTION|2 ENTIT?ES|0 LINE" + inModel + kEnd),
       "R section-name@+0",
       {"LINE: 5=41"}},
      {"an empty one without a name",
       model(kLine).insert(0, dxf("0 SECTION|0 ENDSEC")),
       "R section-without-name@1",
       {"LINE: 5=41"}},
      {"twice",
       drawing("0 SECTION|2 ENTITIES|0 LINE" + inModel +
               "0 ENDSEC|0 SECTION|2 ENTITIES|0 LINE|5 42|330 1F|100 AcDbEntity|8 0" + kEnd),
       "R section-twice@+16",
       {"LINE: 5=41", "LINE: 5=42"}},
      {"in another order",
       drawing(objects + "|0 ENDSEC|0 SECTION|2 ENTITIES|0 LINE" + inModel + kEnd),
       "R section-order@+16",
       {"LINE: 5=41", "DICTIONARY: 5=C"}},
      {"no beginning",
       drawing("0 LINE" + inModel + "0 CIRCLE|5 42|330 1F|100 AcDbEntity|8 0" + kEnd),
       "R record-misplaced@+0",
       {"LINE: 5=41", "CIRCLE: 5=42"}},
      {"entities among objects",
       drawing(objects + "|0 LINE" + inModel + "0 XRECORD|5 43|330 C|100 AcDbXrecord" + kEnd),
       "R record-misplaced@+14",
       {"LINE: 5=41", "XRECORD: 5=43 330=C"}},
      {"objects among entities",
       drawing("0 SECTION|2 ENTITIES|0 LINE" + inModel + objects.substr(20) + kEnd),
       "R record-misplaced@+14",
       {"LINE: 5=41", "DICTIONARY: 5=C"}},
      {"a block among objects",
       drawing(objects +
               "|0 BLOCK|5 D|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 B|70 0|"
               "0 NOVEL|5 E|330 C|100 AcDbNovel|0 CIRCLE|5 F|330 1F|100 AcDbEntity|8 0" +
               kEnd),
       "R record-misplaced@+14 R block-not-closed@+14 R record-misplaced@+36",
       {"NOVEL: 5=E 330=C", "BLOCK: 5=D", "CIRCLE: 5=F 330=1F"}},
      {"ENDSEC alone",
       drawing("0 ENDSEC|0 SECTION|2 ENTITIES|0 LINE" + inModel + kEnd),
       "R endsec-alone@+0",
       {"LINE: 5=41"}},
      {"text behind the end", model(kLine) + "trash", "R text-behind-end", {"LINE: 5=41"}},
      {"nothing but entities",
       dxf("0 SECTION|2 ENTITIES|0 LINE|8 0|10 1.0"),
       "R end-missing@11 R section-not-closed@1",
       {"LINE: 8='0' 10=1"}},
  };
  for (const Case& c : cases) check(c);
}

TEST(RecoverTest, Header) {
  struct HeaderCase {
    std::string header;
    const char* findings;
    OdDb::DwgVersion version;
  };
  const std::string whole = drawing("");
  const std::string rest = whole.substr(whole.find(dxf("0 SECTION|2 TABLES")));
  const HeaderCase cases[] = {
      {"", "R release-missing", OdDb::vAC15},
      {"0 SECTION|2 HEADER|9 $ACADVER|1 AC1099|9 $HANDSEED|5 FFF|0 ENDSEC", "R unknown-release@1",
       OdDb::vAC32},
      {"0 SECTION|2 HEADER|9 $ACADVER|1 new|9 $HANDSEED|5 FFF|0 ENDSEC", "R unknown-release@1", OdDb::vAC15},
      {"0 SECTION|9 $ACADVER|1 AC1021|9 $HANDSEED|5 FFF|0 ENDSEC", "R section-without-name@1", OdDb::vAC21},
      {"0 SECTION|2 HEADER|9 $ACADVER|1 AC1021|0 ENDSEC|0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|9 $HANDSEED|5 "
       "FFF|0 ENDSEC",
       "R section-twice@11", OdDb::vAC21},
      {"0 SECTION|2 HEADER|9 $ACADVER|1 AC1021|9 $HANDSEED|5 20|0 ENDSEC", "R seed-too-low@1", OdDb::vAC21},
      {"0 SECTION|2 HEADER|9 $ACADVER|1 AC1021|0 ENDSEC|9 $HANDSEED|5 FFF", "R variables-outside-header@9",
       OdDb::vAC21},
      {"9 $ACADVER|1 AC1021|9 $HANDSEED|5 FFF|0 ENDSEC", "R variables-outside-header@1", OdDb::vAC21},
      {"0 SECT?ON|2 HEADER|9 $ACADVER|1 AC1021|9 $HANDSEED|5 FFF|0 ENDSEC", "R variables-outside-header@1",
       OdDb::vAC21},
      {"0 SECTION|2 HEADER|9 $ACADVER|9 $ACADVER|1 AC1021|9 $HANDSEED|5 FFF|0 ENDSEC",
       "E variable-without-value@1", OdDb::vAC21},
  };
  const std::string behind = rest + dxf("0 SECTION|2 ENTITIES|" + kLine + kEnd);
  for (const HeaderCase& c : cases) {
    const Recovered recovered = recover(dxf(c.header) + behind);
    EXPECT_EQ(listed(recovered.findings), c.findings) << c.header;
    EXPECT_EQ(recovered.database->originalFileVersion(), c.version) << c.header;
    EXPECT_THAT(recovered.objects, Contains(HasSubstr("LINE: 5=41"))) << c.header;
    expectSound(recovered, c.header);
  }
}

TEST(RecoverTest, TablesAndBlocks) {
  const std::string header = "0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|9 $HANDSEED|5 FFF|0 ENDSEC|";
  const std::string records = "0 TABLE|2 BLOCK_RECORD|5 1|330 0|100 AcDbSymbolTable|0 BLOCK_RECORD|5 1F|330 "
                              "1|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 *Model_Space|0 ENDTAB|";
  const std::string space = "0 BLOCK|5 20|330 1F|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 *Model_Space|70 0|0 "
                            "ENDBLK|5 21|330 1F|100 AcDbEntity|8 0|100 AcDbBlockEnd|";
  const std::string layers = "0 TABLE|2 LAYER|5 2|330 0|100 AcDbSymbolTable|0 LAYER|5 10|330 2|100 "
                             "AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 0|70 0|0 ENDTAB|";
  const auto with = [&](const std::string& tables, const std::string& blocks) {
    return dxf(header + "0 SECTION|2 TABLES|" + tables + records + "0 ENDSEC|0 SECTION|2 BLOCKS|" + space +
               blocks + "0 ENDSEC|0 EOF");
  };
  const std::string layer =
      "0 LAYER|5 30|330 2|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 Walls|70 0|";
  const auto without = [](std::string text, const std::string& part) {
    return text.erase(text.find(part), part.size());
  };
  const auto block = [](const std::string& handle, const std::string& owner, const std::string& name) {
    return "0 BLOCK|5 " + handle + "|330 " + owner + "|100 AcDbEntity|8 0|100 AcDbBlockBegin|" +
           (name.empty() ? "" : "2 " + name + "|") + "70 0|0 CIRCLE|5 " + handle + "A|330 " + owner +
           "|100 AcDbEntity|8 0|0 ENDBLK|5 " + handle + "B|330 " + owner +
           "|100 AcDbEntity|8 0|100 AcDbBlockEnd|";
  };
  const Case cases[] = {
      {"table not closed", with(without(layers, "0 ENDTAB|"), ""), "R table-not-closed@43", {"LAYER: 5=10"}},
      {"table without a name",
       with(without(layers, "2 LAYER|"), ""),
       "R table-without-name@19",
       {"TABLE: 5=2"}},
      {"table twice",
       with(layers + "0 TABLE|2 LAYER|5 3|330 0|100 AcDbSymbolTable|" + layer + "0 ENDTAB|", ""),
       "R table-twice@45",
       {"LAYER: 5=30 330=2"}},
      {"record behind its table",
       with(layers + layer, ""),
       "R record-outside-table@45",
       {"LAYER: 5=30 330=2"}},
      {"record of another table",
       with(layers + "0 TABLE|2 STYLE|5 3|330 0|100 AcDbSymbolTable|" + layer + "0 ENDTAB|", ""),
       "R record-outside-table@55",
       {"LAYER: 5=30 330=2"}},
      {"record of a wrong owner",
       with(without(layers, "0 ENDTAB|") + "0 LAYER|5 30|330 1F|100 AcDbSymbolTableRecord|100 "
                                           "AcDbLayerTableRecord|2 Walls|70 0|0 ENDTAB|",
            ""),
       "R wrong-owner@43",
       {"LAYER: 5=30 330=2"}},
      {"table of a damaged name",
       with("0 TABLE|2 LAYEx|5 3|330 0|100 AcDbSymbolTable|" + layer + "0 ENDTAB|", ""),
       "R record-outside-table@29",
       {"LAYER: 5=30"}},
      {"ENDTAB and ENDBLK alone",
       with("0 ENDTAB|", "0 ENDBLK|8 0|"),
       "R endtab-alone@19 R endblk-alone@79",
       {}},
      {"unknown record without a table", with("0 NOVEL|1 x|", ""), "R record-misplaced@19", {}},
      {"block not closed",
       with("", "0 BLOCK|5 50|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 A|70 0|" + block("60", "0", "B")),
       "R block-not-closed@77",
       {"'A'", "'B'"}},
      {"block record missing",
       with("", block("50", "4F", "A")),
       "R block-record-missing@77",
       {"BLOCK_RECORD: 5=4F 330=1", "CIRCLE: 5=50A 330=4F"}},
      {"block without a name", with("", block("50", "0", "")), "R block-without-name@77", {"2='Unnamed_2'"}},
      {"block with an empty name",
       with("",
            "0 BLOCK|5 50|100 AcDbEntity|8 0|100 AcDbBlockBegin|2|70 0|0 ENDBLK|5 51|100 AcDbEntity|8 0|"),
       "R block-without-name@77",
       {"2='Unnamed_2'"}},
      {"block twice",
       with("", block("50", "1F", "*Model_Space")),
       "R block-twice@77 R wrong-owner@77 R wrong-owner@93 R wrong-owner@103",
       {"2='*Model_Space_2'", "CIRCLE: 5=50A 330=FFF"}},
      {"definition missing",
       with("0 TABLE|2 BLOCK_RECORD|5 1|330 0|100 AcDbSymbolTable|0 BLOCK_RECORD|5 40|330 1|"
            "100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 A|0 ENDTAB|",
            ""),
       "R table-twice@43 E missing-definition",
       {"2='A' 70=0"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const Recovered recovered = recover(c.text);
    const std::string found = listed(recovered.findings);
    EXPECT_EQ(found.substr(0, c.findings.size()), c.findings) << found;
    for (const std::string& part : c.holds) EXPECT_THAT(recovered.objects, Contains(HasSubstr(part)));
    expectSound(recovered, c.what);
  }
}

TEST(RecoverTest, Identity) {
  const std::string insert =
      "0 INSERT|5 50|330 1F|100 AcDbEntity|8 0|100 AcDbBlockReference|66 1|2 *Paper_Space|";
  const std::string attribute =
      "0 ATTRIB|5 51|330 50|100 AcDbEntity|8 0|100 AcDbText|1 v|100 AcDbAttribute|2 T|70 0|";
  const std::string seqend = "0 SEQEND|5 52|330 50|100 AcDbEntity|8 0|";
  const std::string dictionary = "0 DICTIONARY|5 C|330 0|100 AcDbDictionary|281 1|";
  const auto objects = [&](const std::string& groups) {
    return drawing("0 SECTION|2 OBJECTS|" + groups + "0 ENDSEC|0 EOF");
  };
  const Case cases[] = {
      {"a handle twice", model(kLine + kLine), "R duplicate-handle@+24", {"LINE: 5=41", "LINE: 5=FFF"}},
      {"no handle", model("0 LINE|330 1F|100 AcDbEntity|8 0"), "R handle-missing@+4", {"LINE: 5=FFF 330=1F"}},
      {"a handle out of range",
       model("0 LINE|5 FFFFFFFFFFFFFFFF|330 1F|100 AcDbEntity|8 0"),
       "R handle-out-of-range@+4",
       {"LINE: 5=FFF"}},
      {"owner missing",
       model("0 LINE|5 41|330 99|100 AcDbEntity|8 0|0 TEXT|5 42|330 99|100 AcDbEntity|67 1|8 0"),
       "R wrong-owner@+4 R wrong-owner@+14",
       {"LINE: 5=41 330=1F", "TEXT: 5=42 330=1B"}},
      {"owner of a wrong kind",
       model("0 LINE|5 41|330 10|100 AcDbEntity|8 0"),
       "R wrong-owner@+4",
       {"LINE: 5=41 330=1F"}},
      {"no SEQEND",
       model(insert + attribute + kLine),
       "R sequence-not-closed@+4",
       {"ATTRIB: 5=51 330=50", "SEQEND:"}},
      {"an attribute away from its INSERT",
       model(insert + seqend + kLine + attribute),
       "R member-misplaced@+50",
       {"ATTRIB: 5=51 330=50"}},
      {"an attribute without INSERT", model(kLine + attribute), "E attribute-alone@+24", {"LINE: 5=41"}},
      {"a vertex without POLYLINE",
       model("0 VERTEX|5 51|330 50|100 AcDbEntity|8 0"),
       "E vertex-alone@+4",
       {}},
      {"SEQEND alone", model(kLine + seqend), "R seqend-alone@+24", {"LINE: 5=41"}},
      {"an object's owner missing",
       objects(dictionary + "0 XRECORD|5 D|330 99|100 AcDbXrecord|"),
       "R wrong-owner@+14",
       {"XRECORD: 5=D 330=C"}},
      {"owners in a circle",
       objects(dictionary + "0 XRECORD|5 D|330 E|100 AcDbXrecord|0 XRECORD|5 E|330 D|100 AcDbXrecord|"),
       "R cyclic-owner@+14",
       {"XRECORD: 5=D 330=C", "XRECORD: 5=E 330=D"}},
      {"the root dictionary is owned",
       objects("0 DICTIONARY|5 C|330 99|100 AcDbDictionary|281 1|"),
       "R root-dictionary-owner@+4",
       {"DICTIONARY: 5=C 330=0 100="}},
  };
  for (const Case& c : cases) check(c);
}

TEST(RecoverTest, MakesPeaceWithEveryCut) {
  for (const bool binary : {false, true}) {
    const std::string text = binary ? toBinary(smallDrawing()) : smallDrawing();
    const std::size_t step = binary ? 37 : 29; // every record is hit, at many places
    for (std::size_t length = text.size() / 40; length < text.size(); length += step) {
      const Recovered recovered = recover(text.substr(0, length));
      EXPECT_FALSE(recovered.findings.empty()) << length;
      expectSound(recovered, "cut at " + std::to_string(length));
    }
  }
}

TEST(RecoverTest, CutsAtRecordsLoseNothingBeforeThem) {
  const std::string text = smallDrawing();
  const OdDbDatabasePtr whole = OdDbDatabase::createObject();
  odDbReadBytes(*whole, text, nullptr, L"test.dxf");
  std::size_t compared = 0;
  for (std::size_t cut = text.find("TABLES"); cut != std::string::npos;
       cut = text.find("\n  0\r\n", cut + 1)) {
    const Recovered recovered = recover(text.substr(0, cut + 1));
    odDbVisitAll(whole->store(), [&](const OdDbStub* stub) {
      if (!stub->raw || stub->raw + stub->rawSize > text.data() + cut + 1) return;
      const OdDbStub* kept = recovered.database->store().find(stub->handle);
      ASSERT_TRUE(kept) << describe(const_cast<OdDbStub*>(stub)) << " when cut at " << cut;
      EXPECT_EQ(kept->dxfName(), stub->dxfName());
      ++compared;
    });
  }
  EXPECT_GT(compared, 300u);
}

TEST(RecoverTest, DamageOfEveryLineIsSurvived) {
  const std::string text = smallDrawing({"AC1032", "\n", false});
  std::vector<std::size_t> lines{0};
  for (std::size_t i = 0; i < text.size(); ++i)
    if (text[i] == '\n') lines.push_back(i + 1);
  for (std::size_t i = 0; i + 1 < lines.size(); i += 3) {
    const std::string line = text.substr(lines[i], lines[i + 1] - lines[i]);
    const std::string before = text.substr(0, lines[i]);
    const std::string after = text.substr(lines[i + 1]);
    for (const std::string& instead : {std::string(), line + line, std::string("0\n"), std::string("?\n")}) {
      std::string damaged = before;
      damaged.append(instead).append(after);
      expectSound(recover(damaged), "line " + std::to_string(i));
    }
  }
}

TEST(RecoverTest, ManyOfOneKindAreCounted) {
  std::string groups;
  for (int i = 0; i < 1000; ++i) groups += kLine;
  const Recovered recovered = recover(model(groups));
  ASSERT_EQ(recovered.findings.size(), 101u);
  EXPECT_EQ(recovered.findings.back().sentence, "the same was found 899 more times");
  EXPECT_EQ(recovered.findings.back().times, 899u);
  for (std::size_t i = 0; i < recovered.findings.size(); ++i)
    EXPECT_EQ(recovered.findings[i].number, static_cast<int>(i) + 1);
}

TEST(RecoverTest, WhatIsNoDrawingIsRefused) {
  struct Refused {
    std::string text;
    const char* error;
  };
  const Refused cases[] = {
      {"", "test.dxf: the file is empty"},
      {"\x89PNG\r\n\x1A\n", "test.dxf: line 1: expected a group code, met \"?PNG\""},
      {"AC1032" + std::string(30, '\0'), "test.dxf: this is a DWG drawing; only DXF is supported"},
      {"once upon a time\nthere was a file\n",
       "test.dxf: line 1: expected a group code, met \"once upon a time\""},
  };
  for (const Refused& c : cases) {
    try {
      recover(c.text);
      ADD_FAILURE() << c.text;
    } catch (const OdDbDxfRecoverError& error) {
      EXPECT_STREQ(error.what(), c.error);
    }
  }
}

} // namespace
