// List views, pages, rich edits with fields and what else the second test dialog has, from both sides.
#include "controls_probe.h"
#include "res/error.h"
#include "res/menu_template.h"
#include "support/dialog_recorder.h"
#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

/// Typed text as it is, fields as [number:text].
std::string shown(const std::vector<ui::TextRun>& runs) {
  std::string text;
  for (const ui::TextRun& run : runs)
    text += run.field ? "[" + std::to_string(run.field) + ":" + run.text.toUtf8() + "]" : run.text.toUtf8();
  return text;
}

class ControlsTest : public testing::Test {
protected:
  /// Carries lines out and closes the dialog by Esc; gives the events until then.
  std::vector<std::string> eventsOf(const std::string& lines) {
    user.say(lines + "\n^C");
    EXPECT_EQ(probe.run(&user), 2);
    // The first page was activated; closing begins with the last deactivation.
    const auto closing =
        std::find_if(probe.events.rbegin(), probe.events.rend(),
                     [](const std::string& event) { return event.starts_with("deactivate"); });
    return {probe.events.begin() + 1, closing.base() - 1};
  }
  /// Looks at the dialog when the lines before have been carried out.
  void then(std::function<void()> check) {
    user.look([check = std::move(check)](const DialogRecorder::Dialog&) { check(); });
  }

  DialogRecorder user;
  ControlsProbe probe;
};

TEST_F(ControlsTest, ArePrintedAsTheyLook) {
  probe.prepare = [this] { probe.list().select(0); };
  user.say("^C");
  probe.run(&user);
  EXPECT_THAT(
      user.printed(),
      ElementsAre(
          "Everything else",
          "  Block:  \"\" or Door | Window  Shade:  <Red> of ByLayer | Red | Green | Blue  [Pick a block]",
          "  Notes:  \"first line\" / \"second line\"", "  Attributes: Tag | Prompt | Value",
          "    > 1  NUMBER | Room number | 3.01", "      2  ! NAME | Name of the room | B\u00fcro",
          "      3  ! NAME |  | Bureau", "  Pages: <Attribute> | Text Options",
          "    Value:  \"Room 3.01, floor 3\" with field \"3.01\", \"3\"  [Insert]",
          "  [OK]*  [Cancel]  [Help]"));
}

TEST_F(ControlsTest, AreSeenByTheirUser) {
  user.say("select value = oo");
  user.look([](const DialogRecorder::Dialog& d) {
    EXPECT_THAT(d.controls.at(43).swatches, ElementsAre(0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF));
    EXPECT_THAT(d.controls.at(41).swatches, ElementsAre(-1, -1));
    EXPECT_THAT(d.controls.at(46).columns, ElementsAre("Tag", "Prompt", "Value"));
    EXPECT_THAT(d.controls.at(46).rows.at(1), ElementsAre("NAME", "Name of the room", "B\u00fcro"));
    EXPECT_THAT(d.controls.at(46).emphasised, ElementsAre(false, true, true));
    EXPECT_THAT(d.controls.at(48).items, ElementsAre("Attribute", "Text Options"));
    EXPECT_THAT(d.controls.at(51).fields, ElementsAre("3.01", "3"));
    EXPECT_EQ(d.controls.at(51).selection, "oo");
    EXPECT_EQ(d.controls.at(47).tip, "Pick a block");
  });
  user.say("^C");
  probe.run(&user);
}

TEST_F(ControlsTest, TellWhatTheUserDoes) {
  probe.menu = {{120, L"Move &Up"}, {121, L"Edit...", false}, {}, {122, L"Remove", true, true}};
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {"row attributes = 2\nrow attributes = 2\nchoose attributes = number", {"change 46", "change 46"}},
      {"row attributes = 3\nopen attributes", {"change 46", "open 46"}},
      {"menu attributes = remove", {"menu 46 122"}},
      {"choose shade = blue", {"change 43"}},
      {"choose block = window\nset block = Wi", {"change 41", "change 41"}},
      {"set notes = x", {"change 45"}},
      {"set value = Room\npress pick a block", {"change 51", "leave 51", "press 47"}},
      {"select value = 3.01\nopen value", {"open 51"}},
      {"set value = x\nchoose pages = text",
       {"change 51", "deactivate values", "leave 51", "activate texts", "change 48"}},
      {"row pages = 2\nset height = 3\ntick backwards",
       {"deactivate values", "activate texts", "change 48", "change 61", "leave 61", "press 62"}},
      {"row pages = 1", {}},
  };
  for (const auto& [lines, events] : cases) {
    EXPECT_EQ(eventsOf(lines), events) << lines;
  }
}

