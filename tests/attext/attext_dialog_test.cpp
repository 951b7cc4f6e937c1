// The rules of the dialog, in the order in which a user meets them.
#include "extraction.h"
#include "support/system.h"
#include <gmock/gmock.h>

namespace {

using Shown = DialogRecorder::Dialog;

enum Control {
  kGroup = 1020,
  kSelect = 1021,
  kTemplateButton = 1022,
  kOutputButton = 1023,
  kCdf = 1024,
  kSdf = 1025,
  kDxx = 1026,
  kTemplate = 1027,
  kOutput = 1028,
  kFoundLabel = 1029,
  kFound = 1030,
};

class AttExtDialog : public Extraction {
protected:
  AttExtDialog() {
    std::filesystem::create_directories(path("Documents"));
    test::setDocumentsFolder(path("Documents"));
    setDrawingPath("/home/ann/plan.dwg");
    insert(addBlock(L"Door"), {});
    write("template.txt", "BL:NAME C010000");
  }

  void setDrawingPath(const char* drawing) { session.setDrawingPath(OdString(drawing)); }
  std::string document(const std::string& name) const { return path("Documents/" + name); }
  std::string outputAfter(const std::string& dialogLines) {
    std::string output;
    user.say(dialogLines).look([&](const Shown& d) { output = d.controls.at(kOutput).text; });
    run("press cancel");
    return output;
  }
};

TEST_F(AttExtDialog, OpensWithItsTexts) {
  run("press cancel");
  const Shown& d = user.dialogs().at(0);
  EXPECT_EQ(d.number, 102);
  EXPECT_EQ(d.title, "Attribute Extraction");
  const std::pair<int, const char*> texts[] = {
      {kGroup, "File Format"},
      {kCdf, "&Comma Delimeted File (CDF)"},
      {kSdf, "&Space Delimeted File (SDF)"},
      {kDxx, "&DXF Format Extract File (DXX)"},
      {kSelect, "Select &Objects <"},
      {kTemplateButton, "&Template File..."},
      {kOutputButton, "Output &File..."},
      {kFoundLabel, "Number Found:"},
      {kFound, "0"},
      {kTemplate, ""},
  };
  for (const auto& [id, text] : texts) EXPECT_EQ(d.controls.at(id).text, text);
  EXPECT_EQ(d.controls.at(kOutput).text, document("plan.txt"));
  EXPECT_TRUE(d.controls.at(kCdf).checked);
  EXPECT_TRUE(d.controls.at(kTemplateButton).enabled);
}

TEST_F(AttExtDialog, SuggestsAnOutputFile) {
  setDrawingPath("plan.dwg");
  EXPECT_EQ(outputAfter("show"), "plan.txt") << "a drawing without a folder keeps its path";
  setDrawingPath("/home/ann/plan.dwg");
  EXPECT_EQ(outputAfter("tick dxf"), document("plan.dxx"));
  EXPECT_EQ(outputAfter("tick dxf\ntick cdf"), document("plan.txt"));
  EXPECT_EQ(outputAfter("set output = x.dwg\ntick sdf"), "x.txt");
  std::filesystem::remove_all(path("Documents"));
  EXPECT_EQ(outputAfter("show"), "/home/ann/plan.txt") << "no documents folder is known";
}

TEST_F(AttExtDialog, DxxNeedsNoTemplate) {
  user.say("tick dxf").look([](const Shown& d) {
    EXPECT_FALSE(d.controls.at(kTemplateButton).enabled);
    EXPECT_FALSE(d.controls.at(kTemplate).enabled);
  });
  user.say("tick sdf").look([](const Shown& d) {
    EXPECT_TRUE(d.controls.at(kTemplateButton).enabled);
    EXPECT_TRUE(d.controls.at(kTemplate).enabled);
  });
  run("press cancel");
}

TEST_F(AttExtDialog, SelectingKeepsTemplateAndFormatButNotTheOutputFile) {
  run("tick dxf\nset output = chosen.txt\npress select\npress cancel");
  run("set template = t.txt\ntick sdf\nset output = chosen.txt\npress select\npress cancel");
  const Shown& dxx = user.dialogs().at(1);
  EXPECT_TRUE(dxx.controls.at(kDxx).checked);
  EXPECT_EQ(dxx.controls.at(kOutput).text, document("plan.dxx"));
  EXPECT_FALSE(dxx.controls.at(kTemplateButton).enabled);
  EXPECT_EQ(dxx.controls.at(kFound).text, "1");
  const Shown& sdf = user.dialogs().at(3);
  EXPECT_EQ(user.dialogs().at(2).controls.at(kFound).text, "0") << "each run begins anew";
  EXPECT_TRUE(sdf.controls.at(kSdf).checked);
  EXPECT_EQ(sdf.controls.at(kTemplate).text, "t.txt");
  EXPECT_EQ(sdf.controls.at(kOutput).text, document("plan.txt"));
}

TEST_F(AttExtDialog, ANewSelectionReplacesTheOldOne) {
  addLine();
  lines.type({"all", ""});
  lines.type({"handle 0", "^C"});
  user.say("press select").say("press select").say("press ok\nok\npress cancel");
  session.execute(L"AttExt");
  EXPECT_EQ(user.dialogs().at(1).controls.at(kFound).text, "2");
  EXPECT_EQ(user.dialogs().at(2).controls.at(kFound).text, "0");
  EXPECT_EQ(user.messages().at(0).text, "Objects is not selected.");
}

TEST_F(AttExtDialog, OkChecksInOrder) {
  const std::string file = path("template.txt");
  const std::string notFound = "The specified template file could not be found.";
  user.say("set output = \"\"\nset template = " + path("nothing"));
  user.say("press ok\nok"); // nothing selected
  user.say("press select\nset template = \"\"\nset output = \"\"\npress ok");
  user.say("set template = " + path("") + "\npress ok");
  user.say("set template = " + file + "\npress ok\nok"); // no output
  user.say("set output = " + file + "\npress ok\nok");
  user.say("set output = " + path("Template.txt"));
  EXPECT_EQ(run("press ok"), host::RunResult::completed);
  ASSERT_EQ(user.messages().size(), 3u);
  EXPECT_EQ(user.messages()[0].text, "Objects is not selected.");
  EXPECT_EQ(user.messages()[1].text, "A template file must be specified for CDF and SDF output.");
  EXPECT_EQ(user.messages()[2].text, "The output filename must be different from the template filename. ");
  for (const auto& message : user.messages()) EXPECT_EQ(message.icon, ui::MessageIcon::error);
  EXPECT_EQ(std::count(lines.printed.begin(), lines.printed.end(), notFound), 2);
  EXPECT_TRUE(exists("Template.txt")) << "paths that differ in case are different";
}

TEST_F(AttExtDialog, DxxChecksTheSelectionOnly) {
  user.say("tick dxf\nset output = \"\"\npress ok\nok\npress select\nset output = \"\"");
  run("press ok");
  EXPECT_EQ(user.messages().size(), 1u);
  EXPECT_EQ(lastLine(), "0 objects in extract file.");
}

TEST_F(AttExtDialog, AsksForFiles) {
  user.say("press template file\n" + path("template.txt"));
  user.say("press output file\n" + path("list.dwg"));
  user.say("tick dxf\npress output file\n" + path("list.txt"));
  user.look([&](const Shown& d) {
    EXPECT_EQ(d.controls.at(kTemplate).text, path("template.txt"));
    EXPECT_EQ(d.controls.at(kOutput).text, path("list.dxx"));
  });
  user.say("press output file\n^C");
  run("press cancel");

  const auto& files = user.files();
  ASSERT_EQ(files.size(), 4u);
  const std::string texts = "Text files/Templates/Output files (*.txt)|*.txt|All Files (*.*)|*.*||";
  EXPECT_FALSE(files[0].save);
  EXPECT_EQ(files[0].filter, texts);
  EXPECT_EQ(files[0].defaultName, "*.txt");
  EXPECT_TRUE(files[0].fileMustExist && files[0].pathMustExist);
  EXPECT_TRUE(files[1].save && files[1].overwritePrompt);
  EXPECT_EQ(files[1].initialPath, document("plan.txt"));
  EXPECT_EQ(files[1].filter, texts);
  EXPECT_EQ(files[1].defaultName, "*.txt");
  EXPECT_EQ(files[2].initialPath, path("list.dxx"));
  EXPECT_EQ(files[2].filter, "Output files (*.dxx)|*.dxx|All Files (*.*)|*.*||");
  EXPECT_EQ(files[2].defaultName, "*.dxx");
}

TEST_F(AttExtDialog, HelpShowsTheContents) {
  test::setEnvironment("HBHOST_HELP", path(""));
  write("index.md", "The contents");
  run("press help\npress cancel");
  test::setEnvironment("HBHOST_HELP", "");
  EXPECT_THAT(lines.printed, testing::Contains("The contents"));
}

} // namespace
