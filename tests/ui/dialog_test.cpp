// Dialogs from the controller's side, worked through the dialog user.
#include "probe_dialog.h"
#include "res/error.h"
#include "res/resource.h"
#include "support/dialog_recorder.h"
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

class DialogTest : public testing::Test {
protected:
  DialogTest() {
    ui::setDialogUserSource(+[]() -> ui::DialogUser* { return DialogRecorder::current(); });
  }
  ~DialogTest() override { ui::setDialogUserSource(nullptr); }

  int run(const std::string& lines) {
    user.say(lines);
    return dialog.doModal();
  }

  DialogRecorder user;
  ProbeDialog dialog;
};

TEST_F(DialogTest, EndsWithTheCodeOfItsButtons) {
  dialog.reactions["press 1021"] = [](ProbeDialog& d) { d.end(10); };
  const std::pair<const char*, int> cases[] = {
      {"press OK", 1}, {"", 1}, {"press Cancel", 2}, {"^C", 2}, {"press select objects", 10}};
  for (const auto& [line, code] : cases) EXPECT_EQ(run(line), code) << line;
  EXPECT_EQ(user.dialogs().size(), std::size(cases)) << "one object may be shown again";
}

TEST_F(DialogTest, AControlIsLeftBeforeTheNextOneReacts) {
  EXPECT_EQ(run("set template = a.txt\nset output = b.txt\npress help\ntick dxf\nset output = c\npress ok"),
            1);
  EXPECT_THAT(dialog.events, ElementsAre("init", "change 1027", "leave 1027", "change 1028", "leave 1028",
                                         "help", "press 1026", "change 1028", "leave 1028", "ok"));
}

TEST_F(DialogTest, ADisabledDefaultButtonRefusesEnter) {
  dialog.reactions["init"] = [](ProbeDialog& d) { d.enable(IDOK, false); };
  user.sayRefused("", "disabled");
  EXPECT_EQ(run("press cancel"), 2);
}

TEST_F(DialogTest, ARefusedValueKeepsTheFocusAndThePressIsLost) {
  dialog.reactions["leave 1027"] = [](ProbeDialog& d) {
    if (d.text(IDC_ATTEXT_TEMPLATE) == L"bad") d.setFocus(IDC_ATTEXT_TEMPLATE);
  };
  user.say("set template = bad").sayRefused("press ok", "went back to another control");
  EXPECT_EQ(run("set template = good\npress ok"), 1);
  EXPECT_THAT(dialog.events,
              ElementsAre("init", "change 1027", "leave 1027", "change 1027", "leave 1027", "ok"));
}

TEST_F(DialogTest, AMessageIsNoReasonToLeaveAControl) {
  dialog.reactions["change 1027"] = [](ProbeDialog& d) { d.messageBox(L"Text", L"Caption"); };
  run("set template = a\nok\nset template = b\nok\nset output = c\npress cancel");
  EXPECT_THAT(dialog.events,
              ElementsAre("init", "change 1027", "change 1027", "leave 1027", "change 1028", "leave 1028"));
}

TEST_F(DialogTest, AControlThatIsDisabledOrHiddenPassesTheFocusOn) {
  dialog.reactions["change 1027"] = [](ProbeDialog& d) { d.enable(IDC_ATTEXT_TEMPLATE, false); };
  dialog.reactions["change 1028"] = [](ProbeDialog& d) { d.show(IDC_ATTEXT_OUTPUT, false); };
  std::vector<int> focus;
  const auto keep = [&](const DialogRecorder::Dialog& d) { focus.push_back(d.focus); };
  user.say("set template = a").look(keep).say("set output = b").look(keep);
  run("press cancel");
  EXPECT_THAT(focus, ElementsAre(IDC_ATTEXT_OUTPUT_BUTTON, IDOK));
  EXPECT_THAT(dialog.events, ElementsAre("init", "change 1027", "leave 1027", "change 1028", "leave 1028"));
}

TEST_F(DialogTest, TickingARadioButtonClearsTheOthers) {
  dialog.reactions["init"] = [](ProbeDialog& d) { d.setChecked(IDC_ATTEXT_CDF); };
  user.say("tick dxf\ntick dxf\ntick cdf\ntick sdf").look([](const DialogRecorder::Dialog& d) {
    EXPECT_FALSE(d.controls.at(IDC_ATTEXT_CDF).checked);
    EXPECT_TRUE(d.controls.at(IDC_ATTEXT_SDF).checked);
    EXPECT_FALSE(d.controls.at(IDC_ATTEXT_DXX).checked);
    EXPECT_EQ(d.focus, IDC_ATTEXT_SDF);
  });
  run("press ok");
  EXPECT_THAT(dialog.events, ElementsAre("init", "press 1026", "press 1024", "press 1025", "ok"));
}

