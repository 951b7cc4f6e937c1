#include "program.h"
#include <gmock/gmock.h>

namespace {

TEST(ByHand, IsRefusedWhereThereAreNoWindows) {
  const Workplace workplace;
  const Outcome outcome = workplace.hbhost({"examples/office.dxf", "--by-hand", "-c", "AttExt"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out + outcome.err,
              testing::HasSubstr(
                  "The dialog \"Extract of attributes\" cannot be shown: nobody is there to answer it."));
}

} // namespace