TEST_F(ControlsTest, EndingDeactivatesThePageThenLeavesThenCloses) {
  user.say("set value = x\n^C");
  probe.run(&user);
  EXPECT_THAT(probe.events, ElementsAre("activate values", "change 51", "deactivate values", "leave 51",
                                        "close", "close values", "close texts"));
}

TEST_F(ControlsTest, APageThatTakesTheFocusBackStays) {
  probe.reactions["leave 51"] = [this] {
    if (probe.values.form->text(51) == L"bad") probe.values.form->setFocus(51);
  };
  user.say("set value = bad").sayRefused("choose pages = text", "went back to another control");
  user.say("set value = good\nchoose pages = text\n^C");
  probe.run(&user);
  EXPECT_THAT(probe.events,
              ElementsAre("activate values", "change 51", "deactivate values", "leave 51", "activate values",
                          "change 51", "deactivate values", "leave 51", "activate texts", "change 48",
                          "deactivate texts", "close", "close values", "close texts"));
}

TEST_F(ControlsTest, TheDialogOpensThePageItWants) {
  probe.prepare = [this] { probe.face->activatePage(1); };
  user.look([](const DialogRecorder::Dialog& d) {
    EXPECT_TRUE(d.controls.contains(61));
    EXPECT_FALSE(d.controls.contains(51));
    EXPECT_EQ(d.controls.at(48).selected, 1);
  });
  user.sayRefused("set value = x", "Nothing named").say("^C");
  probe.run(&user);
  EXPECT_EQ(probe.events.front(), "activate texts");
  EXPECT_THROW(probe.face->activatePage(2), std::out_of_range);
}

TEST_F(ControlsTest, RowsKeepTheirDataAndTheirSelection) {
  probe.prepare = [this] {
    ui::ListView& list = probe.list();
    list.select(1);
    EXPECT_EQ(list.addRow(0, 42), 0);
    EXPECT_EQ(list.selection(), 2) << "stays with its row";
    list.setText(0, 2, L"new");
    EXPECT_EQ(list.text(0, 2), L"new");
    EXPECT_EQ(list.text(2, 0), L"NAME");
    list.setData(2, 43);
    EXPECT_THAT((std::vector<std::intptr_t>{list.data(0), list.data(1), list.data(2), list.data(3)}),
                ElementsAre(42, 100, 43, 102));
    list.removeRow(0);
    EXPECT_EQ(list.selection(), 1);
    list.removeRow(1);
    EXPECT_EQ(list.selection(), -1);
    list.setColumnWidth(1, 33);
    EXPECT_EQ(list.columnWidth(1), 33);
    EXPECT_EQ(list.columnWidth(2), 120);
    EXPECT_EQ(list.columnCount(), 3);
    list.redraw();
    EXPECT_THROW(list.select(2), std::out_of_range);
    EXPECT_THROW(list.text(0, 3), std::out_of_range);
    EXPECT_THROW(list.removeRow(-1), std::out_of_range);
  };
  user.sayRefused("row attributes = 3", "does not have so many rows");
  user.sayRefused("open attributes", "has no row chosen");
  EXPECT_THAT(eventsOf("row attributes = 1"), ElementsAre("change 46"))
      << "the dialog's changes are no notices";
  probe.prepare = [this] {
    probe.list().clearRows();
    EXPECT_EQ(probe.list().rowCount(), 0);
    probe.list().clearColumns();
    EXPECT_EQ(probe.list().columnCount(), 0);
    probe.list().addColumn(L"Only", 50);
    probe.list().setText(probe.list().addRow(-1), 0, L"one");
  };
  EXPECT_THAT(eventsOf("choose attributes = one"), ElementsAre("change 46"));
}

