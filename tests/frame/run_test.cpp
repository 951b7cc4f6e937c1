// Runs of commands inside a session of the host.
#include "frame/command_object.h"
#include "frame/host_lookup.h"
#include "host/lines.h"
#include "sys/library.h"
#include <gmock/gmock.h>

namespace {

using host::RunResult;
using testing::ElementsAre;
using testing::IsEmpty;

/// What happens in the middle of a run is up to the test.
class ScriptedCmd : public CQkUnknownImpl<ICmdProcess> {
public:
  static inline std::function<CMD_RUNSTATUS(ScriptedCmd&, frame::Session&)> body;
  CMD_RUNSTATUS Run() override {
    return perform([this](frame::Session& session) { return body(*this, session); });
  }

protected:
  ~ScriptedCmd() = default;
};

frame::HostPtr<ICmdProcess> makeScripted() {
  ICmdProcess* made = nullptr;
  frame::createCommand<ScriptedCmd>(&made);
  return frame::HostPtr<ICmdProcess>(made);
}

struct Run : testing::Test, OpenSession {};

TEST_F(Run, IsInProgressUntilItsBodyGivesAStatus) {
  const auto command = makeScripted();
  for (const CMD_RUNSTATUS status : {kCmdCompleted, kCmdCancelled, kCmdInProgress}) {
    ScriptedCmd::body = [status](ScriptedCmd& running, frame::Session&) {
      EXPECT_EQ(running.Status(), kCmdInProgress);
      return status;
    };
    EXPECT_EQ(command->Run(), status);
    EXPECT_EQ(command->Status(), status);
  }
}

TEST_F(Run, HoldsTheDrawingWhileItLasts) {
  const auto command = makeScripted();
  const long before = session.database()->numRefs();
  ScriptedCmd::body = [&](ScriptedCmd&, frame::Session& running) {
    EXPECT_EQ(&running.database(), session.database());
    EXPECT_EQ(&running.input(), session.editor());
    EXPECT_EQ(session.database()->numRefs(), before + 1);
    return kCmdCompleted;
  };
  command->Run();
  EXPECT_EQ(session.database()->numRefs(), before);
}

TEST_F(Run, HasFailedWhenAnExceptionLeavesIt) {
  const auto command = makeScripted();
  const long before = session.database()->numRefs();
  ScriptedCmd::body = [](ScriptedCmd&, frame::Session&) -> CMD_RUNSTATUS { throw OdError(eWasErased); };
  EXPECT_THROW(command->Run(), OdError);
  EXPECT_EQ(command->Status(), kCmdCancelled);
  EXPECT_EQ(session.database()->numRefs(), before);
}

TEST_F(Run, NeedsADrawing) {
  const auto command = makeScripted();
  session.setDrawing(nullptr, L"");
  EXPECT_THROW(command->Run(), OdError);
  EXPECT_EQ(command->Status(), kCmdCancelled);
}

class ElxTest : public Run {
protected:
  ElxTest() {
    std::string error;
    m_module = sys::loadLibrary("blockattr", error);
    EXPECT_TRUE(m_module) << error;
  }
  ~ElxTest() override { sys::freeLibrary(m_module); }

private:
  sys::Library m_module;
};

TEST_F(ElxTest, PrintsWhatWasTyped) {
  lines.type({"two words %s"});
  EXPECT_EQ(session.execute(L"ElxTest"), RunResult::completed);
  EXPECT_THAT(lines.printed, ElementsAre("Inputed Text is two words %s."));
}

TEST_F(ElxTest, PrintsNothingAfterACancel) {
  lines.type({"^C"});
  EXPECT_EQ(session.execute(L"ElxTest"), RunResult::cancelled);
  EXPECT_THAT(lines.printed, IsEmpty());
}

} // namespace
