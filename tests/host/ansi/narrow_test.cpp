// The narrow code page of a process that does not ask for UTF-8, as most hosts do not.
#include "sys/codepage.h"
#include <gmock/gmock.h>
#include <windows.h>

namespace {

TEST(Narrow, TakesTheAnsiCodePageOfTheUser) {
  if (GetACP() != 1252) GTEST_SKIP() << "the user's code page is " << GetACP();
  EXPECT_EQ(sys::toNarrow(L"B\u00FCro \u20AC \u2026"), "B\xFCro \x80 \x85");
  EXPECT_EQ(sys::fromNarrow("B\xFCro \x80"), L"B\u00FCro \u20AC");
  // One question mark for each character that the page lacks, also where it has a similar one, or two units.
  EXPECT_EQ(sys::toNarrow(L"\u0411 \u0101 \U0001F600 \xDC80."), "? ? ? ?.");
}

} // namespace
