// A program that a module is loaded into. Its arguments are done one after another:
//
//     load NAME       load a stand-in library
//     core            load the host core library qkcore
//     main NAME       NAME is what the program's own export leads to, if it is compiled with one
//     announce NAME   NAME is what the stand-in of QkAcApp leads to
//     register        register two commands
//     instance        print which stand-in the main host module is
//     service N       ask for a service
//     app             ask for the application object
#include "frame/application.h"
#include "frame/host_lookup.h"
#include "frame/registration.h"
#include "frame/test_command.h"
#include "sys/library.h"
#include <cstdio>
#include <map>
#include <string>

namespace {

std::map<std::string, sys::Library> loaded;
std::string mainName;

sys::Library library(const std::string& name) {
  const auto found = loaded.find(name);
  return found == loaded.end() ? nullptr : found->second;
}

void load(const std::string& name) {
  std::string error;
  loaded[name] = sys::loadLibrary(std::string(STAND_IN_FOLDER) + "/" + name, error);
  if (!loaded[name]) std::printf("%s\n", error.c_str());
}

void loadCore() {
  std::string error;
  if (!sys::loadLibrary("qkcore", error)) std::printf("%s\n", error.c_str());
}

void announce(const std::string& name) {
  void* const function = sys::librarySymbol(library("QkAcApp"), "announce");
  reinterpret_cast<void (*)(sys::Library)>(function)(library(name));
}

void printInstance() {
  const sys::Library instance = frame::hostInstance();
  std::string name = instance ? "unknown" : "none";
  for (const auto& [known, handle] : loaded)
    if (handle && handle == instance) name = known;
  std::printf("instance %s\n", name.c_str());
}

void registerCommands() {
  const frame::CommandRegistration plain("Plain", &frame::createCommand<TestCmd>);
  const frame::CommandRegistration grouped("Grouped", &frame::createCommand<TestCmd>, L"HOST", 2);
}

/// Whether the argument took the one behind it.
bool obey(const std::string& deed, const std::string& operand) {
  if (deed == "core") return loadCore(), false;
  if (deed == "register") return registerCommands(), false;
  if (deed == "instance") return printInstance(), false;
  if (deed == "app") return std::printf("app %s\n", frame::application() ? "found" : "none"), false;
  if (deed == "load") load(operand);
  if (deed == "main") mainName = operand;
  if (deed == "announce") announce(operand);
  if (deed == "service") frame::hostFunction(std::stoi(operand));
  return true;
}

} // namespace

#define PROBE_EXPORT extern "C" __attribute__((visibility("default")))
#ifdef PROBE_EXPORTS_INSTANCE
PROBE_EXPORT HostModule GetMainDllInstance() { return library(mainName); }
#endif
#ifdef PROBE_EXPORTS_NAME
PROBE_EXPORT const wchar_t* GetMainDllNameW() {
  static std::wstring name;
  name = std::wstring(mainName.begin(), mainName.end()) + L".dll";
  return name.c_str();
}
#endif

int main(int count, char** arguments) {
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  for (int i = 1; i < count; ++i)
    if (obey(arguments[i], i + 1 < count ? arguments[i + 1] : "")) ++i;
}
