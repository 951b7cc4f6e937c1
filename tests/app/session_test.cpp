// Sessions from scripts, and the batch form of extraction.
#include "program.h"
#include <gmock/gmock.h>

namespace {

constexpr char kColumns[] = "NUMBER C008000 NAME C012000 BL:X N008002";
const std::string kTwoRooms =
    "\r\nAttExt\npress Select Objects\npick 2100,5250\n; the second one\npick 5800,5250\n\n"
    "set Template = columns.tpl\nset Output = rooms.txt\n\n";
constexpr char kLineOnly[] =
    "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1015\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n"
    "0\nLINE\n5\n20\n100\nAcDbEntity\n8\n0\n100\nAcDbLine\n10\n0\n20\n0\n11\n1\n21\n1\n"
    "0\nENDSEC\n0\nEOF\n";

TEST(Session, RunsCommandsFromEverywhere) {
  const Workplace workplace;
  workplace.write("text.scr", "elxtest\r\nfrom a file");
  EXPECT_EQ(workplace.hbhost({}, "ElxTest\nfrom a pipe\n").err, "Inputed Text is from a pipe.\n");
  EXPECT_EQ(workplace.hbhost({"-c", "_elxtest", "-c", "  blanks count "}).err,
            "Inputed Text is   blanks count .\n");
  EXPECT_EQ(workplace.hbhost({"-c", "El", "-c", "first", "-s", "text.scr"}).err,
            "Inputed Text is first.\nInputed Text is from a file.\n");
  EXPECT_EQ(workplace.hbhost({"-s", "-"}, "ElxTest\nonce\n\ntwice\nQUIT\nElxTest\n").err,
            "Inputed Text is once.\nInputed Text is twice.\n");
}

TEST(Session, EchoShowsWhatATerminalWould) {
  const Workplace workplace;
  EXPECT_EQ(workplace.hbhost({"--echo", "-c", "ElxTest", "-c", "hello"}).err,
            "Command: ElxTest\nText: hello\nInputed Text is hello.\n");
}

TEST(Session, ScriptWorksTheExtractionDialog) {
  const Workplace workplace;
  workplace.write("columns.tpl", kColumns);
  const Outcome outcome = workplace.hbhost({"examples/office.dxf"}, kTwoRooms);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "1 found.\n1 found, 2 selected.\n2 objects in extract file.\n");
  EXPECT_EQ(workplace.read("rooms.txt"), " '3.01',     'Büro',   2100.\n '3.02',   'Bureau',   5800.\n");
}

TEST(Session, SavesByteForByteWhatNobodyChanged) {
  const Workplace workplace;
  const std::string before = workplace.read("examples/office.dxf");
  EXPECT_EQ(workplace.hbhost({"examples/office.dxf", "--save-as", "copy.dxf", "-c", "?"}).status, 0);
  EXPECT_TRUE(workplace.read("copy.dxf") == before);
  EXPECT_EQ(workplace.hbhost({"examples/office.dxf", "--save", "-c", "?"}).status, 0);
  EXPECT_TRUE(workplace.read("examples/office.dxf") == before);
  EXPECT_EQ(workplace.hbhost({"examples/office.dxf"}, "SAVEAS\nother name.dxf\nSAVEAS\n\n").err,
            "Saved to other name.dxf.\nSaved to other name.dxf.\n");
  EXPECT_TRUE(workplace.read("other name.dxf") == before);
}

/// A drawing of 2000 with one reference whose tag VALUE holds these bytes.
std::string oneValue(const std::string& codePage, const std::string& value) {
  return "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1015\n9\n$DWGCODEPAGE\n3\n" + codePage +
         "\n0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n5\n10\n2\nDOOR\n0\nENDBLK\n5\n11\n0\nENDSEC\n"
         "0\nSECTION\n2\nENTITIES\n0\nINSERT\n5\n20\n66\n1\n2\nDOOR\n0\nATTRIB\n5\n21\n100\nAcDbText\n1\n" +
         value + "\n100\nAcDbAttribute\n2\nVALUE\n0\nSEQEND\n5\n22\n0\nENDSEC\n0\nEOF\n";
}

