// A stand-in for a library of the host. What it exports is chosen when it is compiled; what is called, it
// prints with its own name.
#include "HostServices.h"
#include "IApp.h"
#include "ICmdFactory.h"
#include <cstdio>

#define STAND_IN_EXPORT extern "C" __attribute__((visibility("default")))

namespace {

[[maybe_unused]] int say(const char* what, const char* detail = "") {
  return std::printf("%s: %s%s\n", STAND_IN_NAME, what, detail);
}

} // namespace

#ifdef STAND_IN_FACTORY
namespace {

class Factory final : public ICmdFactory {
public:
  unsigned int AddRef() override { return ++m_references; }
  unsigned int Release() override {
    say("factory released");
    return --m_references;
  }
  bool QueryInterface(const std::type_info&, void**) override { return false; }
  bool RegisterInGroup(const char* name, CmdCreator, const wchar_t* group, int flags) override {
    return std::printf("%s: register %s in %ls flags %d\n", STAND_IN_NAME, name, group, flags) > 0;
  }
  bool Register(const char* name, CmdCreator) override { return say("register ", name) > 0; }

private:
  unsigned int m_references = 1;
} factory;

} // namespace

STAND_IN_EXPORT bool new_ICmdFactory(ICmdFactory** out) {
  *out = &factory;
  return true;
}
#endif

#ifdef STAND_IN_APP
namespace {

class App final : public IApp {
public:
  unsigned int AddRef() override { return 1; }
  unsigned int Release() override { return 0; }
  bool QueryInterface(const std::type_info&, void**) override { return false; }
} app;

} // namespace

STAND_IN_EXPORT IApp* GetApp() {
  say("GetApp");
  return &app;
}
#endif

#ifdef STAND_IN_SERVICES
STAND_IN_EXPORT HostFunction get_host_funcptr(int service) {
  std::printf("%s: service %d\n", STAND_IN_NAME, service);
  return nullptr;
}
#endif

#ifdef STAND_IN_ANNOUNCES
namespace {
HostModule announced = nullptr;
}
STAND_IN_EXPORT HostModule GetMainDllInstanceEx() { return announced; }
STAND_IN_EXPORT void announce(HostModule module) { announced = module; }
#endif
