// Libraries by their names.
#include "support/system.h"
#include "sys/library.h"
#include <gmock/gmock.h>

extern "C" void exportOfTheProgram() {}

namespace {

TEST(Library, NamesAreMapped) {
  const std::string suffix = test::kLibrarySuffix;
  for (const std::string& name : {std::string("hbview.dll"), std::string("hbview"), "hbview" + suffix})
    EXPECT_EQ(sys::libraryFileName(name), "hbview" + suffix);
  EXPECT_EQ(sys::libraryFileName("a.b/my.module.dll"), "a.b/my.module" + suffix);
  EXPECT_EQ(sys::libraryFileName("a.b/module"), "a.b/module" + suffix);
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
  EXPECT_THAT(error, testing::HasSubstr(std::string("no_such_library") + test::kLibrarySuffix));
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

} // namespace
