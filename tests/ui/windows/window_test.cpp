// What only a real window has: a person at the keyboard, and handles of the system.
#include "probe_dialog.h"
#include "support/system.h"
#include "sys/library.h"
#include <deque>
#include <gmock/gmock.h>
#include <windows.h>

namespace {

using testing::Contains;
using testing::ElementsAre;

/// Strikes keys, one after the other, while a dialog is open; before each, it may look at the dialog.
class Person {
public:
  explicit Person(std::function<void()> look = [] {}) : m_look(std::move(look)) {
    instance = this;
    m_timer = SetTimer(nullptr, 0, 50, &Person::tick);
  }
  ~Person() {
    KillTimer(nullptr, m_timer);
    EXPECT_TRUE(m_chords.empty()) << "keys are left that nobody waited for";
  }
  Person(const Person&) = delete;
  Person& operator=(const Person&) = delete;

  /// Keys held down together.
  Person& strike(std::vector<WORD> chord) {
    m_chords.push_back(std::move(chord));
    return *this;
  }

private:
  static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) { instance->act(); }

  void act() {
    // Keys go to the window in the foreground, and it takes a moment to get there.
    if (!GetFocus() || GetForegroundWindow() != GetActiveWindow() || m_chords.empty()) return;
    m_look();
    const std::vector<WORD> chord = std::exchange(m_chords.front(), {});
    m_chords.pop_front();
    for (const WORD key : chord) send(key, 0);
    for (auto key = chord.rbegin(); key != chord.rend(); ++key) send(*key, KEYEVENTF_KEYUP);
  }

  static void send(WORD key, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    SendInput(1, &input, sizeof input);
  }

  static inline Person* instance = nullptr;
  std::function<void()> m_look;
  std::deque<std::vector<WORD>> m_chords;
  UINT_PTR m_timer = 0;
};

TEST(Window, IsWalkedThroughByTab) {
  ProbeDialog dialog;
  dialog.reactions["init"] = [](ProbeDialog& d) { d.setChecked(IDC_ATTEXT_SDF); };
  std::vector<int> focus;
  Person person([&] { focus.push_back(dialog.focus()); });
  for (int i = 0; i < 9; ++i) person.strike({VK_TAB});
  person.strike({VK_SHIFT, VK_TAB}).strike({VK_ESCAPE});
  EXPECT_EQ(dialog.doModal(), 2);
  EXPECT_THAT(focus, ElementsAre(IDC_ATTEXT_SDF, IDC_ATTEXT_SELECT, IDC_ATTEXT_TEMPLATE_BUTTON,
                                 IDC_ATTEXT_TEMPLATE, IDC_ATTEXT_OUTPUT_BUTTON, IDC_ATTEXT_OUTPUT, IDOK,
                                 IDCANCEL, IDHELP, IDC_ATTEXT_SDF, IDHELP));
  EXPECT_THAT(dialog.events, ElementsAre("init", "leave 1027", "leave 1028"));
}

TEST(Window, ObeysTheMarkedLettersAndTheKeysOfEveryDialog) {
  const std::pair<std::vector<WORD>, const char*> cases[] = {
      {{VK_MENU, 'D'}, "press 1026"},
      {{VK_MENU, 'O'}, "press 1021"},
      {{VK_MENU, 'T'}, "press 1022"},
      {{VK_MENU, 'F'}, "press 1023"},
      {{VK_MENU, 'H'}, "help"},
      {{VK_F1}, "help"},
      {{VK_RETURN}, "ok"},
      {{VK_DOWN}, "press 1026"},
      {{VK_UP}, "press 1024"},
  };
  for (const auto& [chord, event] : cases) {
    ProbeDialog dialog;
    dialog.reactions["init"] = [](ProbeDialog& d) { d.setChecked(IDC_ATTEXT_SDF); };
    dialog.reactions["ok"] = [](ProbeDialog&) {};
    Person person;
    person.strike(chord).strike({VK_ESCAPE});
    EXPECT_EQ(dialog.doModal(), 2);
    EXPECT_THAT(dialog.events, ElementsAre("init", event));
  }
}

TEST(Window, TellsEveryKeyThatIsTyped) {
  ProbeDialog dialog;
  dialog.reactions["init"] = [](ProbeDialog& d) { d.setFocus(IDC_ATTEXT_OUTPUT); };
  dialog.reactions["ok"] = [](ProbeDialog& d) {
    EXPECT_EQ(d.text(IDC_ATTEXT_OUTPUT).toUtf8(), "ab");
    d.end(1);
  };
  Person person;
  person.strike({'A'}).strike({'B'}).strike({VK_RETURN});
  EXPECT_EQ(dialog.doModal(), 1);
  EXPECT_THAT(dialog.events, ElementsAre("init", "change 1028", "change 1028", "ok", "leave 1028"));
}

/// A window of the program in front of which dialogs open.
struct HostWindow {
  HostWindow() { SetActiveWindow(window); }
  ~HostWindow() { DestroyWindow(window); }
  HWND window = CreateWindowExW(0, L"Static", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 400, 300,
                                nullptr, nullptr, nullptr, nullptr);
};

