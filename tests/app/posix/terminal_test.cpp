// What a person at a terminal sees.
#include "terminal.h"
#include <gmock/gmock.h>

namespace {

constexpr char kCtrlC[] = "\x03", kCtrlD[] = "\x04", kTab[] = "\t", kUp[] = "\x1b[A";

TEST(Terminal, GreetsAndRunsCommands) {
  const Workplace workplace;
  Terminal terminal(workplace, {"examples/office.dxf"});
  ASSERT_TRUE(terminal.shows("office.dxf is open. Type ? for the commands."));
  ASSERT_TRUE(terminal.shows("Command: "));
  terminal.type("ElxTest\nGrüße, 世界\n");
  ASSERT_TRUE(terminal.shows("Inputed Text is Grüße, 世界."));
  terminal.type("nonsense\n");
  ASSERT_TRUE(terminal.shows("There is no command \"nonsense\"."));
  terminal.type("quit\n");
  EXPECT_EQ(terminal.end(), 0) << "a person has seen what went wrong";
}

TEST(Terminal, CtrlCIsEscAndCtrlDTheEnd) {
  const Workplace workplace;
  Terminal terminal(workplace, {});
  ASSERT_TRUE(terminal.shows("A new drawing."));
  terminal.type("ElxTest\n");
  ASSERT_TRUE(terminal.shows("Text: "));
  terminal.type(kCtrlC);
  ASSERT_TRUE(terminal.shows("^C"));
  ASSERT_TRUE(terminal.shows("Command: ")) << "the command was cancelled, the program was not";
  terminal.type(kCtrlC);
  ASSERT_TRUE(terminal.shows("Command: "));
  terminal.type(kCtrlD);
  EXPECT_EQ(terminal.end(), 0);
}

TEST(Terminal, TabCompletesCommandNames) {
  const Workplace workplace;
  Terminal terminal(workplace, {});
  ASSERT_TRUE(terminal.shows("Command: "));
  terminal.type(std::string("sa") + kTab);
  ASSERT_TRUE(terminal.shows("SAVE  SAVEAS")) << "both fit";
  ASSERT_TRUE(terminal.shows("Command: SAVE"));
  terminal.type(kCtrlC);
  ASSERT_TRUE(terminal.shows("Command: "));
  terminal.type(std::string("elx") + kTab + "\n");
  ASSERT_TRUE(terminal.shows("Text: ")) << "only one fits";
}

TEST(Terminal, LinesComeBackInLaterSessions) {
  const Workplace workplace;
  {
    Terminal terminal(workplace, {});
    ASSERT_TRUE(terminal.shows("Command: "));
    terminal.type("ElxTest\nremembered\nquit\n");
    ASSERT_EQ(terminal.end(), 0);
  }
  Terminal terminal(workplace, {});
  ASSERT_TRUE(terminal.shows("Command: "));
  terminal.type(std::string(kUp) + kUp);
  EXPECT_TRUE(terminal.shows("remembered"));
}

TEST(Terminal, AsksBeforeAFileIsReplaced) {
  const Workplace workplace;
  workplace.write("old.dxf", "keep me");
  Terminal terminal(workplace, {});
  ASSERT_TRUE(terminal.shows("Command: "));
  terminal.type("SAVE\nold.dxf\n");
  ASSERT_TRUE(terminal.shows("old.dxf exists. Replace it? [Yes/No] <No>"));
  terminal.type("\n");
  ASSERT_TRUE(terminal.shows("Command: "));
  EXPECT_EQ(workplace.read("old.dxf"), "keep me");
  terminal.type("SAVE\nold.dxf\ny\n");
  ASSERT_TRUE(terminal.shows("Saved to old.dxf."));
}

TEST(Terminal, LongExtractionShowsABar) {
  const Workplace workplace;
  std::vector<std::string> arguments = {"extract", "-f", "dxx", "-o", "{name}.dxx"};
  for (int i = 100; i < 200; ++i) {
    const std::string name = std::to_string(i) + ".dxf";
    std::filesystem::create_hard_link(workplace.path("examples/office.dxf"), workplace.path(name));
    arguments.push_back(name);
  }
  Terminal terminal(workplace, arguments);
  EXPECT_TRUE(terminal.shows("[#"));
  EXPECT_TRUE(terminal.shows(" of 100: 1"));
  EXPECT_TRUE(terminal.shows("199.dxf: 623 objects"));
  EXPECT_EQ(terminal.end(), 0);
}

} // namespace
