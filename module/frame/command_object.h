#pragma once
#include "ICmdProcess.h"
#include "session.h"
#include <new>
#include <utility>

/// Base of every command object: the reference count, the attached context and the status of the last run. A
/// command derives from CQkUnknownImpl<ICmdProcess>, overrides Run, and keeps no state of its own between
/// runs.
///
/// The host sees the slots of the interface (0 to 9) and behind them the three declared here (10 to 12); a
/// command must not add virtual functions of its own.
template <class Interface>
class CQkUnknownImpl : public Interface {
public:
  CQkUnknownImpl() = default;
  CQkUnknownImpl(const CQkUnknownImpl&) = delete;
  CQkUnknownImpl& operator=(const CQkUnknownImpl&) = delete;

  unsigned int AddRef() override { return IncrementReferences(); }
  unsigned int Release() override { return DecrementReferences(); }
  bool QueryInterface(const std::type_info& type, void** out) override { return QueryType(type, out); }

  CMD_RUNSTATUS Status() override { return m_status; }
  int Reserved6() override { return 1; }

  bool GetContext(IQkUnknown** context) override {
    if (!m_context) return false;
    m_context->AddRef();
    *context = m_context;
    return true;
  }

  bool SetContext(IQkUnknown* context) override {
    if (context == m_context) return true;
    IQkUnknown* const old = std::exchange(m_context, context);
    if (context) context->AddRef();
    if (old) old->Release();
    return true;
  }

  /// Slot 10.
  virtual unsigned int IncrementReferences() { return ++m_references; }
  /// Slot 11.
  virtual unsigned int DecrementReferences() {
    const unsigned int left = --m_references;
    if (left == 0) this->Destroy(true);
    return left;
  }
  /// Slot 12.
  virtual bool QueryType(const std::type_info& type, void** out) {
    const bool supported = type == typeid(IQkUnknown) || type == typeid(Interface);
    if (out) *out = supported ? static_cast<Interface*>(this) : nullptr;
    if (out && supported) AddRef();
    return supported;
  }

protected:
  ~CQkUnknownImpl() {
    if (IQkUnknown* const context = std::exchange(m_context, nullptr)) context->Release();
  }

  /// The course that all runs share: the status is "in progress", the session is asked for, `body` (a
  /// function from Session& to CMD_RUNSTATUS) does the work, and its result becomes the status. When an
  /// exception leaves the body the run has failed.
  template <class Body>
  CMD_RUNSTATUS perform(Body body) {
    m_status = kCmdInProgress;
    try {
      frame::Session session;
      m_status = body(session);
    } catch (...) {
      m_status = kCmdCancelled;
      throw;
    }
    return m_status;
  }

private:
  unsigned int m_references = 1;
  IQkUnknown* m_context = nullptr;
  CMD_RUNSTATUS m_status = kCmdCompleted;
};

namespace frame {

/// A command as it is made for the host. It alone knows the whole size of the object, so it ends it.
template <class Command>
class CommandObject final : public Command {
public:
  void Destroy(bool free) override {
    if (free)
      delete this;
    else
      this->~CommandObject();
  }
};

/// The creator of a command. It succeeds also when memory ran out; the host has to look at the pointer.
template <class Command>
bool createCommand(ICmdProcess** out) {
  *out = new (std::nothrow) CommandObject<Command>;
  return true;
}

} // namespace frame
