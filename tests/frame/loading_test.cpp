// The module comes and goes without leaving anything behind.
#include "support/system.h"
#include "sys/library.h"
#include <gmock/gmock.h>

namespace {

TEST(Loading, AHundredTimesCostsNothing) {
  const auto loadAndUnload = [](int times) {
    for (int i = 0; i < times; ++i) {
      std::string error;
      const sys::Library module = sys::loadLibrary("blockattr.dll", error);
      ASSERT_NE(module, nullptr) << error;
      sys::freeLibrary(module);
      ASSERT_EQ(sys::findLoadedLibrary("blockattr.dll"), nullptr);
    }
  };
  loadAndUnload(10);
  const test::Holdings before = test::holdings();
  loadAndUnload(100);
  const test::Holdings after = test::holdings();
  EXPECT_EQ(after.handles, before.handles);
#ifndef BLOCKATTR_SANITIZED                  // keeps what was freed, and looks for leaks itself
  constexpr std::size_t kSlack = 256 * 1024; // what the system's own heap may take, less than 3 KiB a time
  EXPECT_LE(after.memory, before.memory + kSlack);
#endif
}

} // namespace
