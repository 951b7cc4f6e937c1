// Where a dialog stands is kept in the host's profile from one showing to the next.
#include "IProfile.h"
#include "frame/application.h"
#include "probe_dialog.h"
#include "support/dialog_recorder.h"
#include "support/system.h"
#include "sys/library.h"
#include <gmock/gmock.h>

namespace {

constexpr const wchar_t* kSection = L"Dialogs\\EAttEdit";

class KeptPlacement : public testing::Test {
protected:
  KeptPlacement() {
    test::setEnvironment("HBHOST_PROFILE", m_folder / "profile.json");
    ui::setDialogUserSource(+[]() -> ui::DialogUser* { return DialogRecorder::current(); });
  }
  ~KeptPlacement() override {
    ui::setDialogUserSource(nullptr);
    test::setEnvironment("HBHOST_PROFILE", "");
    std::filesystem::remove_all(m_folder);
  }
  static void SetUpTestSuite() {
    std::string error;
    ASSERT_TRUE(sys::loadLibrary("qkcore", error)) << error;
  }

  /// Shows the dialog, closes it by this line, and gives where it stood at first.
  ui::Placement openedAt(ProbeDialog& dialog, const std::string& line) {
    ui::Placement place{};
    dialog.reactions["init"] = [&](ProbeDialog& d) { place = d.placement(); };
    user.say(line);
    dialog.doModal();
    return place;
  }

  /// The blob as the host holds it; empty: none.
  static QkBlob stored() {
    void* profile = nullptr;
    EXPECT_TRUE(frame::application()->QueryInterface(typeid(IProfile), &profile));
    const frame::HostPtr<IProfile> owner(static_cast<IProfile*>(profile));
    const frame::HostPtr<IProfileKey> key(owner->OpenKey(kSection, 0));
    CQkVariant value;
    return key && key->Read(L"Placement", value) && value.asBlob() ? *value.asBlob() : QkBlob{};
  }

  DialogRecorder user;

private:
  std::filesystem::path m_folder = test::makeTemporaryFolder("kept-placement");
};

/// The same place, 40 pixels to the right and below.
ui::Placement moved(ui::Placement place) {
  for (const std::size_t field : {28u, 32u, 36u, 40u}) {
    const unsigned value =
        std::to_integer<unsigned>(place[field]) + 256 * std::to_integer<unsigned>(place[field + 1]) + 40;
    place[field] = static_cast<std::byte>(value & 0xFF);
    place[field + 1] = static_cast<std::byte>(value >> 8);
  }
  return place;
}

TEST_F(KeptPlacement, ComesBackWithTheNextShowing) {
  ProbeDialog dialog(kSection);
  dialog.reactions["press 1021"] = [](ProbeDialog& d) { d.setPlacement(moved(d.placement())); };
  const ui::Placement first = openedAt(dialog, "press select\npress ok");
  EXPECT_EQ(stored(), QkBlob(reinterpret_cast<const unsigned char*>(moved(first).data()), first.size()));
  EXPECT_EQ(openedAt(dialog, "press select\n^C"), moved(first));
  EXPECT_EQ(openedAt(dialog, "^C"), moved(moved(first))) << "Cancel keeps it, too";
}

TEST_F(KeptPlacement, IsThatOfDialogsWithASectionOnly) {
  ProbeDialog dialog;
  dialog.reactions["press 1021"] = [](ProbeDialog& d) { d.setPlacement(moved(d.placement())); };
  const ui::Placement first = openedAt(dialog, "press select\npress ok");
  EXPECT_EQ(openedAt(dialog, "^C"), first);
  EXPECT_EQ(stored(), QkBlob{});
}

} // namespace
