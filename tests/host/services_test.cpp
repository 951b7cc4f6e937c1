// Messages, help and translations.
#include "IEventService.h"
#include "QkCore.h"
#include "events5/MessageUser.h"
#include "qkcore/Output.h"
#include "support/system.h"
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>

namespace fs = std::filesystem;

namespace {

using testing::ElementsAre;

struct ServicesTest : testing::Test {
  ServicesTest() {
    before = host::setOutput([this](const std::string& line) { printed.push_back(line); });
  }
  ~ServicesTest() override {
    host::setOutput(before);
    fs::remove_all(folder);
  }
  const fs::path folder = test::makeTemporaryFolder("services");
  host::Output before;
  std::vector<std::string> printed;
};

TEST_F(ServicesTest, WithoutAUserQuestionsTakeTheirDefault) {
  const struct {
    unsigned int style;
    int button;
  } cases[] = {{kHostOk | kHostIconError, kHostIdOk},
               {kHostOkCancel | kHostSecondIsDefault, kHostIdCancel},
               {kHostYesNo, kHostIdYes},
               {kHostYesNo | kHostSecondIsDefault, kHostIdNo},
               {kHostYesNoCancel | kHostThirdIsDefault | kHostIconQuestion, kHostIdCancel},
               {kHostYesNo | kHostThirdIsDefault, kHostIdYes}};
  for (const auto& test : cases)
    EXPECT_EQ(hostMessageBox(nullptr, L"Save?", nullptr, test.style), test.button);
  EXPECT_EQ(printed.front(), "Save?");
  EXPECT_EQ(printed.back(), "Save? Yes");
}

TEST_F(ServicesTest, MessagesGoToTheUser) {
  class User : public host::MessageUser {
  public:
    int answer(const wchar_t* text, const wchar_t* caption, unsigned int style) override {
      asked = OdString(caption) + L": " + text;
      return style == kHostYesNo ? kHostIdNo : kHostIdOk;
    }
    OdString asked;
  } user;
  host::setMessageUser(&user);
  IEventService* service = Get_IEventService();
  EXPECT_EQ(service->Message(L"Save?", L"Host", kHostYesNo, nullptr), kHostIdNo);
  EXPECT_EQ(service->Release(), 0u);
  EXPECT_EQ(host::setMessageUser(nullptr), &user);
  EXPECT_EQ(user.asked, L"Host: Save?");
  EXPECT_TRUE(printed.empty());
}

TEST_F(ServicesTest, HelpShowsTopicsOfItsFolder) {
  std::ofstream(folder / "IDH_AttDef.md", std::ios::binary) << "# Attdef\r\nDefines attributes.\r\n\n";
  std::ofstream(folder / "index.txt") << "Contents";
  test::setEnvironment("HBHOST_HELP", folder);
  IHelpService* help = Get_IHelpService();
  EXPECT_TRUE(help->ShowTopic(L"IDH_AttDef", nullptr));
  EXPECT_TRUE(help->ShowTopic(nullptr, nullptr));
  EXPECT_FALSE(help->ShowTopic(L"IDH_None", nullptr));
  EXPECT_FALSE(help->ShowTopic(L"../index", nullptr)) << "topics are no paths";
  help->Release();
  test::setEnvironment("HBHOST_HELP", "");
  EXPECT_THAT(printed, ElementsAre("# Attdef\nDefines attributes.", "Contents",
                                   "There is no help on \"IDH_None\".", "There is no help on \"../index\"."));
}

TEST_F(ServicesTest, TextsAreTranslatedWhereThereIsATranslation) {
  const fs::path file = folder / "translation.txt";
  std::ofstream(file, std::ios::binary)
      << "no line of a translation\nYes=Ja\r\nA\\=B=C\\nD\n=nothing\nLast=Gr\xc3\xb6\xc3\x9f"
      << "e";
  test::setEnvironment("HBHOST_TRANSLATION", file);
  EXPECT_EQ(Supp_Translate(L"Yes"), L"Ja");
  EXPECT_EQ(Supp_Translate("A=B"), L"C\nD");
  EXPECT_EQ(Supp_Translate("Last"), L"Gr\x00f6\x00df"
                                    L"e");
  EXPECT_EQ(Supp_Translate(L"No"), L"No");
  int window = 0;
  EXPECT_EQ(Supp_Translate(static_cast<void*>(&window)), 0);
  EXPECT_EQ(Supp_GetFont(), nullptr);
  test::setEnvironment("HBHOST_TRANSLATION", "");
}

} // namespace
