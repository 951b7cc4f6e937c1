// How lines of ASCII files become codes, numbers and handles: the short cuts agree with the general rules.
#include "AsciiForm.h"
#include <charconv>
#include <gmock/gmock.h>
#include <optional>
#include <random>

namespace {

using testing::ElementsAre;

std::optional<double> realOf(std::string_view text) {
  double value = 0;
  const bool valid = AsciiForm().toReal(text, value);
  EXPECT_EQ(valid, AsciiForm().isValid(OdDbGroupKind::kReal, text)) << text;
  return valid ? std::optional(value) : std::nullopt;
}

TEST(FormTest, RealsAreTheNearestDoubles) {
  const std::pair<const char*, double> cases[] = {{"0", 0.0},
                                                  {"  2.5 ", 2.5},
                                                  {".5", 0.5},
                                                  {"-5.", -5.0},
                                                  {"+1.5", 1.5},
                                                  {"1e-3", 0.001},
                                                  {"0.1", 0.1},
                                                  {"999999999999.99", 999999999999.99},
                                                  {"123456789012345678", 123456789012345678.0},
                                                  {"0.30000000000000004", 0.1 + 0.2}};
  for (const auto& [text, value] : cases) EXPECT_EQ(realOf(text), value) << text;
  EXPECT_TRUE(std::signbit(*realOf("-0.0")));
  for (const char* text : {"", " ", ".", "-", "-.", "1.2.3", "1,5", "--1", "1-", "1e", "1e999", "0x1"})
    EXPECT_EQ(realOf(text), std::nullopt) << text;

  std::mt19937_64 random(1);
  for (int i = 0; i < 20000; ++i) {
    std::string text = std::to_string(random() % 1000000000000000ULL).substr(0, 1 + random() % 14);
    text.insert(random() % (text.size() + 1), ".");
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    ASSERT_EQ(realOf(text), value) << text;
  }
}

TEST(FormTest, HandlesAreHexadecimal) {
  const std::pair<const char*, std::optional<OdUInt64>> cases[] = {{"0", 0},
                                                                   {" 1aF ", 0x1AF},
                                                                   {"FFFFFFFFFFFFFFFF", ~OdUInt64{0}},
                                                                   {"00000000000000001F", 0x1F},
                                                                   {"", std::nullopt},
                                                                   {"-1", {}},
                                                                   {"+1", {}},
                                                                   {"1G", {}},
                                                                   {"0x1", {}},
                                                                   {"1 2", {}},
                                                                   {"10000000000000000", {}},
                                                                   {"\xC3\xA9", {}}};
  for (const auto& [text, value] : cases) {
    OdUInt64 handle = 0;
    const bool valid = AsciiForm().toHandle(text, handle);
    EXPECT_EQ(valid ? std::optional(handle) : std::nullopt, value) << text;
  }
}

TEST(FormTest, CodesInAnyLayout) {
  const DxfText text{"0\nA\n  0\r\nB\r\n100\n\n1071\n7\n\t 5 \nC\n -3\nD\n    62\nE\n330\n1F",
                     L"drawing.dxf"};
  AsciiScanner scanner(text, text.bytes);
  std::vector<std::pair<int, std::string>> groups;
  for (DxfRawGroup group{}; scanner.next(group);) groups.emplace_back(group.code, group.value);
  using Group = std::pair<int, std::string>;
  EXPECT_THAT(groups, ElementsAre(Group(0, "A"), Group(0, "B"), Group(100, ""), Group(1071, "7"),
                                  Group(5, "C"), Group(-3, "D"), Group(62, "E"), Group(330, "1F")));
  for (const char* wrong :
       {"A\nvalue\n", "\nvalue\n", "1 2\nvalue\n", "  0x\nvalue\n", "12\r3\nvalue\n", "0\n"}) {
    const DxfText damaged{wrong, L"drawing.dxf"};
    AsciiScanner broken(damaged, damaged.bytes);
    DxfRawGroup group{};
    EXPECT_THROW(broken.next(group), OdError_FileException) << wrong;
  }
}

TEST(FormTest, HandleIndexFindsWhatItHolds) {
  for (const OdUInt64 stride : {1u, 8u, 64u, 1u << 20}) {
    constexpr OdUInt64 kCount = 5000;
    std::vector<OdDbStub> stubs(kCount);
    OdDbHandleIndex index;
    for (OdUInt64 i = 0; i < kCount; ++i) {
      stubs[i].handle = 1 + i * stride;
      ASSERT_TRUE(index.insert(&stubs[i]));
    }
    for (OdDbStub& stub : stubs) {
      ASSERT_EQ(index.find(stub.handle), &stub);
      ASSERT_FALSE(index.insert(&stub));
    }
    EXPECT_EQ(index.find(kCount * stride + 1), nullptr);
    EXPECT_EQ(index.find(0), nullptr);
  }
}

} // namespace
