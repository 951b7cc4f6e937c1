// The line-oriented user over a dialog with every kind of control.
#include "everything.h"
#include "support/dialog_recorder.h"
#include "ui/face.h"
#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Probe : public ui::DialogEvents {
public:
  virtual ~Probe() = default;
  std::unique_ptr<ui::Face> face;
  std::vector<std::string> events;
  std::function<void()> prepare = [] {};

  ui::FormFace& form() { return face->frame(); }
  int run(ui::DialogUser& user, unsigned number = 7) {
    face = ui::makeFace(number, everythingDialog(number), *this, &user);
    return face->run();
  }

  void onInit() override {
    for (const wchar_t* item : {L"Red", L"Green", L"Grey", L"By Layer"}) form().items(27).add(item);
    for (const wchar_t* item : {L"first", L"second"}) form().items(29).add(item);
    form().items(27).select(0);
    form().setText(30, L"old");
    prepare();
  }
  void onPress(int id) override { events.push_back("press " + std::to_string(id)); }
  void onChange(int id) override {
    events.push_back("change " + std::to_string(id) + " " + form().text(id).toUtf8());
  }
  void onLeave(int) override {}
  void onOk() override { face->end(1); }
  void onCancel() override { face->end(2); }
};

class LineUserTest : public testing::Test {
protected:
  int run() { return probe.run(user); }

  DialogRecorder user;
  Probe probe;
};

TEST_F(LineUserTest, PrintsTheDialogAsItLooks) {
  user.say("tick red\ntick big\nset name = A & B\nrow rows = 2\nshow\n^C");
  run();
  const std::vector<std::string> opened(user.printed().begin(), user.printed().begin() + 14);
  EXPECT_THAT(opened,
              ElementsAre("Every&thing", "  Choices", "    ( ) Red", "    ( ) Dark red", "  [ ] Big & bold",
                          "  Name:  \"\"", "  Colour:  <Red> of Red | Green | Grey | By Layer",
                          "  Rows:", "  list:", "      1  first", "      2  second", "  \"old\" #30",
                          "  [Browse...]  \"\" (disabled)", "  [OK]*  [Cancel]"));
  const std::vector<std::string> shown(user.printed().begin() + 16, user.printed().begin() + 25);
  EXPECT_THAT(shown, ElementsAre("    (*) Red", "    ( ) Dark red", "  [x] Big & bold", "  Name:  \"A & B\"",
                                 "  Colour:  <Red> of Red | Green | Grey | By Layer",
                                 "  Rows:", "  list:", "      1  first", "    > 2  second"));
}

TEST_F(LineUserTest, DoesWhatALineSays) {
  const std::pair<const char*, const char*> cases[] = {
      {"tick Red", "press 21"},                 // exactly, though "Dark red" has that word too
      {"TICK dark", "press 22"},                // in any case, shortened
      {"ti bold", "press 23"},                  // the beginning of any word; the command shortened
      {"tick Big & bold", "press 23"},          // a doubled mark is one sign
      {"set Name: = x = y", "change 25 x = y"}, // the first = parts name and value
      {"set name=\" x \"", "change 25  x "},
      {"set #30 =", "change 30 "},
      {"set #30 = z", "change 30 z"},
      {"choose colour = green", "change 27 Green"},
      {"choose colour = layer", "change 27 By Layer"},
      {"row colour = 3", "change 27 Grey"},
      {"choose rows = sec", "change 29 second"},
      {"press browse", "press 31"},
      {"press Browse...", "press 31"},
  };
  for (const auto& [line, event] : cases) {
    probe.events.clear();
    user.say(std::string(line) + "\n^C");
    EXPECT_EQ(run(), 2);
    EXPECT_THAT(probe.events, ElementsAre(event)) << line;
  }
}

TEST_F(LineUserTest, SaysWhyALineCannotBeCarriedOut) {
  const std::pair<const char*, const char*> cases[] = {
      {"shout", "\"shout\" is no command of a dialog. Did you mean \"show\", "},
      {"s name", "\"s\" may be \"show\", \"set\" or \"select\"."},
      {"tick", "Write it as: tick NAME"},
      {"set name", "Write it as: set NAME = VALUE"},
      {"tick blue", "Nothing named \"blue\" can be ticked here. Did you mean "},
      {"set nam2 = x", "Did you mean \"Name\""},
      {"tick b c", "Nothing named \"b c\" can be ticked here."},
      {"tick name", "\"Name\" cannot be ticked."},
      {"press name", "\"Name\" cannot be pressed."},
      {"untick red", "\"Red\" cannot be unticked."},
      {"press #99", "There is no control #99."},
      {"press #3x", "There is no control #3x."},
      {"press #25", "\"Name\" cannot be pressed."},
      {"set browse = x", "\"Browse\" is disabled."},
      {"choose colour = gr", "\"gr\" may be \"Green\" or \"Grey\"."},
      {"choose colour = mauve", "\"Colour\" has no item \"mauve\". Did you mean "},
      {"row rows = 3", "\"Rows\" does not have so many rows."},
      {"row rows = 0", "\"0\" is no row number: rows are counted from 1."},
      {"row rows = second", "\"second\" is no row number"},
      {"menu rows = Copy", "\"Rows\" has no context menu."},
  };
  for (const auto& [line, reason] : cases) user.sayRefused(line, reason);
  user.say("^C");
  run();
  EXPECT_TRUE(probe.events.empty());
}

TEST_F(LineUserTest, AnAmbiguousNameIsToldWithAllItMayMean) {
  probe.prepare = [this] { probe.form().setText(21, L"Dark blue"); };
  user.sayRefused(
      "tick dark",
      "\"dark\" may be \"Dark blue\" or \"Dark red\": write more of the name, or # and its number.");
  user.say("tick #22\n^C");
  run();
  EXPECT_THAT(probe.events, ElementsAre("press 22"));
}

TEST_F(LineUserTest, LeaveMovesOnAsTabDoes) {
  std::vector<int> focus;
  for (int i = 0; i < 10; ++i)
    user.look([&](const DialogRecorder::Dialog& d) { focus.push_back(d.focus); }).say("leave");
  user.say("^C");
  run();
  EXPECT_THAT(focus, ElementsAre(21, 22, 23, 25, 27, 29, 30, 31, 1, 2));
}

TEST(LineUserFailure, AnEndOfLinesClosesTheDialog) {
  Probe probe;
  ui::LineUser user([](const OdString&) {},
                    [](const OdString& prompt) -> OdString { throw std::runtime_error(prompt.toUtf8()); });
  EXPECT_THROW(probe.run(user), std::runtime_error);
}

TEST(DialogRecorderTest, FailsTheTestOnWhatWasNotFoundAsPlanned) {
  const auto run = [](const std::string& lines) {
    DialogRecorder user;
    Probe probe;
    user.say(lines);
    try {
      probe.run(user);
    } catch (const std::runtime_error&) {}
  };
  EXPECT_NONFATAL_FAILURE(run("tick red"), "no answer is left for: Every&thing");
  EXPECT_NONFATAL_FAILURE(run("press cancel\npress ok"), "never asked for: press ok");
  EXPECT_NONFATAL_FAILURE(run("tick blue\npress cancel"), "\"tick blue\" was refused");
}

TEST_F(LineUserTest, AControlThatCannotBeShownIsNamed) {
  try {
    probe.run(user, 8);
    FAIL();
  } catch (const std::logic_error& error) {
    EXPECT_THAT(error.what(), HasSubstr("dialog 8, control 12: its window class"));
  }
}

} // namespace
