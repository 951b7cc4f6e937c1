// The line-oriented user over a text face with every kind of control.
#include "res/styles.h"
#include "support/dialog_recorder.h"
#include "ui/text/text_face.h"
#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// A dialog with one of everything; its texts are those of no real dialog.
res::DialogTemplate everything() {
  res::DialogTemplate dialog;
  dialog.caption = L"Every&thing";
  int y = 0;
  const auto add = [&](unsigned id, const wchar_t* windowClass, const wchar_t* text, std::uint32_t style = 0,
                       int x = 7) {
    if (x == 7) y += 20;
    dialog.controls.push_back({id, style | WS_VISIBLE | WS_TABSTOP, 0, {x, y, 60, 12}, windowClass, text});
  };
  add(20, L"Button", L"Choices", BS_GROUPBOX);
  dialog.controls.back().rect = {2, 30, 200, 50};
  add(21, L"Button", L"&Red", BS_AUTORADIOBUTTON | WS_GROUP);
  add(22, L"Button", L"Dark &red", BS_AUTORADIOBUTTON);
  add(23, L"Button", L"&Big && bold", BS_AUTOCHECKBOX | WS_GROUP);
  add(24, L"Static", L"&Name:");
  add(25, L"Edit", L"", 0, 90);
  add(26, L"Static", L"Colour:");
  add(27, L"ComboBox", L"", 0, 90);
  add(28, L"Static", L"Rows:");
  add(29, L"ListBox", L"");
  add(30, L"Edit", L"");
  add(31, L"Button", L"Browse...");
  add(32, L"Edit", L"", WS_DISABLED, 90);
  add(1, L"Button", L"OK", BS_DEFPUSHBUTTON);
  add(2, L"Button", L"Cancel", BS_PUSHBUTTON, 90);
  return dialog;
}

class Probe : public ui::DialogEvents {
public:
  virtual ~Probe() = default;
  ui::Face* face = nullptr;
  std::vector<std::string> events;
  void onInit() override {
    for (const wchar_t* item : {L"Red", L"Green", L"Grey", L"By Layer"}) face->addItem(27, item);
    for (const wchar_t* item : {L"first", L"second"}) face->addItem(29, item);
    face->select(27, 0);
  }
  void onPress(int id) override { events.push_back("press " + std::to_string(id)); }
  void onChange(int id) override {
    events.push_back("change " + std::to_string(id) + " " + face->text(id).toUtf8());
  }
  void onLeave(int) override {}
  void onOk() override { face->end(1); }
  void onCancel() override { face->end(2); }
};

class LineUserTest : public testing::Test {
protected:
  int run() {
    ui::text::TextFace face(7, probe, &user, everything());
    probe.face = &face;
    return face.run();
  }

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
                          "  Rows:", "  list:", "      1  first", "      2  second", "  \"\" #30",
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
      {"set name =", "change 25 "},
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
      {"s name", "\"s\" may be \"show\" or \"set\"."},
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
  res::DialogTemplate dialog = everything();
  dialog.controls[1].text = L"Dark blue";
  user.sayRefused(
      "tick dark",
      "\"dark\" may be \"Dark blue\" or \"Dark red\": write more of the name, or # and its number.");
  user.say("tick #22\n^C");
  ui::text::TextFace face(7, probe, &user, dialog);
  probe.face = &face;
  face.run();
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
  ui::text::TextFace face(7, probe, &user, everything());
  probe.face = &face;
  EXPECT_THROW(face.run(), std::runtime_error);
}

TEST(DialogRecorderTest, FailsTheTestOnWhatWasNotFoundAsPlanned) {
  const auto run = [](const std::string& lines) {
    DialogRecorder user;
    Probe probe;
    ui::text::TextFace face(7, probe, &user, everything());
    probe.face = &face;
    user.say(lines);
    try {
      face.run();
    } catch (const std::runtime_error&) {}
  };
  EXPECT_NONFATAL_FAILURE(run("tick red"), "no answer is left for: Every&thing");
  EXPECT_NONFATAL_FAILURE(run("press cancel\npress ok"), "never asked for: press ok");
  EXPECT_NONFATAL_FAILURE(run("tick blue\npress cancel"), "\"tick blue\" was refused");
}

TEST(TextFace, AControlThatItCannotShowIsNamed) {
  Probe probe;
  res::DialogTemplate dialog;
  dialog.controls.push_back({12, WS_VISIBLE, 0, {}, L"SysListView32", L""});
  try {
    const ui::text::TextFace face(7, probe, nullptr, dialog);
    FAIL();
  } catch (const std::logic_error& error) {
    EXPECT_THAT(error.what(), HasSubstr("dialog 7, control 12"));
  }
}

} // namespace
