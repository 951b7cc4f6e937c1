// The folders of the user.
#include "support/system.h"
#include "sys/folders.h"
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>

namespace fs = std::filesystem;

namespace {

/// A home of its own for the time of a test.
struct FoldersTest : testing::Test {
  FoldersTest() {
    home = test::makeTemporaryFolder("home");
    fs::create_directories(home / ".config");
    setenv("HOME", home.c_str(), 1);
    unsetenv("XDG_CONFIG_HOME");
  }
  ~FoldersTest() override {
    if (before.empty())
      unsetenv("HOME");
    else
      setenv("HOME", before.c_str(), 1);
    fs::remove_all(home);
  }
  std::string before = std::getenv("HOME") ? std::getenv("HOME") : "";
  fs::path home;
};

TEST_F(FoldersTest, SettingsFollowTheDesktopsRules) {
  EXPECT_EQ(sys::configFolder(), home / ".config" / "hbhost");
  setenv("XDG_CONFIG_HOME", "/settings", 1);
  EXPECT_EQ(sys::configFolder(), "/settings/hbhost");
  setenv("XDG_CONFIG_HOME", "relative", 1);
  EXPECT_EQ(sys::configFolder(), home / ".config" / "hbhost") << "relative paths do not count";
  unsetenv("HOME");
  EXPECT_EQ(sys::configFolder(), "");
}

TEST_F(FoldersTest, DocumentsAreWhereTheDesktopSays) {
  EXPECT_EQ(sys::documentsFolder(), "") << "nothing exists";
  fs::create_directories(home / "Documents");
  EXPECT_EQ(sys::documentsFolder(), home / "Documents");
  fs::create_directories(home / "Dokumente");
  std::ofstream(home / ".config" / "user-dirs.dirs") << "# comment\nXDG_MUSIC_DIR=\"$HOME/Musik\"\n"
                                                     << "XDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n";
  EXPECT_EQ(sys::documentsFolder(), home / "Dokumente");
}

} // namespace
