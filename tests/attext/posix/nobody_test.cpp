#include "extraction.h"
#include <gmock/gmock.h>

namespace {

TEST_F(Extraction, NobodyToAnswerTheDialogFailsTheCommand) {
  session.setDialogUser(nullptr);
  EXPECT_EQ(session.execute(L"AttExt"), host::RunResult::failed);
  EXPECT_THAT(lastLine(), testing::HasSubstr("cannot be shown: nobody is there to answer it."));
}

} // namespace