TEST_F(ControlsTest, ItemsKeepTheirDataAndColours) {
  probe.prepare = [this] {
    ui::Items& block = probe.form().items(41);
    EXPECT_EQ(block.data(1), 8);
    EXPECT_EQ(block.selection(), -1);
    block.select(0);
    EXPECT_EQ(probe.form().text(41), L"Door");
    EXPECT_THROW(block.data(2), std::out_of_range);
    EXPECT_THROW(block.select(2), std::out_of_range);
    block.clear();
    EXPECT_EQ(block.count(), 0);
  };
  user.say("set block = Typed\nchoose shade = green");
  user.look([this](const DialogRecorder::Dialog& d) {
    EXPECT_EQ(d.controls.at(41).text, "Typed");
    EXPECT_EQ(probe.form().text(41), L"Typed");
    EXPECT_EQ(probe.form().items(41).selection(), -1) << "what is typed is no item";
    EXPECT_EQ(probe.form().text(41), L"Typed");
    EXPECT_EQ(probe.form().items(43).data(probe.form().items(43).selection()), 0x00FF00);
  });
  user.say("^C");
  probe.run(&user);
}

TEST_F(ControlsTest, FieldsBehaveAsUnits) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"typing beside fields keeps them", "set value = A Room 3.01, floor 3", "A Room [5:3.01], floor [6:3]"},
      {"what touches a field takes it", "set value = Room 3.02, floor 3", "Room 2, floor [6:3]"},
      {"a field is cut as a whole", "select value = .0\nmenu value = cut", "Room , floor [6:3]"},
      {"pasting behind the text",
       "select value = Room\nmenu value = copy\nselect value =\nmenu value = paste",
       "Room [5:3.01], floor [6:3]Room"},
      {"inserting a field", "select value = floor\nmenu value = insert", "Room [5:3.01], [9:new] [6:3]"},
      {"inserting in the place of a field", "select value = 3.01\nmenu value = insert",
       "Room [9:new], floor [6:3]"},
      {"clearing all", "menu value = select all\nmenu value = clear", ""},
  };
  using enum ui::EditCommand;
  probe.values.menu = {{1, L"Cut"},    {2, L"Copy"},       {3, L"Paste"},
                       {4, L"C&lear"}, {5, L"Select All"}, {6, L"Insert"}};
  const ui::EditCommand commands[] = {cut, copy, paste, clear, selectAll};
  for (int command = 1; command <= 5; ++command)
    probe.reactions["menu 51 " + std::to_string(command)] = [this, which = commands[command - 1]] {
      EXPECT_TRUE(probe.value().can(which));
      probe.value().perform(which);
    };
  probe.reactions["menu 51 6"] = [this] { probe.value().insert({L"new", 9}); };
  for (const auto& [what, lines, result] : cases) {
    std::string text;
    user.say(lines);
    then([&] {
      text = shown(probe.value().runs());
      EXPECT_TRUE(probe.values.form->isModified(51));
    });
    user.say("^C");
    probe.run(&user);
    EXPECT_EQ(text, result) << what;
  }
}

TEST_F(ControlsTest, TheCaretTellsItsField) {
  user.say("select value = 3.01");
  then([this] {
    EXPECT_EQ(probe.value().fieldAtCaret(), 5);
    EXPECT_TRUE(probe.value().can(ui::EditCommand::cut));
    EXPECT_FALSE(probe.values.form->isModified(51));
  });
  user.say("select value =");
  then([this] {
    EXPECT_EQ(probe.value().fieldAtCaret(), 0);
    EXPECT_FALSE(probe.value().can(ui::EditCommand::clear));
    probe.values.form->selectText(51, {7, 8});
    EXPECT_EQ(probe.value().fieldAtCaret(), 5);
    probe.value().setRuns({{L"plain", 0}});
    EXPECT_EQ(probe.values.form->text(51), L"plain");
    probe.values.form->show(51, false);
    probe.values.form->setText(51, L"other");
    EXPECT_FALSE(probe.values.form->isShown(51));
    probe.values.form->show(51, true);
    EXPECT_EQ(shown(probe.value().runs()), "other");
  });
  EXPECT_THAT(eventsOf("select value = the"), ElementsAre("leave 51")) << "when it was hidden";
}

