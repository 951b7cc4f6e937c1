// What only a real window has: a person at the keyboard, and handles of the system.
#include "controls_probe.h"
#include "probe_dialog.h"
#include "support/system.h"
#include "sys/library.h"
#include <deque>
#include <gmock/gmock.h>
#include <windows.h>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

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

/// Strikes keys in the menus that open meanwhile, in whose loops the dialog's own person would wait for ever.
class Menus {
public:
  explicit Menus(std::vector<WPARAM> keys) {
    wanted = std::move(keys);
    m_timer = SetTimer(nullptr, 0, 50, &Menus::tick);
  }
  ~Menus() { KillTimer(nullptr, m_timer); }
  Menus(const Menus&) = delete;
  Menus& operator=(const Menus&) = delete;

private:
  static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    if (!GetGUIThreadInfo(GetCurrentThreadId(), &info) || !(info.flags & GUI_INMENUMODE) || wanted.empty())
      return;
    PostMessageW(info.hwndMenuOwner, WM_KEYDOWN, wanted.front(), 0);
    wanted.erase(wanted.begin());
  }

  static inline std::vector<WPARAM> wanted;
  UINT_PTR m_timer;
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

TEST(Window, AClickOnACheckedRadioButtonIsNone) {
  ProbeDialog dialog;
  dialog.reactions["init"] = [](ProbeDialog& d) {
    d.setChecked(IDC_ATTEXT_SDF);
    d.setFocus(IDC_ATTEXT_SDF);
  };
  Person person;
  person.strike({VK_SPACE}).strike({VK_DOWN}).strike({VK_SPACE}).strike({VK_UP}).strike({VK_ESCAPE});
  EXPECT_EQ(dialog.doModal(), 2);
  EXPECT_THAT(dialog.events, ElementsAre("init", "press 1026", "press 1025"));
}

TEST(Window, TakesAFieldAsOneUnitFromTheKeyboard) {
  const std::tuple<const char*, std::vector<std::vector<WORD>>, std::string, std::string> cases[] = {
      {"typing behind it", {{VK_END}, {'A'}}, "Room 3.01a", "change 51"},
      {"taking it away", {{VK_END}, {VK_BACK}}, "Room ", "change 51"},
      {"typing over it", {{VK_END}, {VK_SHIFT, VK_LEFT}, {'3'}}, "Room 3", "change 51"},
      {"its beginning typed beside it", {{VK_END}, {VK_LEFT}, {VK_LEFT}, {'3'}}, "Room 33.01", "change 51"},
  };
  for (const auto& [what, keys, text, event] : cases) {
    ControlsProbe probe;
    std::string seen;
    probe.prepare = [&] {
      probe.value().setRuns({{L"Room ", 0}, {L"3.01", 5}});
      probe.values.form->setFocus(51);
    };
    probe.reactions["close"] = [&] { seen = probe.values.form->text(51).toUtf8(); };
    Person person;
    for (const std::vector<WORD>& chord : keys) person.strike(chord);
    person.strike({VK_ESCAPE});
    EXPECT_EQ(probe.run(nullptr), 2) << what;
    EXPECT_EQ(seen, text) << what;
    EXPECT_THAT(probe.events, Contains(event)) << what;
  }
}

TEST(Window, OpensTheMenuOfAListByKeyAndTurnsPagesByArrow) {
  ControlsProbe probe;
  probe.menu = {{120, L"Move &Up"}, {121, L"Edit...", false}, {}, {122, L"Remove"}};
  probe.prepare = [&] { probe.form().setFocus(46); };
  Person person;
  person.strike({VK_DOWN}).strike({VK_SHIFT, VK_F10});
  probe.reactions["menu 46 122"] = [&] {
    probe.form().setFocus(48);
    person.strike({VK_RIGHT}).strike({VK_ESCAPE});
  };
  const Menus menus({VK_UP, VK_RETURN});
  EXPECT_EQ(probe.run(nullptr), 2);
  EXPECT_THAT(probe.events, Contains("menu 46 122"));
  EXPECT_THAT(probe.events, Contains("activate texts"));
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

/// Takes what windows that have gone still have to hear: Wine reads the real keyboard with it and forgets
/// struck keys.
void settle() {
  for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) DispatchMessageW(&message);
}

void strikeRightControl(DWORD flags) {
  settle();
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

TEST(Window, ThatCannotBeMadeIsAClearError) {
  ControlsProbe probe;
  try {
    ui::makeFace(13, everythingDialog(13), probe, nullptr)->run();
    FAIL();
  } catch (const ui::DialogError& error) {
    EXPECT_THAT(error.what(),
                HasSubstr("The dialog \"Windowless\" cannot be shown: the system made no window for it"));
  }
  EXPECT_TRUE(probe.events.empty());
}

TEST(Window, AThousandOpeningsLeaveNothing) {
  HandmadeUser user;
  ControlsProbe probe;
  probe.prepare = [&] {
    probe.list().select(1); // an emphasised row has its font
    probe.face->listen(L"__TEST_MESSAGE");
  };
  user.act = [](ui::OpenDialog& d) {
    d.press(47) == ui::Outcome::done&& d.type(51, L"Room") == ui::Outcome::done&& d.choose(48, 1) ==
        ui::Outcome::done&& d.escape() == ui::Outcome::done;
  };
  std::vector<std::size_t> before;
  for (int i = 0; i < 1010; ++i) {
    if (i == 10) before = held(); // what the system keeps from the first openings stays
    ASSERT_EQ(probe.run(&user), 2);
    probe.face.reset();
  }
  const std::vector<std::size_t> after = held();
  for (std::size_t kind = 0; kind < before.size(); ++kind) EXPECT_LE(after[kind], before[kind] + 20) << kind;
}

} // namespace
