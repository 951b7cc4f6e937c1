// What the main host module exports to modules.
#include "HostServices.h"
#include "HostSession.h"
#include "ICmdFactory.h"
#include "QkCore.h"
#include "common/Unknown.h"
#include "hostgsmanager/Display.h"

namespace host {

namespace {

class CmdFactory final : public Unknown<CmdFactory, ICmdFactory> {
public:
  bool RegisterInGroup(const char* name, CmdCreator creator, const wchar_t* group, int flags) override {
    if (!name || !*name || !creator) return false;
    Command command;
    command.name = name;
    command.group = OdString(group);
    command.flags = flags;
    command.creator = creator;
    registeredCommands().add(std::move(command));
    return true;
  }
  bool Register(const char* name, CmdCreator creator) override {
    return RegisterInGroup(name, creator, nullptr, 0);
  }
};

class Root final : public HostRoot {
public:
  HostDocument* CurrentDocument() override {
    HostSession* session = HostSession::current();
    return session ? session->document() : nullptr;
  }
};

class ColorScheme final : public HostColorScheme {
public:
  OdUInt32 ControlBackground() override {
    constexpr OdUInt32 kWhite = 0x00FFFFFF;
    return kWhite;
  }
};

HostRoot* root() {
  static Root theRoot;
  return HostSession::current() ? &theRoot : nullptr;
}

void regenerate(int) { display().regenerate(); }

HostColorScheme* colorScheme() {
  static ColorScheme scheme;
  return &scheme;
}

} // namespace

} // namespace host

extern "C" {

bool new_ICmdFactory(ICmdFactory** out) {
  if (!out) return false;
  *out = new host::CmdFactory;
  return true;
}

HostFunction get_host_funcptr(int service) {
  switch (service) {
  case kHostServiceRoot: return reinterpret_cast<HostFunction>(&host::root);
  case kHostServiceRegenerate: return reinterpret_cast<HostFunction>(&host::regenerate);
  case kHostServiceColorScheme: return reinterpret_cast<HostFunction>(&host::colorScheme);
  default: return nullptr;
  }
}

void* GetDialogUser() {
  const host::HostSession* session = host::HostSession::current();
  return session ? session->dialogUser() : nullptr;
}

IApp* GetApp() {
  void* app = nullptr;
  CreateObjectC(kAppClassName, 0, typeid(IApp), &app);
  return static_cast<IApp*>(app);
}
}