TEST(Encoding, IsToldWhereItIsDoubtfulAndCanBeNamed) {
  const Workplace workplace;
  workplace.write("columns.tpl", "VALUE C000000");
  workplace.write("plan.dxf", oneValue("ANSI_1252", "\xCF\xF0"));
  workplace.write("utf8.dxf", oneValue("ANSI_1252", "\xC3\xA9"));
  const std::string note = "hbhost: utf8.dxf: note: the header names the code page \"ANSI_1252\", but 1 text "
                           "beyond ASCII (in line 50) is UTF-8; --encoding UTF-8 reads it so.\n";
  const auto extract = [&](const char* drawing, const char* encoding) {
    std::vector<std::string> line = {"extract", drawing, "-t", "columns.tpl", "-o", "out.txt"};
    if (*encoding) line.insert(line.end(), {"--encoding", encoding});
    const Outcome outcome = workplace.hbhost(line);
    return outcome.err + (outcome.status == 0 ? workplace.read("out.txt") : std::to_string(outcome.status));
  };
  EXPECT_EQ(extract("plan.dxf", ""), "'Ïð'\n");
  EXPECT_EQ(extract("plan.dxf", "cp1251"), "'Пр'\n");
  EXPECT_EQ(extract("utf8.dxf", ""), note + "'Ã©'\n");
  EXPECT_EQ(extract("utf8.dxf", "UTF-8"), "'é'\n");
  EXPECT_THAT(
      extract("utf8.dxf", "martian"),
      testing::AllOf(testing::StartsWith("hbhost: --encoding: \"martian\" is no known encoding; known are "
                                         "UTF-8; "),
                     testing::EndsWith("\n2")));
  // A session tells it as well, also where OPEN reads the drawing, and saves what was read.
  EXPECT_EQ(workplace.hbhost({"utf8.dxf", "-c", "?"}).err.substr(0, note.size()), note);
  EXPECT_EQ(workplace.hbhost({}, "OPEN\nutf8.dxf\n").err, note);
  EXPECT_EQ(workplace.hbhost({"--encoding", "1251"}, "OPEN\nplan.dxf\nSAVE\n").err, "Saved to plan.dxf.\n");
  EXPECT_EQ(extract("plan.dxf", ""), "'Пр'\n");
}

TEST(Saving, KeepsTheDrawingAsItWasBeforeTheSession) {
  const Workplace workplace;
  const std::string before = oneValue("ANSI_1252", "old");
  workplace.write("plan.dxf", before);
  const std::string session = "SAVE\nSAVEAS\n./plan.dxf\n";
  EXPECT_EQ(workplace.hbhost({"plan.dxf", "--save", "--no-check"}, session).status, 0);
  EXPECT_FALSE(workplace.has("plan.dxf.bak"));
  workplace.write("plan.dxf", before);
  EXPECT_EQ(workplace.hbhost({"plan.dxf", "--save", "--backup"}, session).status, 0);
  EXPECT_EQ(workplace.read("plan.dxf.bak"), before);
  EXPECT_NE(workplace.read("plan.dxf"), before) << "the file lacks the block of model space";
}