TEST_F(DialogTest, ChangesOfTheDialogItselfBringNoNotice) {
  dialog.reactions["init"] = [](ProbeDialog& d) {
    d.setTitle(L"New title");
    d.setText(IDC_ATTEXT_OUTPUT, L"out.txt");
    d.setChecked(IDC_ATTEXT_SDF);
    d.enable(IDC_ATTEXT_TEMPLATE, false);
    d.show(IDC_ATTEXT_FOUND, false);
  };
  run("press ok");
  EXPECT_THAT(dialog.events, ElementsAre("init", "ok"));
  const DialogRecorder::Dialog& shown = user.dialogs().at(0);
  EXPECT_EQ(shown.number, 102);
  EXPECT_EQ(shown.title, "New title");
  EXPECT_EQ(shown.controls.at(IDC_ATTEXT_OUTPUT).text, "out.txt");
  EXPECT_TRUE(shown.controls.at(IDC_ATTEXT_SDF).checked);
  EXPECT_FALSE(shown.controls.at(IDC_ATTEXT_TEMPLATE).enabled);
  EXPECT_FALSE(shown.controls.at(IDC_ATTEXT_FOUND).shown);
  EXPECT_EQ(shown.focus, IDC_ATTEXT_SDF) << "Tab stops at the checked button of a group";
}

TEST_F(DialogTest, EndingWhileItOpensShowsNothing) {
  dialog.reactions["init"] = [](ProbeDialog& d) { d.end(7); };
  EXPECT_EQ(dialog.doModal(), 7);
  EXPECT_TRUE(user.dialogs().empty());
}

TEST_F(DialogTest, MessagesAreAnsweredBeforeTheDialogGoesOn) {
  dialog.reactions["ok"] = [](ProbeDialog& d) {
    const auto answer = d.messageBox(L"Sure?\r\nReally?", L"Caption", ui::MessageIcon::question,
                                     ui::MessageButtons::yesNoCancel);
    d.end(static_cast<int>(answer));
  };
  user.say("press ok").sayRefused("maybe", "no button of this message");
  EXPECT_EQ(run("press No"), 7);
  EXPECT_EQ(run("press ok\ny"), 6);
  EXPECT_EQ(run("press ok\n^C"), 2);
  EXPECT_EQ(run("press ok\n\n"), 6) << "an empty line is the first button";
  EXPECT_EQ(user.messages().at(0).text, "Sure?\r\nReally?");
  EXPECT_EQ(user.messages().at(0).icon, ui::MessageIcon::question);
}

TEST_F(DialogTest, ANestedDialogStandsBeforeItsParent) {
  ProbeDialog inner;
  inner.reactions["press 1021"] = [](ProbeDialog& d) { d.end(10); };
  int innerCode = 0;
  dialog.reactions["press 1021"] = [&](ProbeDialog&) { innerCode = inner.doModal(); };
  EXPECT_EQ(run("press select\npress select\npress cancel"), 2);
  EXPECT_EQ(innerCode, 10);
}

TEST_F(DialogTest, FileQuestionsKeepTheirRules) {
  const auto folder = std::filesystem::temp_directory_path() / "dialog_test_files";
  std::filesystem::create_directories(folder);
  const std::string present = (folder / "present.txt").string(), absent = (folder / "absent.txt").string();
  const std::string nowhere = (folder / "no" / "such.txt").string();
  std::ofstream(present) << "x";
  std::optional<OdString> chosen;
  ui::FileRequest request;
  dialog.reactions["press 1022"] = [&](ProbeDialog& d) { chosen = d.askFile(request); };

  request = {.filter = L"Texts (*.txt)|*.txt||",
             .defaultName = L"*.txt",
             .fileMustExist = true,
             .pathMustExist = true};
  run("press template\n" + absent + "\nok\n" + nowhere + "\nok\nset file = \"" + present + "\"\n^C");
  EXPECT_EQ(chosen->toUtf8(), present);
  EXPECT_EQ(user.messages().at(0).text, absent + "\nFile not found.\nCheck the file name and try again.");
  EXPECT_EQ(user.messages().at(1).text, nowhere + "\nPath does not exist.\nCheck the path and try again.");
  EXPECT_EQ(user.files().at(0).defaultName, "*.txt");

  request = {.save = true, .initialPath = OdString::fromUtf8(present), .overwritePrompt = true};
  run("press template\n\nno\n" + absent + "\n^C");
  EXPECT_EQ(chosen->toUtf8(), absent);
  run("press template\npress save\nyes\n^C");
  EXPECT_EQ(chosen->toUtf8(), present);

  run("press template\npress cancel\n^C");
  EXPECT_FALSE(chosen);
  std::filesystem::remove_all(folder);
}

TEST_F(DialogTest, ThePlacementIsTheWindowsRecord) {
  ui::Placement first{}, second{};
  dialog.reactions["init"] = [&](ProbeDialog& d) {
    first = d.placement();
    ui::Placement moved = first;
    moved[28] = std::byte{200};
    d.setPlacement(moved);
    second = d.placement();
  };
  run("^C");
  EXPECT_EQ(first[0], std::byte{44});
  EXPECT_EQ(first[8], std::byte{1}) << "shown normally";
  EXPECT_EQ(second[28], std::byte{200});
}