TEST_F(ControlsTest, EditsKeepTheirLimitAndKnowWhetherTheyWereChanged) {
  probe.prepare = [this] {
    probe.form().setTextLimit(45, 4);
    probe.values.form->setTextLimit(51, 6);
    probe.value().setRuns({{L"ab", 0}, {L"cd", 5}});
    EXPECT_FALSE(probe.form().isModified(45));
  };
  user.say("set notes = 123456\nset value = abcdefgh");
  then([this] {
    EXPECT_EQ(probe.form().text(45), L"1234");
    EXPECT_EQ(shown(probe.value().runs()), "ab[5:cd]ef");
    EXPECT_TRUE(probe.form().isModified(45));
    probe.form().setModified(45, false);
    EXPECT_FALSE(probe.form().isModified(45));
  });
  user.say("^C");
  probe.run(&user);
}

TEST_F(ControlsTest, AMenuOffersWhatItsResourceSays) {
  const std::vector<res::MenuTemplateItem> menu = res::parseMenu(everythingMenu(), 12);
  ASSERT_EQ(menu.size(), 1u);
  EXPECT_EQ(menu.front().text, L"List");
  std::vector<std::string> items;
  for (const res::MenuTemplateItem& item : menu.front().items) {
    items.push_back(std::to_string(item.id) + " " + item.text.toUtf8() + (item.grayed ? " grayed" : "") +
                    (item.checked ? " checked" : ""));
    probe.menu.push_back({static_cast<int>(item.id), item.text, !item.grayed, item.checked});
  }
  EXPECT_THAT(items, ElementsAre("120 Move &Up", "121 Edit... grayed", "0 ", "122 Remove checked"));
  user.sayRefused("menu attributes = edit", "\"Edit\" is disabled in the menu of \"Attributes\".");
  user.sayRefused("menu attributes = delete",
                  "The menu of \"Attributes\" has no item \"delete\". Did you mean");
  user.sayRefused("menu shade = remove", "\"Shade\" has no context menu.");
  EXPECT_THAT(eventsOf("menu attributes = up"), ElementsAre("leave 46", "leave 43", "menu 46 120"));
  for (std::size_t size = 0; size < everythingMenu().size(); ++size)
    EXPECT_THROW(res::parseMenu(everythingMenu().first(size), 12), res::Error) << size;
}

TEST(Menu, OfTheModuleIsLoadedByItsNumber) {
  const ui::Menu menu = ui::loadMenu(IDM_MANAGER_LIST);
  ASSERT_EQ(menu.size(), 5u);
  EXPECT_EQ(menu.front().text, L"Move Up");
  EXPECT_EQ(menu.back().command, IDC_MANAGER_SETTINGS);
  EXPECT_THROW(ui::loadMenu(4711), res::Error);
}

TEST_F(ControlsTest, ControlsFollowTheSizeOfTheDialogByTheirAnchors) {
  const auto move = [this](int across, int down) {
    ui::Placement placement = probe.face->placement();
    const int delta[] = {0, 0, across, down};
    for (std::size_t field = 0; field < 4; ++field) {
      std::uint32_t value = 0;
      for (std::size_t i = 0; i < 4; ++i)
        value |= std::to_integer<std::uint32_t>(placement[28 + 4 * field + i]) << 8 * i;
      value += static_cast<std::uint32_t>(delta[field]);
      for (std::size_t i = 0; i < 4; ++i)
        placement[28 + 4 * field + i] = static_cast<std::byte>(value >> 8 * i & 0xFF);
    }
    probe.face->setPlacement(placement);
  };
  probe.prepare = [&] {
    ui::FormFace &form = probe.form(), &page = *probe.values.form;
    const ui::Area list = form.area(46), ok = form.area(IDOK), value = page.area(51), label = form.area(44);
    form.anchor(46, {.right = true});
    form.anchor(48, {.right = true, .bottom = true});
    move(30, 20);
    form.anchor(IDOK,
                {.left = false, .top = false, .right = true, .bottom = true}); // late, yet as the others
    page.anchor(51, {.right = true});
    EXPECT_EQ(form.area(46), (ui::Area{list.left, list.top, list.right + 30, list.bottom}));
    EXPECT_EQ(form.area(IDOK), (ui::Area{ok.left + 30, ok.top + 20, ok.right + 30, ok.bottom + 20}));
    EXPECT_EQ(form.area(44), label);
    const ui::Area wide = page.area(51);
    EXPECT_EQ(wide.left, value.left);
    move(10, 0);
    EXPECT_EQ(page.area(51).right, wide.right + 10);
    move(-500, -500);
    EXPECT_EQ(form.area(46), list) << "no smaller than in the template";
    EXPECT_EQ(form.area(IDOK), ok);
    form.setArea(44, {1, 2, 30, 40});
    EXPECT_EQ(form.area(44), (ui::Area{1, 2, 30, 40}));
  };
  eventsOf("show");
}

