// The interfaces as modules see them: by the numbers of their slots.
#include "HostEdInputTracker.h"
#include "HostServices.h"
#include "ICmdFactory.h"
#include "IProfile.h"
#include "QkCore.h"
#include "lines.h"
#include "sys/library.h"
#include <gmock/gmock.h>
#include <stdexcept>

namespace {

/// Calls the function in a slot of an object's table of virtual functions.
template <class Result, class... Arguments>
Result slot(void* object, int number, Arguments... arguments) {
  if (!object) throw std::logic_error("there is no object to call");
  using Function = Result (*)(void*, Arguments...);
  return reinterpret_cast<Function>((*static_cast<void***>(object))[number])(object, arguments...);
}

template <class Function>
Function hostExport(const char* name) {
  return reinterpret_cast<Function>(sys::librarySymbol(sys::findLoadedLibrary("hbview"), name));
}

void* hostRoot() {
  const auto service = hostExport<GetHostFuncPtr>("get_host_funcptr");
  return reinterpret_cast<HostRootFunction>(service(2))();
}

const wchar_t* const kNoText = nullptr;
void* const kNothing = nullptr;

TEST(Slots, ServicesLeadToTheDrawing) {
  EXPECT_EQ(hostRoot(), nullptr) << "no session";
  Lines lines;
  host::HostSession session(lines);
  EXPECT_EQ(slot<void*>(hostRoot(), 0), nullptr) << "no drawing";
  session.setDrawing(OdDbDatabase::createBlank(), L"plan.dxf");
  void* document = slot<void*>(hostRoot(), 0);
  EXPECT_EQ(slot<void*>(document, 0), session.database());
  EXPECT_EQ(slot<void*>(document, 3), session.editor());
  EXPECT_EQ(OdString(slot<const wchar_t*>(document, 4)), L"plan.dxf");

  const auto service = hostExport<GetHostFuncPtr>("get_host_funcptr");
  reinterpret_cast<HostRegenerateFunction>(service(12))(1);
  void* colors = reinterpret_cast<HostColorSchemeFunction>(service(17))();
  EXPECT_EQ(slot<OdUInt32>(colors, 12), 0x00FFFFFFu);
  EXPECT_EQ(service(0), nullptr);
}

TEST(Slots, EditorAsksForPointsTextsAndNumbers) {
  OpenSession open;
  open.lines.type({"3,4,5", "some text", "a line", "2.5", "90", "12"});
  void* editor = open.session.editor();
  OdGePoint3d point;
  OdString text;
  double number = 0;
  int integer = 0;
  EXPECT_EQ(slot<int>(editor, 0, kNothing, &point, kNoText, kNoText, 4, kNothing, kNothing), -1);
  EXPECT_EQ(point, OdGePoint3d(3, 4, 5));
  EXPECT_EQ(slot<int>(editor, 2, kNoText, kNoText, 3, &text, kNothing), -1);
  EXPECT_EQ(text, L"some text");
  EXPECT_TRUE(slot<bool>(editor, 6, &text));
  EXPECT_EQ(text, L"a line");
  EXPECT_EQ(slot<int>(editor, 7, kNothing, &number, kNoText, kNoText, 12, kNothing, kNothing), -1);
  EXPECT_EQ(number, 2.5);
  EXPECT_EQ(slot<int>(editor, 8, kNothing, &number, kNoText, kNoText, 0, kNothing, kNothing), -1);
  EXPECT_NEAR(number, OdaPI2, 1e-12);
  EXPECT_EQ(slot<int>(editor, 9, &integer, kNoText, kNoText, 0, kNothing), -1);
  EXPECT_EQ(integer, 12);
  slot<void>(editor, 12, &point);
  EXPECT_EQ(point, OdGePoint3d(3, 4, 5));
  slot<void>(editor, 18, 1, kNothing);
}

TEST(Slots, EditorPrintsAndSelects) {
  OpenSession open;
  void* editor = open.session.editor();
  using Print = void (*)(void*, const wchar_t*, ...);
  reinterpret_cast<Print>((*static_cast<void***>(editor))[4])(editor, L"\n%s %d\n", L"number", 7);
  EXPECT_EQ(open.lines.printed.back(), "number 7");
  OdDbObjectId id;
  OdDbObjectIdArray ids;
  open.lines.type({"", "^C"});
  EXPECT_EQ(slot<int>(editor, 10, kNoText, 8192, &id, kNothing), 1);
  EXPECT_EQ(slot<int>(editor, 11, kNoText, 16384, kNothing, kNothing, &ids), -2);
}

TEST(Slots, FactoryRegistersCommands) {
  const CmdCreator creator = [](ICmdProcess**) { return true; };
  ICmdFactory* factory = nullptr;
  ASSERT_TRUE(hostExport<NewCmdFactory>("new_ICmdFactory")(&factory));
  slot<bool>(factory, 7, "SlotSeven", creator, L"HOST", 2);
  slot<bool>(factory, 8, "SlotEight", creator);
  EXPECT_EQ(slot<unsigned int>(factory, 1), 0u) << "the module held the only reference";
  const auto& commands = host::registeredCommands().commands();
  const auto named = [&](const char* name) {
    return *std::find_if(commands.begin(), commands.end(),
                         [&](const auto& command) { return command.name == name; });
  };
  EXPECT_EQ(named("SlotSeven").group, L"HOST");
  EXPECT_EQ(named("SlotSeven").flags, 2);
  EXPECT_EQ(named("SlotEight").group, L"");
}

TEST(Slots, ApplicationGivesTheProfile) {
  void* app = nullptr;
  ASSERT_TRUE(CreateObjectC("CLSID_APP", 0, typeid(IApp), &app));
  void* profile = nullptr;
  EXPECT_TRUE(slot<bool>(app, 2, &typeid(IProfile), &profile));
  EXPECT_EQ(slot<unsigned int>(app, 1), 0u);
  void* key = slot<void*>(profile, 4, L"Dialogs\\None", 1);
  CQkVariant value;
  EXPECT_FALSE(slot<bool>(key, 8, L"Placement", &value));
  EXPECT_EQ(slot<unsigned int>(key, 1), 0u);
  EXPECT_EQ(slot<unsigned int>(profile, 1), 0u);

  app = &app;
  EXPECT_FALSE(CreateObjectC("CLSID_OTHER", 0, typeid(IApp), &app));
  EXPECT_EQ(app, nullptr);
  EXPECT_FALSE(CreateObjectC("CLSID_APP", 0, typeid(IProfile), &app));
}

TEST(Slots, TrackersKeepTheirDefaults) {
  class Tracker final : public HostEdPointTracker {
  } tracker;
  const HostEdInputMessage message{512, nullptr};
  const OdGePoint3d cursor;
  void* filter = static_cast<HostEdMessageFilter*>(&tracker);
  EXPECT_EQ(filter, &tracker) << "the filter's table is the tracker's";
  EXPECT_FALSE(slot<bool>(&tracker, 0, &message, &cursor));
  EXPECT_EQ(slot<int>(&tracker, 1, kNothing), 0);
  slot<void>(&tracker, 2, kNothing);
  EXPECT_FALSE(slot<bool>(&tracker, 3));
  EXPECT_FALSE(slot<bool>(&tracker, 4));
  int mode = 42;
  EXPECT_FALSE(slot<bool>(&tracker, 5, &mode));
  EXPECT_EQ(mode, 42);
  void* dimensions = static_cast<HostEdJigDimData*>(&tracker);
  EXPECT_EQ(slot<void*>(dimensions, 0), nullptr);
  EXPECT_EQ(slot<int>(dimensions, 1), 3);
  EXPECT_EQ(slot<int>(dimensions, 2), 3);
}

TEST(Slots, TheMainModuleIsAnnouncedWhileASessionLives) {
  const auto announced = reinterpret_cast<GetMainInstance>(
      sys::librarySymbol(sys::findLoadedLibrary("QkAcApp.dll"), "GetMainDllInstanceEx"));
  ASSERT_NE(announced, nullptr);
  EXPECT_EQ(announced(), nullptr);
  Lines lines;
  host::HostSession session(lines);
  EXPECT_EQ(announced(), sys::findLoadedLibrary("hbview.dll"));
  EXPECT_NE(announced(), nullptr);
  int user = 0;
  session.setDialogUser(&user);
  EXPECT_EQ(hostExport<GetDialogUserFunction>("GetDialogUser")(), &user);
  for (const char* library : {"QkAcApp", "hbview"}) {
    const auto getApp =
        reinterpret_cast<GetAppFunction>(sys::librarySymbol(sys::findLoadedLibrary(library), "GetApp"));
    ASSERT_NE(getApp, nullptr) << library;
    EXPECT_EQ(getApp()->Release(), 0u);
  }
}

} // namespace
