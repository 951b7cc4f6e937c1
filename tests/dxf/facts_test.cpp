// Drawings that are not quite as they should be, but occur and open.
#include "DbBlockReference.h"
#include "DbObject.h"
#include "dxf_text.h"
#include "support/drawings.h"
#include <gmock/gmock.h>

namespace {

using test::drawingFromText;
using test::savedBytes;
using testing::ElementsAre;

std::vector<std::string> membersOf(const OdDbStub* stub) {
  std::vector<std::string> names;
  for (OdDbStub* member = stub->children ? stub->children->first : nullptr; member; member = member->next)
    names.push_back(member->dxfName());
  return names;
}

constexpr const char* kInsert =
    "0 INSERT|5 42|330 1F|100 AcDbEntity|8 0|100 AcDbBlockReference|2 Door|10 5.0|20 5.0\n";
constexpr const char* kFlagged =
    "0 INSERT|5 42|330 1F|100 AcDbEntity|8 0|100 AcDbBlockReference|66 1|2 Door|10 5.0|20 5.0\n";
constexpr const char* kAttribute =
    "0 ATTRIB|5 43|330 1F|100 AcDbEntity|8 0|100 AcDbText|1 v|100 AcDbAttribute|2 T\n";
constexpr const char* kEnd = "0 SEQEND|5 44|330 1F|100 AcDbEntity|8 0\n";
constexpr const char* kLine = "0 LINE|5 45|330 1F|100 AcDbEntity|8 0|100 AcDbLine|10 1.0|20 2.0\n";

TEST(FactsTest, AttributesBelongToTheReferenceBeforeThem) {
  struct Case {
    const char* what;
    std::vector<const char*> records;
    std::vector<std::string> members;
    bool unchangedWhenSaved;
  };
  const Case cases[] = {
      {"owner is the layout", {kFlagged, kAttribute, kEnd, kLine}, {"ATTRIB", "SEQEND"}, true},
      {"flag missing", {kInsert, kAttribute, kEnd, kLine}, {"ATTRIB", "SEQEND"}, true},
      {"flag, but no attribute", {kFlagged, kLine}, {}, true},
      {"flag and end mark only", {kFlagged, kEnd, kLine}, {"SEQEND"}, true},
      {"end mark missing", {kFlagged, kAttribute, kLine}, {"ATTRIB", "SEQEND"}, false},
      {"end mark missing at the end", {kLine, kFlagged, kAttribute}, {"ATTRIB", "SEQEND"}, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    std::string records;
    for (const char* record : c.records) records += record;
    const std::string text = entities(records);
    const OdDbDatabasePtr database = drawingFromText(text);
    OdDbStub* reference = database->store().find(0x42);
    EXPECT_EQ(membersOf(reference), c.members);
    EXPECT_EQ(savedBytes(*database) == text, c.unchangedWhenSaved);
    // Once the reference is edited, its record tells the truth, and so do the owners.
    std::vector<OdDbStub*> edited = {reference};
    for (OdDbStub* stub = reference->children ? reference->children->first : nullptr; stub; stub = stub->next)
      edited.push_back(stub);
    for (OdDbStub* stub : edited) OdDbObjectId(stub).safeOpenObject(OdDb::kForWrite)->mutableGroups();
    const OdDbDatabasePtr after = drawingFromText(savedBytes(*database));
    const OdDbStub* saved = after->store().find(0x42);
    const bool follows = !c.members.empty();
    EXPECT_EQ(membersOf(saved), c.members);
    EXPECT_EQ(describe(const_cast<OdDbStub*>(saved)).find(" 66=1") != std::string::npos, follows);
    for (OdDbStub* member = follows ? saved->children->first : nullptr; member; member = member->next)
      EXPECT_THAT(describe(member), testing::HasSubstr(" 330=42 "));
  }
}

TEST(FactsTest, SeedThatIsTooLowIsRaised) {
  std::string text = entities(kLine);
  const std::string seed = dxf("5 FFF");
  text.replace(text.find(seed), seed.size(), dxf("5 45"));
  const OdDbDatabasePtr database = drawingFromText(text);
  text.replace(text.find(dxf("5 45")), dxf("5 45").size(), dxf("5 46"));
  EXPECT_EQ(savedBytes(*database), text);
  EXPECT_EQ(database->store().nextHandle, 0x46u);
}

TEST(FactsTest, FilesWithFewSectionsOpenAndStayAsTheyAre) {
  const std::string files[] = {
      dxf("0 EOF"),
      dxf("0 SECTION|2 ENTITIES|0 LINE|8 0|10 1.0|20 2.0|0 ENDSEC|0 EOF", {"", "\n", false}),
      // Handles of the file that come late must not be given to records that have none.
      dxf("0 SECTION|2 TABLES|0 TABLE|2 LAYER|0 LAYER|2 0|0 ENDTAB|0 ENDSEC|0 SECTION|2 BLOCKS|0 BLOCK|2 "
          "Door|10 0.0\n"
          "0 LINE|5 1|10 0.0|0 LINE|5 2|0 ENDBLK|0 ENDSEC|0 SECTION|2 ENTITIES|0 INSERT|5 3|2 Door|0 TEXT|67 "
          "1|1 x\n"
          "0 ENDSEC|0 EOF"),
  };
  for (const std::string& text : files) {
    const OdDbDatabasePtr database = drawingFromText(text);
    EXPECT_FALSE(database->getModelSpaceId().isNull());
    EXPECT_EQ(savedBytes(*database), text);
  }
  const OdDbDatabasePtr last = drawingFromText(files[2]);
  EXPECT_THAT(membersOf(last->getModelSpaceId().stub()), ElementsAre("INSERT"));
  EXPECT_THAT(membersOf(last->getPaperSpaceId().stub()), ElementsAre("TEXT"));
  EXPECT_EQ(last->store().find(2)->dxfName(), "LINE");
}

TEST(FactsTest, MissingBlockRecordsAreMadeAndStored) {
  const std::string text = dxf("0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|0 ENDSEC|0 SECTION|2 BLOCKS\n"
                               "0 BLOCK|5 A|8 0|2 Door|0 ENDBLK|5 B|8 0|0 ENDSEC\n"
                               "0 SECTION|2 ENTITIES|0 INSERT|5 C|8 0|2 Door|0 ENDSEC|0 EOF");
  const OdDbDatabasePtr after = drawingFromText(savedBytes(*drawingFromText(text)));
  EXPECT_THAT(membersOf(after->getBlockTableId().stub()), ElementsAre("BLOCK_RECORD", "BLOCK_RECORD"));
  EXPECT_THAT(membersOf(after->getModelSpaceId().stub()), ElementsAre("INSERT"));
  EXPECT_EQ(savedBytes(*after), savedBytes(*drawingFromText(savedBytes(*after))));
}

TEST(FactsTest, ByteOrderMarkAndMissingLineEndAtTheEndAreKept) {
  std::string text = "\xEF\xBB\xBF" + entities(kLine);
  text.resize(text.size() - 2);
  EXPECT_EQ(savedBytes(*drawingFromText(text)), text);
}

} // namespace
