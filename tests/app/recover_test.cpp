// Damaged drawings through the program: recovered, extracted, checked.
#include "program.h"
#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;

constexpr char kHead[] = "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1015\n9\n$"
                         "HANDSEED\n5\n100\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n";
constexpr char kLine[] = "0\nLINE\n5\n20\n100\nAcDbEntity\n8\n0\n100\nAcDbLine\n10\n0\n20\n0\n11\n1\n21\n1\n";
constexpr char kTail[] = "0\nENDSEC\n0\nEOF\n";
const std::string kSound = std::string(kHead) + kLine + kTail;
const std::string kTwice = std::string(kHead) + kLine + kLine + kTail;
const std::string kTorn = std::string(kHead) + kLine + "10\nx\n0\nENDSEC\n";

TEST(Recover, OpensWhatTheStrictDoorRefuses) {
  const Workplace workplace;
  workplace.write("twice.dxf", kTwice);
  const Outcome strict = workplace.hbhost({"twice.dxf", "-c", "?"});
  EXPECT_EQ(strict.status, 3);
  EXPECT_EQ(strict.err,
            "hbhost: twice.dxf: line 37: the handle 20 of LINE is already used by LINE in line 21 "
            "(damaged drawings open with --recover)\n");
  const Outcome recovered =
      workplace.hbhost({"twice.dxf", "--recover", "--save-as", "saved.dxf", "-c", "ElxTest", "-c", "x"});
  EXPECT_EQ(recovered.status, 0);
  EXPECT_EQ(recovered.err,
            "twice.dxf: repairs:\n"
            "  1. line 37: the handle of LINE 20 is already used by LINE in line 19: it becomes 100 "
            "[duplicate-handle]\n"
            "twice.dxf: 0 errors, 1 repair.\nInputed Text is x.\n");
  EXPECT_EQ(workplace.hbhost({"check", "saved.dxf"}).out, "saved.dxf: sound\n");
  EXPECT_EQ(workplace.read("twice.dxf"), kTwice);
}

TEST(Recover, ErrorsStandApartFromRepairs) {
  const Workplace workplace;
  workplace.write("torn.dxf", kTorn);
  EXPECT_EQ(workplace.hbhost({"torn.dxf", "--recover", "-c", "ElxTest", "-c", "x"}).err,
            "torn.dxf: errors:\n"
            "  1. line 37: group 10 of LINE 20 has the value \"x\": the group is left out [malformed-value]\n"
            "torn.dxf: repairs:\n"
            "  2. line 41: the file ends without EOF: the end was put there [end-missing]\n"
            "torn.dxf: 1 error, 1 repair.\nInputed Text is x.\n");
  workplace.write("none.dxf", "hello\n");
  const Outcome none = workplace.hbhost({"none.dxf", "--recover", "-c", "?"});
  EXPECT_EQ(none.status, 3);
  EXPECT_THAT(none.err, HasSubstr("hbhost: none.dxf: line 1: expected a group code, met \"hello\"\n"));
}

TEST(Recover, ExtractsFromDamagedDrawings) {
  const Workplace workplace;
  std::string office = workplace.read("examples/office.dxf");
  office.resize(office.rfind("ENDSEC") - 5);
  workplace.write("cut.dxf", office);
  workplace.write("columns.tpl", "NUMBER C008000");
  const std::vector<std::string> arguments = {"extract", "cut.dxf", "-t", "columns.tpl", "-o", "cut.txt"};
  EXPECT_EQ(workplace.hbhost(arguments).status, 3);
  std::vector<std::string> recovering = arguments;
  recovering.emplace_back("--recover");
  const Outcome outcome = workplace.hbhost(recovering);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "cut.dxf: 623 objects, 231 records -> cut.txt\n");
  EXPECT_THAT(outcome.err, HasSubstr("cut.dxf: 0 errors, 2 repairs.\n"));
}

TEST(Check, TellsTheWorstByItsStatus) {
  const Workplace workplace;
  workplace.write("sound.dxf", kSound);
  workplace.write("twice.dxf", kTwice);
  workplace.write("torn.dxf", kTorn);
  workplace.write("none.dxf", "hello\n");
  struct Row {
    std::vector<std::string> drawings;
    int status;
    const char* last;
  };
  const Row rows[] = {
      {{"sound.dxf"}, 0, "sound.dxf: sound\n"},
      {{"sound.dxf", "twice.dxf"}, 1, "\ntwice.dxf: repairable: 0 errors, 1 repair\n"},
      {{"torn.dxf"}, 1, "\ntorn.dxf: damaged: 1 error, 1 repair\n"},
      {{"none.dxf"}, 3, "\nnone.dxf: unreadable\n"},
      {{"nowhere.dxf", "twice.dxf"}, 3, "nowhere.dxf: No such file or directory\nnowhere.dxf: unreadable\n"},
  };
  for (const Row& row : rows) {
    std::vector<std::string> arguments = {"check"};
    arguments.insert(arguments.end(), row.drawings.begin(), row.drawings.end());
    const Outcome outcome = workplace.hbhost(arguments);
    EXPECT_EQ(outcome.status, row.status) << row.last;
    EXPECT_THAT(outcome.out, HasSubstr(row.last));
    EXPECT_EQ(outcome.err, "");
  }
}

TEST(Check, TheExamplesAreSound) {
  const Workplace workplace;
  const Outcome outcome = workplace.shell("hbhost check examples/*.dxf examples/small/*.dxf");
  EXPECT_EQ(outcome.status, 0) << outcome.out;
  EXPECT_THAT(outcome.out, HasSubstr("examples/small/rich_r2018.dxf: sound\n"));
}

TEST(Check, WritesOneJsonDocument) {
  const Workplace workplace;
  workplace.write("torn.dxf", kTorn);
  workplace.write("none.dxf", "hello\n");
  workplace.write(
      "read.py", "import json,sys\n"
                 "torn, none = json.load(sys.stdin)['drawings']\n"
                 "print(torn['path'], torn['release'], torn['form'], torn['status'], torn['counts'])\n"
                 "for f in torn['findings']: print(f['number'], f['kind'], f['id'], f['line'], f['handle'])\n"
                 "print(none['release'], none['form'], none['status'], none['error'])\n");
  EXPECT_EQ(workplace.shell("hbhost check torn.dxf none.dxf --json | python3 read.py").out,
            "torn.dxf AC1015 ascii damaged {'objects': 5, 'errors': 1, 'repairs': 1}\n"
            "1 error malformed-value 37 20\n"
            "2 repair end-missing 41 None\n"
            "None None unreadable none.dxf: line 1: expected a group code, met \"hello\"\n");
}

} // namespace
