// The profile: what is written stays, whoever else writes, and a damaged file harms nothing.
#include "qkcore/Output.h"
#include "qkcore/ProfileFile.h"
#include "support/system.h"
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <thread>

namespace fs = std::filesystem;

namespace {

using host::ProfileFile;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct ProfileTest : testing::Test {
  ProfileTest() {
    const auto* info = testing::UnitTest::GetInstance()->current_test_info();
    folder = test::makeTemporaryFolder(std::string("profile_") + info->name());
    path = folder / "deep" / "profile.json";
    before = host::setOutput([this](const std::string& line) { warnings.push_back(line); });
  }
  ~ProfileTest() override {
    host::setOutput(before);
    fs::remove_all(folder);
  }
  std::string contents(const fs::path& file) const {
    std::ifstream in(file);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  void damage(const char* text) {
    fs::create_directories(path.parent_path());
    std::ofstream(path) << text;
  }

  fs::path folder, path;
  host::Output before;
  std::vector<std::string> warnings;
};

TEST_F(ProfileTest, KeepsValuesOfEveryType) {
  const unsigned char bytes[] = {0, 0x2c, 0xff};
  const CQkVariant values[] = {CQkVariant(-7),
                               CQkVariant(2.0),
                               CQkVariant(0.1),
                               CQkVariant(OdString(L"\x4e2d \"\\")),
                               CQkVariant(QkBlob(bytes, 3)),
                               CQkVariant(QkBlob())};
  for (const CQkVariant& value : values) {
    EXPECT_FALSE(ProfileFile(path).read(L"Section", L"Fresh"));
    ASSERT_TRUE(ProfileFile(path).write(L"Dialogs\\One", L"Value", value));
    EXPECT_EQ(ProfileFile(path).read(L"dialogs\\ONE", L"vALUE"), value) << "names have no case";
  }
  EXPECT_TRUE(ProfileFile(path).hasSection(L"DIALOGS\\one"));
  EXPECT_FALSE(ProfileFile(path).hasSection(L"Dialogs"));
  EXPECT_FALSE(ProfileFile(path).write(L"Dialogs\\One", L"Value", CQkVariant()))
      << "there is no value to write";
  EXPECT_THAT(warnings, IsEmpty());
}

TEST_F(ProfileTest, WritersSideBySideKeepEachOthersValues) {
  constexpr int kWriters = 4;
  constexpr int kValues = 10;
  std::vector<std::thread> writers;
  writers.reserve(kWriters);
  for (int writer = 0; writer < kWriters; ++writer)
    writers.emplace_back([&, writer] {
      for (int i = 0; i < kValues; ++i) {
        OdString name;
        name.format(L"%d of %d", i, writer);
        EXPECT_TRUE(ProfileFile(path).write(L"Shared", name, CQkVariant(i)));
      }
    });
  for (std::thread& writer : writers) writer.join();
  for (int writer = 0; writer < kWriters; ++writer)
    for (int i = 0; i < kValues; ++i) {
      OdString name;
      name.format(L"%d of %d", i, writer);
      EXPECT_EQ(ProfileFile(path).read(L"Shared", name), CQkVariant(i)) << name.toUtf8();
    }
}

TEST_F(ProfileTest, DamageIsWarnedOfOnceAndPutAside) {
  int number = 0;
  for (const char* text : {"{ \"Dialogs\": {", "[1]", "{\"a\": 5}", ""}) {
    path = folder / std::to_string(++number) / "profile.json";
    warnings.clear();
    damage(text);
    EXPECT_FALSE(ProfileFile(path).read(L"Dialogs", L"Value"));
    EXPECT_FALSE(ProfileFile(path).hasSection(L"Dialogs"));
    EXPECT_THAT(warnings, ElementsAre("Warning: the profile " + path.string() +
                                      " cannot be read or is damaged; default settings are used."));
    EXPECT_TRUE(ProfileFile(path).write(L"Dialogs", L"Value", CQkVariant(1)));
    EXPECT_EQ(ProfileFile(path).read(L"Dialogs", L"Value"), CQkVariant(1));
    EXPECT_EQ(contents(path.string() + ".damaged"), text);
    EXPECT_THAT(warnings.back(), HasSubstr("it is kept as"));
    fs::remove_all(path.parent_path());
  }
}

TEST_F(ProfileTest, OddValuesReadAsNothing) {
  damage(
      R"({"S": {"half": {"blob": "0f0"}, "letters": {"blob": "zz"}, "list": [1], "none": null, "ok": 1}})");
  for (const wchar_t* name : {L"half", L"letters", L"list", L"none"})
    EXPECT_FALSE(ProfileFile(path).read(L"S", name)) << OdString(name).toUtf8();
  EXPECT_TRUE(ProfileFile(path).write(L"S", L"ok", CQkVariant(2)));
  EXPECT_THAT(contents(path), HasSubstr("letters")) << "what was not understood stays";
}

TEST_F(ProfileTest, AnUnwritablePlaceIsWarnedOfOnce) {
  std::ofstream(folder / "file") << "in the way";
  const ProfileFile profile(folder / "file" / "profile.json");
  EXPECT_FALSE(profile.write(L"S", L"v", CQkVariant(1)));
  EXPECT_FALSE(profile.write(L"S", L"v", CQkVariant(2)));
  ASSERT_EQ(warnings.size(), 1u);
  EXPECT_THAT(warnings[0], HasSubstr("cannot be written"));
}

} // namespace