TEST_F(ControlsTest, MessagesReachTheDialogInTheirOrder) {
  const OdString name = L"__TEST_MESSAGE";
  probe.prepare = [&] { probe.face->listen(name); };
  probe.reactions["press 47"] = [&] {
    probe.face->post(name, 1, -1);
    probe.face->send(name, 2, 0);
    probe.note("sent");
  };
  EXPECT_THAT(eventsOf("press pick\nset notes = x"),
              ElementsAre("press 47", "__TEST_MESSAGE 2 0", "sent", "__TEST_MESSAGE 1 -1", "change 45"));
}

TEST_F(ControlsTest, AHiddenDialogCannotBeWorked) {
  struct Hider final : ui::DialogUser {
    ControlsProbe& probe;
    std::vector<ui::Outcome> outcomes;
    explicit Hider(ControlsProbe& p) : probe(p) {}
    void opened(const ui::OpenDialog&) override {}
    void drive(ui::OpenDialog& dialog) override {
      probe.face->setVisible(false);
      outcomes.push_back(dialog.press(47));
      probe.face->setVisible(true);
      outcomes.push_back(dialog.press(47));
      dialog.escape();
    }
    ui::MessageAnswer answerMessage(const ui::MessageQuestion&) override { return {}; }
    const wchar_t* answerFile(const ui::FileQuestion&) override { return nullptr; }
  } hider(probe);
  probe.run(&hider);
  EXPECT_THAT(hider.outcomes, ElementsAre(ui::Outcome::hidden, ui::Outcome::done));
}

TEST_F(ControlsTest, TabComesToThePageBeforeItsTabs) {
  std::vector<int> focus;
  for (int i = 0; i < 11; ++i)
    user.look([&](const DialogRecorder::Dialog& d) { focus.push_back(d.focus); }).say("leave");
  user.say("^C");
  probe.run(&user);
  EXPECT_THAT(focus, ElementsAre(1, 2, 9, 41, 43, 47, 45, 46, 51, 52, 48));
}

TEST_F(ControlsTest, WrongKindsAreMistakesOfTheDialogClass) {
  probe.prepare = [this] {
    EXPECT_THROW(probe.form().items(46), std::logic_error);
    EXPECT_THROW(probe.form().list(41), std::logic_error);
    EXPECT_THROW(probe.form().fieldEdit(45), std::logic_error);
    EXPECT_THROW(probe.form().isModified(46), std::logic_error);
    EXPECT_THROW(probe.form().setIcon(46, IDI_PICK_BLOCK), std::logic_error);
    EXPECT_THROW(probe.form().setIcon(47, 4711), res::Error);
    EXPECT_THROW(probe.face->addPage(46, L"x", 10, everythingDialog(10), probe.values), std::logic_error);
    EXPECT_THROW(probe.face->addPage(48, L"x", 9, everythingDialog(9), probe.values), std::logic_error);
    EXPECT_THROW(probe.face->addPage(48, L"x", 14, everythingDialog(14), probe.values), std::logic_error);
  };
  EXPECT_TRUE(eventsOf("show").empty());
  user.sayRefused("set shade = red", "\"Shade\" cannot be set, but chosen from.");
  user.sayRefused("select value = nowhere", "\"Value\" does not contain \"nowhere\".");
  user.sayRefused("open shade", "\"Shade\" cannot be opened.");
  eventsOf("show");
}

} // namespace
