// Command objects as a host sees them: through the raw table of their virtual functions.
#include "ICmdFactory.h"
#include "frame/registration.h"
#include <gmock/gmock.h>

namespace {

/// Calls operations by their slots only.
class Slots {
public:
  explicit Slots(ICmdProcess* object) : m_object(object), m_table(*reinterpret_cast<void***>(object)) {}

  unsigned int addRef(int slot = 0) const { return call<unsigned int>(slot); }
  unsigned int release(int slot = 1) const { return call<unsigned int>(slot); }
  bool query(const std::type_info& type, void** out, int slot = 2) const {
    return call<bool, const std::type_info&, void**>(slot, type, out);
  }
  int run() const { return call<int>(3); }
  int integer(int slot) const { return call<int>(slot); }
  bool getContext(IQkUnknown** out) const { return call<bool, IQkUnknown**>(7, out); }
  bool setContext(IQkUnknown* context) const { return call<bool, IQkUnknown*>(8, context); }
  void destroy(bool free) const { call<void, bool>(9, free); }

private:
  template <class Result, class... Arguments>
  Result call(int slot, Arguments... arguments) const {
    return reinterpret_cast<Result (*)(void*, Arguments...)>(m_table[slot])(m_object, arguments...);
  }

  void* m_object;
  void** m_table;
};

/// What happened to commands of this kind.
struct Life {
  int made = 0;
  int freed = 0;
} life;

class ProbeCmd : public CQkUnknownImpl<ICmdProcess> {
public:
  static void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    ++life.made;
    return ::operator new(size);
  }
  static void operator delete(void* memory) {
    ++life.freed;
    ::operator delete(memory);
  }
  CMD_RUNSTATUS Run() override { return kCmdCompleted; }

protected:
  ~ProbeCmd() = default;
};

class NoMemoryCmd : public ProbeCmd {
public:
  static void* operator new(std::size_t, const std::nothrow_t&) noexcept { return nullptr; }

protected:
  ~NoMemoryCmd() = default;
};

class Context final : public IQkUnknown {
public:
  unsigned int AddRef() override { return ++references; }
  unsigned int Release() override { return --references; }
  bool QueryInterface(const std::type_info&, void**) override { return false; }
  unsigned int references = 1;
};

class CommandObject : public testing::Test {
protected:
  CommandObject() { life = {}; }
  static ICmdProcess* make() {
    ICmdProcess* made = nullptr;
    EXPECT_TRUE(frame::createCommand<ProbeCmd>(&made));
    return made;
  }
  Context context;
};

TEST_F(CommandObject, StartsWithOneReferenceAndStatusZero) {
  const Slots command(make());
  EXPECT_EQ(command.integer(4), 0);
  EXPECT_EQ(command.integer(5), 0);
  EXPECT_EQ(command.integer(6), 1);
  EXPECT_EQ(life.made, 1);
  EXPECT_EQ(command.release(), 0u);
  EXPECT_EQ(life.freed, 1);
}

TEST_F(CommandObject, CountsThroughBothPairsOfSlots) {
  const Slots command(make());
  EXPECT_EQ(command.addRef(0), 2u);
  EXPECT_EQ(command.addRef(10), 3u);
  EXPECT_EQ(command.release(11), 2u);
  EXPECT_EQ(command.release(1), 1u);
  EXPECT_EQ(life.freed, 0);
  EXPECT_EQ(command.release(11), 0u);
  EXPECT_EQ(life.freed, 1);
}

TEST_F(CommandObject, ReportsFullMemoryByANullPointer) {
  ICmdProcess* made = reinterpret_cast<ICmdProcess*>(&context);
  EXPECT_TRUE(frame::createCommand<NoMemoryCmd>(&made));
  EXPECT_EQ(made, nullptr);
}

TEST_F(CommandObject, AnswersForItsTwoInterfaces) {
  ICmdProcess* const object = make();
  const Slots command(object);
  for (const int slot : {2, 12}) {
    for (const std::type_info* type : {&typeid(IQkUnknown), &typeid(ICmdProcess)}) {
      void* out = nullptr;
      EXPECT_TRUE(command.query(*type, &out, slot));
      EXPECT_EQ(out, object);
      EXPECT_EQ(command.release(), 1u);
      EXPECT_TRUE(command.query(*type, nullptr, slot));
      EXPECT_EQ(command.addRef(), 2u) << "a question without out pointer must add no reference";
      command.release();
    }
    void* out = object;
    EXPECT_FALSE(command.query(typeid(ICmdFactory), &out, slot));
    EXPECT_EQ(out, nullptr);
    EXPECT_FALSE(command.query(typeid(ProbeCmd), nullptr, slot));
  }
  command.release();
}

TEST_F(CommandObject, HoldsOneReferenceToItsContext) {
  const Slots command(make());
  IQkUnknown* out = nullptr;
  EXPECT_FALSE(command.getContext(&out));

  EXPECT_TRUE(command.setContext(&context));
  EXPECT_TRUE(command.setContext(&context));
  EXPECT_EQ(context.references, 2u);
  EXPECT_TRUE(command.getContext(&out));
  EXPECT_EQ(out, &context);
  EXPECT_EQ(context.references, 3u);
  out->Release();

  Context other;
  EXPECT_TRUE(command.setContext(&other));
  EXPECT_EQ(context.references, 1u);
  EXPECT_EQ(other.references, 2u);
  EXPECT_TRUE(command.setContext(nullptr));
  EXPECT_EQ(other.references, 1u);
  EXPECT_FALSE(command.getContext(&out));

  command.setContext(&context);
  command.release();
  EXPECT_EQ(context.references, 1u) << "the end of the command must release the context";
}

TEST_F(CommandObject, IsEndedWithoutBeingFreedWhenAsked) {
  ICmdProcess* const object = make();
  const Slots command(object);
  command.setContext(&context);
  command.destroy(false);
  EXPECT_EQ(context.references, 1u);
  EXPECT_EQ(life.freed, 0);
  ::operator delete(object);
}

} // namespace
