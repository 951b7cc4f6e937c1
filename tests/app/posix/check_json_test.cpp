// Checks by lines of the shell: of many files, and reports as another program reads them.
#include "program.h"
#include <gmock/gmock.h>

namespace {

constexpr char kHead[] = "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1015\n9\n$"
                         "HANDSEED\n5\n100\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n";
constexpr char kLine[] = "0\nLINE\n5\n20\n100\nAcDbEntity\n8\n0\n100\nAcDbLine\n10\n0\n20\n0\n11\n1\n21\n1\n";
const std::string kTorn = std::string(kHead) + kLine + "10\nx\n0\nENDSEC\n";

TEST(Check, TheExamplesAreSound) {
  const Workplace workplace;
  const Outcome outcome = workplace.shell("hbhost check examples/*.dxf examples/small/*.dxf");
  EXPECT_EQ(outcome.status, 0) << outcome.out;
  EXPECT_THAT(outcome.out, testing::HasSubstr("examples/small/rich_r2018.dxf: sound\n"));
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
