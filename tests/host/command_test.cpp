// Commands by name, their undo steps, and what happens when they fail. The library "probe" registers "Probe",
// which draws one point for each line of text.
#include "DbBlockTableRecord.h"
#include "lines.h"
#include "sys/library.h"
#include <gmock/gmock.h>

namespace {

using host::RunResult;
using testing::ElementsAre;
using testing::IsEmpty;

struct CommandTest : testing::Test, OpenSession {
  CommandTest() {
    std::string error;
    probe = sys::loadLibrary(PROBE_MODULE, error);
    EXPECT_NE(probe, nullptr) << error;
  }
  ~CommandTest() override { sys::freeLibrary(probe); }

  int points() const {
    const OdDbBlockTableRecordPtr space = session.database()->getModelSpaceId().safeOpenObject();
    int count = 0;
    for (OdDbObjectIteratorPtr it = space->newIterator(); !it->done(); it->step()) ++count;
    return count;
  }
  RunResult run(const wchar_t* name, std::initializer_list<const char*> answers = {}) {
    lines.type(answers);
    return session.execute(name);
  }

  sys::Library probe = nullptr;
};

TEST_F(CommandTest, OneCommandIsOneUndoStep) {
  EXPECT_EQ(run(L"Probe", {"a", "b", ""}), RunResult::completed);
  EXPECT_EQ(run(L"Probe", {"mark", "mark", "d", "^C"}), RunResult::cancelled);
  EXPECT_EQ(run(L"Probe", {""}), RunResult::completed) << "a command that changes nothing is no step";
  EXPECT_EQ(points(), 5);
  EXPECT_EQ(run(L"U"), RunResult::completed);
  EXPECT_EQ(points(), 2)
      << "what was done before the cancel is one step, with the marks that the command set";
  EXPECT_EQ(run(L"U"), RunResult::completed);
  EXPECT_EQ(points(), 0);
  EXPECT_EQ(run(L"U"), RunResult::cancelled);
  EXPECT_EQ(run(L"REDO"), RunResult::completed);
  EXPECT_EQ(run(L"redo"), RunResult::completed);
  EXPECT_EQ(points(), 5);
  EXPECT_EQ(run(L"REDO"), RunResult::cancelled);
  EXPECT_EQ(run(L"UNDO", {"0", "9"}), RunResult::completed);
  EXPECT_EQ(points(), 0);
  EXPECT_THAT(lines.printed,
              ElementsAre("The last command was undone.", "The last command was undone.",
                          "There is nothing to undo.", "The command was done again.",
                          "The command was done again.", "There is nothing to redo.",
                          "\"0\" is not a whole number greater than 0.", "The last 2 commands were undone."));
}

TEST_F(CommandTest, AnEscapedExceptionIsTakenBackAndTold) {
  run(L"Probe", {"a", ""});
  for (const char* start : {"b", "mark", "transaction"}) {
    lines.printed.clear();
    EXPECT_EQ(run(L"Probe", {start, "fail"}), RunResult::failed);
    EXPECT_THAT(lines.printed, ElementsAre("Probe failed: the probe broke"));
    EXPECT_EQ(points(), 1) << start;
    EXPECT_EQ(run(L"REDO"), RunResult::cancelled) << "what failed does not come back";
  }
  EXPECT_EQ(run(L"Probe", {"fail"}), RunResult::failed);
  EXPECT_EQ(points(), 1) << "the command before stays";
}

TEST_F(CommandTest, AFailureWithoutChangesLeavesTheStepBefore) {
  session.addCommand("Broken", []() -> CMD_RUNSTATUS { throw OdError(eInvalidInput); });
  run(L"Probe", {"a", ""});
  EXPECT_EQ(run(L"Broken"), RunResult::failed);
  EXPECT_EQ(points(), 1);
  EXPECT_EQ(run(L"U"), RunResult::completed);
  EXPECT_EQ(points(), 0);
}

TEST_F(CommandTest, AScriptThatEndsAtAPromptIsAnError) {
  lines.terminal = false;
  EXPECT_THROW(run(L"Probe", {"a"}), host::ScriptEnded);
  EXPECT_EQ(points(), 0);
  EXPECT_FALSE(session.input().nextCommand(L"Command: ")) << "at the command prompt the end is no error";
}

TEST_F(CommandTest, NamesMayBeShortenedAndAreSuggested) {
  int runs = 0;
  for (const char* name : {"AttDef", "AttEdit", "AttExt", "Att"})
    session.addCommand(name, [&runs] { return ++runs, kCmdCompleted; });
  const struct {
    const wchar_t* typed;
    RunResult result;
    const char* printed;
  } cases[] = {
      {L"attext", RunResult::completed, nullptr},
      {L" AttD ", RunResult::completed, nullptr},
      {L"_ATT", RunResult::completed, nullptr},
      {L"atte", RunResult::unknown, "\"atte\" is ambiguous: AttEdit, AttExt."},
      {L"atext", RunResult::unknown, "There is no command \"atext\". Did you mean AttExt?"},
      {L"AttDdf", RunResult::unknown, "There is no command \"AttDdf\". Did you mean AttDef?"},
      {L"xyzzy", RunResult::unknown, "There is no command \"xyzzy\"."},
      {L"_", RunResult::unknown, "There is no command \"_\"."},
  };
  for (const auto& test : cases) {
    lines.printed.clear();
    EXPECT_EQ(run(test.typed), test.result) << OdString(test.typed).toUtf8();
    if (test.printed)
      EXPECT_THAT(lines.printed, ElementsAre(test.printed));
    else
      EXPECT_THAT(lines.printed, IsEmpty());
  }
  EXPECT_EQ(runs, 3);
  run(L"");
  EXPECT_EQ(runs, 4) << "an empty line repeats the last command";
}

TEST_F(CommandTest, ModulesNeedADrawing) {
  session.setDrawing({}, L"");
  EXPECT_EQ(run(L"Probe"), RunResult::failed);
  EXPECT_EQ(run(L"U"), RunResult::cancelled);
  EXPECT_THAT(lines.printed, ElementsAre("Probe needs an open drawing.", "There is nothing to undo."));
}

} // namespace
