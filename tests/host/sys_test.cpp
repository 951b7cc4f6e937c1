// Libraries by their names, and the folders of the user.
#include "sys/folders.h"
#include "sys/library.h"
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <unistd.h>

namespace fs = std::filesystem;

extern "C" void exportOfTheProgram() {}

namespace {

TEST(Library, NamesAreMapped) {
  for (const char* name : {"hbview.dll", "hbview.DLL", "hbview", "hbview.so"})
    EXPECT_EQ(sys::libraryFileName(name), "hbview.so");
  EXPECT_EQ(sys::libraryFileName("a.b/my.module.dll"), "a.b/my.module.so");
  EXPECT_EQ(sys::libraryFileName("a.b/module"), "a.b/module.so");
}

TEST(Library, IsFoundOnlyWhileItIsLoaded) {
  EXPECT_EQ(sys::findLoadedLibrary("host_probe_module"), nullptr);
  std::string error;
  const sys::Library module = sys::loadLibrary(PROBE_MODULE, error);
  ASSERT_NE(module, nullptr) << error;
  EXPECT_EQ(sys::findLoadedLibrary("host_probe_module.dll"), module)
      << "by name, though it was loaded by path";
  sys::freeLibrary(module);
  EXPECT_EQ(sys::findLoadedLibrary("host_probe_module"), nullptr) << "looking must not keep it";
  EXPECT_NE(sys::findLoadedLibrary("hbview"), nullptr) << "linked libraries are loaded too";
}

TEST(Library, FailureToLoadTellsTheReason) {
  std::string error;
  EXPECT_EQ(sys::loadLibrary("no_such_library.dll", error), nullptr);
  EXPECT_THAT(error, testing::HasSubstr("no_such_library.so"));
}

TEST(Library, SymbolsBelongToTheirOwnLibrary) {
  EXPECT_NE(sys::programSymbol("exportOfTheProgram"), nullptr);
  EXPECT_EQ(sys::programSymbol("new_ICmdFactory"), nullptr)
      << "an export of a library that the program is linked with";
  const sys::Library hbview = sys::findLoadedLibrary("hbview");
  EXPECT_NE(sys::librarySymbol(hbview, "new_ICmdFactory"), nullptr);
  EXPECT_EQ(sys::librarySymbol(hbview, "CreateObjectC"), nullptr)
      << "an export of a library that hbview is linked with";
  EXPECT_EQ(sys::librarySymbol(nullptr, "new_ICmdFactory"), nullptr);
}

/// A home of its own for the time of a test.
struct FoldersTest : testing::Test {
  FoldersTest() {
    home = fs::path(testing::TempDir()) / ("home_" + std::to_string(getpid()));
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