TEST(Window, DisablesWhatItStandsBefore) {
  const HostWindow host;
  ProbeDialog outer, inner;
  outer.reactions["press 1021"] = [&](ProbeDialog&) { inner.doModal(); };
  inner.reactions["press 1021"] = [&](ProbeDialog& d) {
    const auto isEnabled = [](void* window) { return IsWindowEnabled(static_cast<HWND>(window)) != FALSE; };
    EXPECT_TRUE(isEnabled(d.window()));
    EXPECT_FALSE(isEnabled(outer.window()));
    EXPECT_FALSE(isEnabled(host.window));
    EXPECT_EQ(GetWindow(static_cast<HWND>(d.window()), GW_OWNER), outer.window());
  };
  Person person;
  person.strike({VK_MENU, 'O'}).strike({VK_MENU, 'O'}).strike({VK_ESCAPE}).strike({VK_ESCAPE});
  outer.doModal();
  EXPECT_THAT(inner.events, Contains("press 1021"));
  EXPECT_TRUE(IsWindowEnabled(host.window));
}

TEST(Window, StandsWhereItsPlacementSays) {
  ProbeDialog dialog;
  RECT place{};
  dialog.reactions["init"] = [&](ProbeDialog& d) {
    ui::Placement moved = d.placement();
    for (const std::size_t field : {28u, 32u, 36u, 40u}) {
      moved[field + 1] = std::byte{field < 36 ? std::uint8_t{0} : std::uint8_t{1}};
      moved[field] = std::byte{40};
    }
    d.setPlacement(moved);
    GetWindowRect(static_cast<HWND>(d.window()), &place);
    d.end(1);
  };
  dialog.doModal();
  EXPECT_THAT((std::vector<long>{place.left, place.top, place.right, place.bottom}),
              ElementsAre(40, 40, 296, 296));
}

void strikeRightControl(DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = VK_RCONTROL;
  input.ki.dwFlags = KEYEVENTF_EXTENDEDKEY | flags;
  SendInput(1, &input, sizeof input);
}

TEST(Window, OpensAtItsDefaultPlaceWhileRightControlIsHeld) {
  std::string error;
  ASSERT_TRUE(sys::loadLibrary("qkcore", error)) << error;
  const std::filesystem::path folder = test::makeTemporaryFolder("right-control");
  test::setEnvironment("HBHOST_PROFILE", folder / "profile.json");
  ProbeDialog dialog(L"Dialogs\\EAttEdit");
  ui::Placement opened{};
  dialog.reactions["init"] = [&](ProbeDialog& d) {
    opened = d.placement();
    MoveWindow(static_cast<HWND>(d.window()), 40, 40, 300, 200, FALSE);
    d.end(1);
  };
  const auto open = [&] { return dialog.doModal(), opened; };
  const ui::Placement byDefault = open();
  const ui::Placement stored = open();
  EXPECT_NE(stored, byDefault);
  strikeRightControl(0);
  EXPECT_EQ(open(), byDefault);
  strikeRightControl(KEYEVENTF_KEYUP);
  EXPECT_EQ(open(), stored);
  test::setEnvironment("HBHOST_PROFILE", "");
  std::filesystem::remove_all(folder);
}

/// What the system holds for this process: its windows, drawing objects and handles; and the windows of this
/// thread and the place of a new handle, because Wine counts none of the first three.
std::vector<std::size_t> held() {
  const HANDLE process = GetCurrentProcess();
  DWORD handles = 0;
  GetProcessHandleCount(process, &handles);
  std::size_t windows = 0;
  const auto count = [](HWND, LPARAM counter) -> BOOL {
    return ++*reinterpret_cast<std::size_t*>(counter), TRUE;
  };
  EnumThreadWindows(GetCurrentThreadId(), count, reinterpret_cast<LPARAM>(&windows));
  const HANDLE event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
  CloseHandle(event);
  return {GetGuiResources(process, GR_USEROBJECTS), GetGuiResources(process, GR_GDIOBJECTS), handles, windows,
          reinterpret_cast<std::size_t>(event)};
}

HandmadeUser* handmadeUser = nullptr;

TEST(Window, AThousandOpeningsLeaveNothing) {
  HandmadeUser user;
  user.act = [](ui::OpenDialog& d) {
    d.press(IDC_ATTEXT_SELECT) == ui::Outcome::done&& d.escape() == ui::Outcome::done;
  };
  handmadeUser = &user;
  ui::setDialogUserSource(+[]() -> ui::DialogUser* { return handmadeUser; });
  ProbeDialog dialog;
  std::vector<std::size_t> before;
  for (int i = 0; i < 1010; ++i) {
    if (i == 10) before = held(); // what the system keeps from the first openings stays
    dialog.doModal();
  }
  ui::setDialogUserSource(nullptr);
  const std::vector<std::size_t> after = held();
  for (std::size_t kind = 0; kind < before.size(); ++kind) EXPECT_LE(after[kind], before[kind] + 20) << kind;
}

} // namespace