TEST(Session, SavesOldDrawingsInANewReleaseWhenAsked) {
  const Workplace workplace;
  const std::string before = workplace.read("examples/small/old_r12.dxf");
  EXPECT_EQ(workplace.hbhost({"examples/small/old_r12.dxf", "--save-as", "same.dxf"}).err, "");
  EXPECT_TRUE(workplace.read("same.dxf") == before);
  const Outcome outcome =
      workplace.hbhost({"examples/small/old_r12.dxf", "--save-as", "new.dxf", "--release", "2000"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "hbhost: new.dxf: note: saved as a drawing of release 2000.\n");
  EXPECT_NE(workplace.read("new.dxf").find("AC1015"), std::string::npos);
  EXPECT_EQ(workplace.hbhost({"examples/office.dxf", "--save-as", "no.dxf", "--release", "2000"}).status, 4);
  EXPECT_FALSE(workplace.has("no.dxf"));
}

TEST(Session, CancelledCommandDoesNotKeepFromSaving) {
  const Workplace workplace;
  EXPECT_EQ(workplace.hbhost({"--save-as", "new.dxf"}, "ElxTest\n^C\n").status, 1);
  EXPECT_TRUE(workplace.has("new.dxf"));
  EXPECT_EQ(workplace.hbhost({"new.dxf", "-c", "?"}).status, 0);
}

TEST(Session, OpenExchangesTheDrawing) {
  const Workplace workplace;
  workplace.write("columns.tpl", kColumns);
  const Outcome outcome = workplace.hbhost({}, "OPEN\nexamples/office.dxf" + kTwoRooms.substr(1));
  EXPECT_EQ(outcome.err, "1 found.\n1 found, 2 selected.\n2 objects in extract file.\n");
}

TEST(Extract, OneBadDrawingDoesNotStopTheRest) {
  const Workplace workplace;
  workplace.write("columns.tpl", kColumns);
  workplace.write("bad.dxf", "hello\n");
  const Outcome outcome =
      workplace.hbhost({"extract", "examples/office.dxf", "bad.dxf", "examples/small/rich_r2018.dxf", "-t",
                        "columns.tpl", "-f", "SDF", "-o", "{name}-{name}.txt"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(
      outcome.err,
      "hbhost: bad.dxf: line 1: expected a group code, met \"hello\" (damaged drawings open with --recover)\n"
      "hbhost: 1 of 3 drawings failed.\n");
  EXPECT_EQ(outcome.out,
            "examples/office.dxf: 623 objects, 231 records -> office-office.txt\n"
            "examples/small/rich_r2018.dxf: 10 objects, 5 records -> rich_r2018-rich_r2018.txt\n");
  const std::string heading = "(NUMBER)(NAME)      (BL:X)  \n";
  EXPECT_TRUE(workplace.read("office-office.txt").starts_with(heading));
  EXPECT_TRUE(workplace.read("rich_r2018-rich_r2018.txt").starts_with(heading));
}

TEST(Extract, WritesToTheStandardOutput) {
  const Workplace workplace;
  workplace.write("columns.tpl", kColumns);
  const Outcome outcome =
      workplace.hbhost({"extract", "examples/office.dxf", "-t", "columns.tpl", "-o", "-"});
  EXPECT_EQ(outcome.err, "examples/office.dxf: 623 objects, 231 records -> standard output\n");
  EXPECT_NE(outcome.out.find(" '3.01',     'Büro',   2100.\n"), std::string::npos);
  EXPECT_EQ(std::ranges::count(outcome.out, '\n'), 231);
}

TEST(Extract, FolderTakesOneFileForEachDrawing) {
  const Workplace workplace;
  std::filesystem::create_directory(workplace.path("out"));
  const Outcome outcome = workplace.hbhost(
      {"extract", "examples/office.dxf", "examples/small/rich_r2000.dxf", "--format", "dxx", "-o", "out"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_TRUE(workplace.has("out/office.dxx"));
  EXPECT_TRUE(workplace.has("out/rich_r2000.dxx"));
}

TEST(Extract, PathsMayHoldAnything) {
  const Workplace workplace;
  workplace.write("a = 'b' .tpl", kColumns);
  const std::string output = " ;ö = \U0001F600 '{}.txt";
  EXPECT_EQ(workplace.hbhost({"extract", "examples/office.dxf", "-t", "a = 'b' .tpl", "-o", output}).err, "");
  EXPECT_TRUE(workplace.has(output));
}

TEST(Extract, TellsWhyThereIsNothing) {
  const Workplace workplace;
  workplace.write("columns.tpl", kColumns);
  workplace.write("line.dxf", kLineOnly);
  workplace.hbhost({"--save-as", "blank.dxf", "-c", "?"});
  const Outcome outcome =
      workplace.hbhost({"extract", "line.dxf", "blank.dxf", "-t", "columns.tpl", "-o", "{name}.txt"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "hbhost: line.dxf: there is no block reference among the 1 object in model space.\n"
                         "hbhost: blank.dxf: there is no object in model space.\n"
                         "hbhost: 2 of 2 drawings failed.\n");
  EXPECT_FALSE(workplace.has("line.txt"));
}

TEST(Extract, TakesTheObjectsOfALayout) {
  const Workplace workplace;
  workplace.write("columns.tpl", "BL:NAME C001000");
  const auto records = [&](const std::string& layout) {
    return workplace
        .hbhost({"extract", "examples/office.dxf", "-t", "columns.tpl", "-o", "-", "--layout", layout})
        .out;
  };
  EXPECT_EQ(records("A3 Grundriss"), "'NORTH'\n'TITLE_BLOCK'\n");
  EXPECT_EQ(std::ranges::count(records("model"), '\n'), 231);
}

} // namespace