TEST(DialogWithoutTemplate, IsNamed) {
  struct Missing : ui::Dialog {
    Missing() : Dialog(4711) {}
  };
  try {
    Missing().doModal();
    FAIL();
  } catch (const res::Error& error) {
    EXPECT_STREQ(error.what(), "the module's resources hold no dialog number 4711");
  }
}

TEST_F(DialogTest, MistakesOfTheDialogClassAreToldAtOnce) {
  EXPECT_THROW(dialog.text(IDC_ATTEXT_OUTPUT), std::logic_error) << "not shown";
  dialog.reactions["init"] = [](ProbeDialog& d) { d.setText(4711, L""); };
  EXPECT_THROW(dialog.doModal(), std::logic_error);
  dialog.reactions["init"] = [](ProbeDialog& d) { d.doModal(); };
  EXPECT_THROW(dialog.doModal(), std::logic_error) << "shown already";
  dialog.reactions.clear();
  EXPECT_EQ(run("press ok"), 1) << "an exception leaves the dialog closed and usable";
}

HandmadeUser* handmadeUser = nullptr;

class HandmadeUserTest : public testing::Test {
protected:
  HandmadeUserTest() {
    handmadeUser = &user;
    ui::setDialogUserSource(+[]() -> ui::DialogUser* { return handmadeUser; });
  }
  ~HandmadeUserTest() override { ui::setDialogUserSource(nullptr); }

  std::string failure() {
    try {
      dialog.doModal();
    } catch (const ui::DialogError& error) {
      return error.what();
    }
    return "none";
  }

  HandmadeUser user;
  ProbeDialog dialog;
};

TEST_F(HandmadeUserTest, EnterLeavesTheControlOnlyWhenTheDialogEnds) {
  user.act = [](ui::OpenDialog& d) {
    d.type(IDC_ATTEXT_TEMPLATE, L"a.txt");
    d.enter();
  };
  EXPECT_EQ(dialog.doModal(), 1);
  EXPECT_THAT(dialog.events, ElementsAre("init", "change 1027", "ok", "leave 1027"));
}

TEST_F(HandmadeUserTest, EnterPressesTheFocusedButtonElseTheDefaultOne) {
  dialog.reactions["init"] = [](ProbeDialog& d) { d.setFocus(IDC_ATTEXT_SELECT); };
  dialog.reactions["press 1021"] = [](ProbeDialog& d) { d.setFocus(IDC_ATTEXT_OUTPUT); };
  user.act = [](ui::OpenDialog& d) { d.enter(); };
  EXPECT_EQ(dialog.doModal(), 1);
  EXPECT_THAT(dialog.events, ElementsAre("init", "press 1021", "ok", "leave 1028"));
}

TEST_F(HandmadeUserTest, AUserThatDoesNothingCannotHangTheHost) {
  EXPECT_EQ(failure(), "The dialog \"Extract of attributes\" was left unanswered.");
  user.act = [](ui::OpenDialog& d) { EXPECT_EQ(d.press(4711), ui::Outcome::noSuchControl); };
  EXPECT_EQ(failure(), "The dialog \"Extract of attributes\" was left unanswered.")
      << "refusals are nothing, too";
  EXPECT_LE(user.turns, 1000);
}

TEST_F(HandmadeUserTest, WrongAnswersAreRefused) {
  user.act = [](ui::OpenDialog& d) { d.press(IDC_ATTEXT_SELECT); };
  user.answer = ui::MessageAnswer::yes;
  dialog.reactions["press 1021"] = [](ProbeDialog& d) { d.messageBox(L"Text", L"Caption"); };
  EXPECT_EQ(failure(),
            "A question of the dialog \"Extract of attributes\" was given an answer that it does not offer.");
  dialog.reactions["press 1021"] = [](ProbeDialog& d) { d.askFile({}); };
  EXPECT_EQ(failure(),
            "The file question of the dialog \"Extract of attributes\" was left without a usable answer.");
}

TEST_F(HandmadeUserTest, NothingIsDoneToADialogThatHasEndedOrIsBusy) {
  std::vector<ui::Outcome> outcomes;
  ui::OpenDialog* open = nullptr;
  dialog.reactions["press 1021"] = [&](ProbeDialog&) { outcomes.push_back(open->press(IDOK)); };
  user.act = [&](ui::OpenDialog& d) {
    open = &d;
    d.press(IDC_ATTEXT_SELECT);
    d.press(IDCANCEL);
    for (const auto outcome :
         {d.press(IDOK), d.type(IDC_ATTEXT_OUTPUT, L"x"), d.enter(), d.escape(), d.help()})
      outcomes.push_back(outcome);
  };
  EXPECT_EQ(dialog.doModal(), 2);
  using enum ui::Outcome;
  EXPECT_THAT(outcomes, ElementsAre(disabled, ended, ended, ended, ended, ended));
  EXPECT_THAT(dialog.events, ElementsAre("init", "press 1021"));
}

} // namespace
