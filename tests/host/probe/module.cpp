// Registers the command "Probe" when it is loaded. The command answers each line of its input with a point
// drawn at that distance along X, and fails on "fail".
#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbPoint.h"
#include "HostEdInput.h"
#include "HostServices.h"
#include "ICmdFactory.h"
#include "sys/library.h"
#include <stdexcept>

namespace {

template <class Function>
Function hostExport(const char* name) {
  return reinterpret_cast<Function>(sys::librarySymbol(sys::findLoadedLibrary("hbview.dll"), name));
}

HostDocument* document() {
  const auto service = hostExport<GetHostFuncPtr>("get_host_funcptr");
  return reinterpret_cast<HostRootFunction>(service(kHostServiceRoot))()->CurrentDocument();
}

void drawPoint(OdDbDatabase* database, double x) {
  const OdSmartPtr<OdDbPoint> point = OdDbPoint::createObject();
  point->setPosition({x, 0, 0});
  OdSmartPtr<OdDbBlockTableRecord> space = database->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
  space->appendOdDbEntity(point);
}

class ProbeCmd final : public ICmdProcess {
public:
  unsigned int AddRef() override { return ++m_references; }
  unsigned int Release() override {
    const unsigned int left = --m_references;
    if (left == 0) Destroy(true);
    return left;
  }
  bool QueryInterface(const std::type_info&, void**) override { return false; }
  CMD_RUNSTATUS Run() override {
    HostEdInput* editor = document()->Editor();
    OdString text;
    for (double x = 1; editor->GetString(text); ++x) {
      if (text.isEmpty()) return m_status = kCmdCompleted;
      if (text == L"transaction") document()->Database()->startTransaction();
      if (text == L"mark") document()->Database()->setUndoMark();
      drawPoint(document()->Database(), x);
      if (text == L"fail") throw std::runtime_error("the probe\nbroke");
    }
    return m_status = kCmdCancelled;
  }
  CMD_RUNSTATUS Status() override { return m_status; }
  int Reserved6() override { return 1; }
  bool GetContext(IQkUnknown**) override { return false; }
  bool SetContext(IQkUnknown*) override { return false; }
  void Destroy(bool free) override {
    if (free) delete this;
  }

private:
  unsigned int m_references = 1;
  CMD_RUNSTATUS m_status = kCmdCompleted;
};

bool createProbe(ICmdProcess** out) {
  *out = new ProbeCmd;
  return true;
}

const bool g_registered = [] {
  ICmdFactory* factory = nullptr;
  hostExport<NewCmdFactory>("new_ICmdFactory")(&factory);
  factory->RegisterInGroup("Probe", &createProbe, L"TEST", 2);
  factory->Release();
  return true;
}();

} // namespace
