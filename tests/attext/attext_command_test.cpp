// The command from the host's side: a drawing, the answers of a user, and the file that comes of it.
#include "DbStore.h"
#include "extraction.h"
#include "support/drawings.h"
#include <gmock/gmock.h>

namespace {

using host::RunResult;

class AttExt : public Extraction {
protected:
  static constexpr const char* kTwoColumns = "TAG1 C010000\nBL:X N010003\n";
};

TEST_F(AttExt, CdfQuotesCharactersAndAlignsRight) {
  insert(addBlock(L"Door"), {12.5, 0, 0}, {{"TAG1", "AB"}});
  EXPECT_EQ(extract("cdf", kTwoColumns), "     'AB',      12.5\n");
  EXPECT_EQ(lastLine(), "1 objects in extract file.");
}

TEST_F(AttExt, SdfHasAHeadingAndAlignsLeft) {
  insert(addBlock(L"Door"), {12.5, 0, 0}, {{"TAG1", "AB"}});
  EXPECT_EQ(extract("sdf", kTwoColumns), "(TAG1)    (BL:X)    \n"
                                         "AB        12.5      \n");
}

TEST_F(AttExt, LongValuesPushTheFollowingColumns) {
  insert(addBlock(L"Door"), {1, 2, 0}, {{"TAG1", "a long value"}});
  EXPECT_EQ(extract("cdf", "TAG1 C005000 BL:X N004000 BL:Y N004000"), "'a long value', 1.,  2.\n");
  EXPECT_EQ(extract("sdf", "TAG1 C005000 BL:X N004000"), "(TAG1)(BL:X)\na long value 1.  \n");
}

TEST_F(AttExt, WidthsCountCharacters) {
  insert(addBlock(L"Tür"), {0, 0, 0}, {{"TAG1", "Küche"}});
  EXPECT_EQ(extract("sdf", "TAG1 C007000 BL:NAME C004000 BL:LEVEL C000000"),
            "(TAG1) (BL:NAME)(BL:LEVEL)\nKüche  Tür 1\n");
}

TEST_F(AttExt, BlockKeywords) {
  const OdDbBlockReferencePtr reference = insert(addBlock(L"Door"), {1, -2.5, 1e6});
  reference->setRotation(OdaPI2);
  reference->setScaleFactors(OdGeScale3d(1, -2, 0.01));
  const std::pair<const char*, std::string> cases[] = {
      {"BL:NAME", "Door"},
      {"BL:LAYER", "0"},
      {"BL:HANDLE", reference->getDbHandle().ascii().toUtf8()},
      {"BL:X", "1."},
      {"BL:Y", "-2.5"},
      {"BL:Z", "1.e+006"},
      {"BL:ORIENT", "1.5708"},
      {"BL:XSCALE", "1."},
      {"BL:YSCALE", "-2."},
      {"BL:ZSCALE", "1.e-002"},
      {"BL:LEVEL", "1"},
      {"BL:NUMBER", "$Number$"},
      {"BL:XEXTRUDE", "0."},
      {"BL:YEXTRUDE", "0."},
      {"BL:ZEXTRUDE", "1."},
      {"BL:name", ""},
      {"BL:", ""},
      {"BL:XX", ""},
  };
  for (const auto& [keyword, value] : cases)
    EXPECT_EQ(extract("cdf", std::string(keyword) + " N000000"), value + "\n") << keyword;
}

TEST_F(AttExt, TagsAreComparedWholeAndTheLastMatchCounts) {
  insert(addBlock(L"Door"), {}, {{"NR", "1"}, {"nr", "2"}, {"NR", "3"}, {"NR2", "4"}, {"bl:NAME", "5"}});
  EXPECT_EQ(extract("cdf", "NR N000000 nr N000000 N N000000 NR N000000 bl:NAME N000000"), "3,2,,3,5\n");
}

TEST_F(AttExt, MultilineValuesGoByTheirOriginalTagInBothStoredForms) {
  const struct {
    OdDb::DwgVersion version;
    const char* stored; ///< what the record itself holds
  } cases[] = {{OdDb::vAC27, "NOTE_001"}, {OdDb::vAC32, "Embedded Object"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.stored);
    session.database()->store().version = c.version;
    const OdDbBlockReferencePtr reference =
        insert(addBlock(L"Door" + OdString(std::to_wstring(c.version))), {});
    const OdDbAttributePtr attribute = OdDbAttribute::createObject();
    attribute->setTag(L"NOTE");
    attribute->convertIntoMTextAttribute();
    attribute->setTextString(L"one\\Ptwo");
    reference->appendAttribute(attribute);
    EXPECT_NE(test::savedBytes(*session.database()).find(c.stored), std::string::npos);
    EXPECT_EQ(extract("cdf", "NOTE C000000 NOTE_001 C000000"), "'one\\Ptwo',''\n");
    reference->erase();
  }
}

TEST_F(AttExt, SeparatorsOfTheTemplate) {
  insert(addBlock(L"Door"), {}, {{"A", "x"}, {"B", "y"}});
  const char* columns = " A C000000 B C000000";
  EXPECT_EQ(extract("cdf", std::string("C:DELIM ;;") + columns), "'x';;'y'\n");
  EXPECT_EQ(extract("cdf", columns), "'x','y'\n") << "each run begins with its own delimiter";
  EXPECT_EQ(extract("sdf", std::string("c:delim | c:quote \"") + columns), "(A)(B)\nx|y\n");
  EXPECT_EQ(extract("cdf", columns), "\"x\",\"y\"\n") << "a quote stays as long as the module is loaded";
}

TEST_F(AttExt, RecordsAreGroupedByDefinition) {
  const OdDbObjectId door = addBlock(L"Door"), desk = addBlock(L"Desk");
  insert(desk, {1, 0, 0});
  insert(door, {2, 0, 0});
  addLine();
  insert(desk, {3, 0, 0});
  insert(door, {4, 0, 0});
  EXPECT_EQ(extract("cdf", "BL:NAME N000000 BL:X N000000"), "Door,2.\nDoor,4.\nDesk,1.\nDesk,3.\n");
  EXPECT_EQ(lastLine(), "4 objects in extract file.");
}

TEST_F(AttExt, WithoutRecordsNoFileIsMadeAndTheRunDidNotSucceed) {
  struct Case {
    const char* name;
    const char* templateText;
  };
  const Case cases[] = {{"no column", "C:DELIM ; C:QUOTE \""}, {"empty template", ""}};
  insert(addBlock(L"Door"), {});
  for (const Case& c : cases) {
    EXPECT_EQ(extract("cdf", c.templateText), "(none)") << c.name;
    EXPECT_EQ(lastLine(), "0 objects in extract file.") << c.name;
  }
}

TEST_F(AttExt, OnlyLinesSelected) {
  addLine();
  EXPECT_EQ(extract("cdf", kTwoColumns), "(none)");
  EXPECT_EQ(lastLine(), "0 objects in extract file.");
  EXPECT_EQ(extract("dxx", ""), "");
  EXPECT_EQ(lastLine(), "0 objects in extract file.");
}

TEST_F(AttExt, OutputThatCannotBeWritten) {
  insert(addBlock(L"Door"), {});
  write("template.txt", kTwoColumns);
  for (const std::string format : {"cdf", "dxx"}) {
    EXPECT_EQ(run("press select\nset template = " + path("template.txt") + "\ntick " + format +
                  "\nset output = " + path("no/such/folder.txt") + "\npress ok"),
              RunResult::cancelled);
    EXPECT_EQ(lastLine(), "0 objects in extract file.");
  }
}

TEST_F(AttExt, DxxHoldsWhatEachReferenceWrites) {
  const OdDbBlockReferencePtr reference = insert(addBlock(L"Door"), {12.5, 1, 0}, {{"TAG1", "AB"}});
  reference->setRotation(OdaPI2);
  const std::string handle = reference->getDbHandle().ascii().toUtf8();
  addLine();
  insert(addBlock(L"Desk"), {});
  const std::string text = extract("dxx", "");
  EXPECT_THAT(text, testing::StartsWith("\t0\nINSERT\n\t5\n" + handle + "\n\t100\nAcDbEntity\n"));
  EXPECT_THAT(text, testing::HasSubstr("\t2\nDoor\n\t10\n12.500000\n\t20\n1.000000\n\t30\n0.000000\n"));
  EXPECT_THAT(text, testing::HasSubstr("\n\t50\n1.57\n"));
  EXPECT_THAT(text, testing::HasSubstr("\t10\n0.000000\n\t20\n0.000000\n\t30\n1.000000\nEOF\n\t0\nINSERT\n"));
  EXPECT_THAT(text, testing::EndsWith("\nEOF\n"));
  EXPECT_THAT(text, testing::Not(testing::HasSubstr("\t330\n")));
  EXPECT_THAT(text, testing::Not(testing::HasSubstr("AB")));
  EXPECT_EQ(lastLine(), "2 objects in extract file.");
}

TEST_F(AttExt, CancelWritesAndPrintsNothing) {
  insert(addBlock(L"Door"), {});
  EXPECT_EQ(run("press select\npress cancel"), RunResult::cancelled);
  EXPECT_THAT(lines.printed, testing::ElementsAre("1 found."));
}

TEST_F(AttExt, SucceedsWithARecord) {
  insert(addBlock(L"Door"), {});
  write("t.txt", kTwoColumns);
  EXPECT_EQ(
      run("press select\nset template = " + path("t.txt") + "\nset output = " + path("o.txt") + "\npress ok"),
      RunResult::completed);
}

} // namespace
