// Names of files that only this system allows.
#include "program.h"
#include <gmock/gmock.h>

namespace {

TEST(Extract, PathsMayHoldQuotesAndEndInBlanks) {
  const Workplace workplace;
  workplace.write("a = \"b\" .tpl", "NUMBER C008000");
  const std::string output = " ;ö = x '{}\".txt ";
  EXPECT_EQ(workplace.hbhost({"extract", "examples/office.dxf", "-t", "a = \"b\" .tpl", "-o", output}).err,
            "");
  EXPECT_TRUE(workplace.has(output));
}

} // namespace
