#include "frame/input.h"
#include <gmock/gmock.h>

namespace {

using frame::AnswerKind;

TEST(Answers, AreClassifiedByTheirCodes) {
  struct Case {
    int code;
    AnswerKind kind;
    int keyword;
    CMD_RUNSTATUS status;
  };
  const Case cases[] = {
      {-2, AnswerKind::cancel, 0, kCmdCancelled}, {-1, AnswerKind::value, 0, kCmdCompleted},
      {1, AnswerKind::empty, 0, kCmdCompleted},   {2, AnswerKind::keyword, 1, kCmdCompleted},
      {6, AnswerKind::keyword, 5, kCmdCompleted},
  };
  for (const Case& c : cases) {
    const frame::Answer answer = frame::classifyAnswer(c.code);
    EXPECT_EQ(answer.kind, c.kind) << c.code;
    EXPECT_EQ(answer.keyword, c.keyword) << c.code;
    EXPECT_EQ(frame::statusAfter(c.code), c.status) << c.code;
  }
}

} // namespace
