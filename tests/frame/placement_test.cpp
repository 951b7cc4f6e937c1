#include "IProfile.h"
#include "frame/application.h"
#include "frame/placement.h"
#include "support/system.h"
#include "sys/library.h"
#include <cstdlib>
#include <filesystem>
#include <gmock/gmock.h>
#include <random>

namespace {

using frame::WindowPlacement;

WindowPlacement somewhere() {
  WindowPlacement placement;
  for (std::size_t i = 0; i < placement.size(); ++i) placement[i] = static_cast<std::byte>(i * 7);
  return placement;
}

class Placement : public testing::Test {
protected:
  Placement() {
    std::filesystem::remove(m_file);
    test::setEnvironment("HBHOST_PROFILE", m_file);
  }
  ~Placement() override { std::filesystem::remove(m_file); }

  /// It stays loaded, as in a host.
  static void SetUpTestSuite() {
    std::string error;
    ASSERT_TRUE(sys::loadLibrary("qkcore", error)) << error;
  }

  /// The section as the host holds it; null when there is none.
  static frame::HostPtr<IProfileKey> section(int create) {
    void* profile = nullptr;
    EXPECT_TRUE(frame::application()->QueryInterface(typeid(IProfile), &profile));
    const frame::HostPtr<IProfile> owner(static_cast<IProfile*>(profile));
    return frame::HostPtr<IProfileKey>(owner->OpenKey(kSection, create));
  }

  static constexpr const wchar_t* kSection = L"Dialogs\\AttReDef";

private:
  // Tests of one program run side by side, each as a process of its own.
  std::string m_file = testing::TempDir() + "placement_profile_" + std::to_string(std::random_device()());
};

TEST_F(Placement, IsMissingAtFirstAndMakesNoSection) {
  EXPECT_FALSE(frame::storedPlacement(kSection, false));
  EXPECT_EQ(section(0), nullptr);
}

TEST_F(Placement, IsStoredAsABlobOf44Bytes) {
  const WindowPlacement placement = somewhere();
  frame::savePlacement(kSection, placement);
  CQkVariant value;
  ASSERT_TRUE(section(0)->Read(L"Placement", value));
  ASSERT_NE(value.asBlob(), nullptr);
  EXPECT_EQ(*value.asBlob(), QkBlob(reinterpret_cast<const unsigned char*>(placement.data()), 44));
  EXPECT_EQ(frame::storedPlacement(kSection, false), placement);
}

TEST_F(Placement, IsIgnoredWhileRightControlIsHeldAndReplacedAfterwards) {
  frame::savePlacement(kSection, somewhere());
  EXPECT_FALSE(frame::storedPlacement(kSection, true));
  WindowPlacement other{};
  other[40] = std::byte{9};
  frame::savePlacement(kSection, other);
  EXPECT_EQ(frame::storedPlacement(kSection, false), other);
}

TEST_F(Placement, OfAnotherSizeOrTypeIsIgnored) {
  const auto key = section(1);
  key->Write(L"Placement", CQkVariant(QkBlob(std::size_t{43})));
  EXPECT_FALSE(frame::storedPlacement(kSection, false));
  key->Write(L"Placement", CQkVariant(7));
  EXPECT_FALSE(frame::storedPlacement(kSection, false));
}

} // namespace
