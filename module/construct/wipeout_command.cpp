#include "wipeout_command.h"
#include "DbWipeoutVariables.h"
#include "HostGsManager.h"
#include "HostUtils.h"
#include "frame/host_lookup.h"
#include "frame/input.h"
#include "preview.h"
#include "res/strings.h"
#include "target_space.h"
#include "wipeout_bounds.h"
#include "wipeout_mask.h"

namespace {

enum StartKeyword { kFrames = kHostEdFirstKeyword, kPolyline };
enum FrameKeyword { kOn = kHostEdFirstKeyword, kOff };

/// Where the wipeouts of a run go.
struct Target {
  const frame::Session& session;
  OdDbObjectId space;

  bool makeFrom(const OdDbPolylinePtr& polyline) const {
    return construct::makeWipeout(session.input(), session.database(), space, polyline);
  }
};

CMD_RUNSTATUS pickCorners(const Target& target, const OdGePoint3d& start, const OdGeVector3d& normal) {
  const OdDbPolylinePtr bounds = construct::pickBounds(target.session.input(), start, normal);
  if (bounds.isNull()) return kCmdCancelled;
  target.makeFrom(bounds);
  return kCmdCompleted;
}

/// Asks for objects until one is a polyline. Null: none.
OdDbPolylinePtr askPolyline(HostEdInput& input) {
  for (;;) {
    OdDbObjectId object;
    input.SelectEntity(res::loadString(IDS_SELECT_CLOSED_POLYLINE), construct::kOneObjectFlags, object,
                       nullptr);
    if (object.isNull()) return {};
    if (OdDbPolylinePtr polyline = OdDbPolyline::cast(object.openObject()); !polyline.isNull())
      return polyline;
  }
}

CMD_RUNSTATUS takePolyline(const Target& target) {
  const OdDbPolylinePtr polyline = askPolyline(target.session.input());
  return !polyline.isNull() && target.makeFrom(polyline) ? kCmdCompleted : kCmdCancelled;
}

void regenerate() {
  constexpr int kMode = 1;
  const auto service = reinterpret_cast<HostRegenerateFunction>(frame::hostFunction(kHostServiceRegenerate));
  if (service) service(kMode);
}

void showFrames(OdDbDatabase& database, bool show) {
  OdDbWipeoutVariables::openWipeoutVariables(&database, OdDb::kForWrite, true)->setShowFrame(show);
  hostgsRefreshViews(&database);
  regenerate();
}

CMD_RUNSTATUS askFrames(const frame::Session& session) {
  const OdString on = res::loadString(IDS_KEY_ON);
  const OdString off = res::loadString(IDS_KEY_OFF);
  const OdDbWipeoutVariablesPtr variables = OdDbWipeoutVariables::openWipeoutVariables(&session.database());
  const bool areShown = !variables.isNull() && variables->showFrame();
  const OdString keywords = OdString().format(L"%s %s", on.c_str(), off.c_str());
  const OdString prompt =
      OdString().format(L"%s <%s>", res::loadString(IDS_ENTER_MODE).c_str(), (areShown ? on : off).c_str());
  const int code = session.input().GetStringOrKeyword(prompt, keywords, 0, nullptr, nullptr);
  if (code == kOn || code == kOff) showFrames(session.database(), code == kOn);
  return frame::statusAfter(code);
}

CMD_RUNSTATUS wipeout(const frame::Session& session) {
  const OdGeVector3d normal = get_UCSZDIR(&session.database());
  const Target target{session, construct::targetSpace(session.database())};
  OdGePoint3d start;
  const int code = session.input().GetPoint(nullptr, start, res::loadString(IDS_WIPEOUT_START_POINT),
                                            res::loadString(IDS_KEYS_FRAMES_POLYLINE), construct::kPointFlags,
                                            nullptr, nullptr);
  switch (code) {
  case kHostEdValue: return pickCorners(target, start, normal);
  case kHostEdEmpty:
  case kPolyline: return takePolyline(target);
  case kFrames: return askFrames(session);
  default: return frame::statusAfter(code);
  }
}

} // namespace

CMD_RUNSTATUS CWipeoutCmd::Run() {
  return perform([](const frame::Session& session) { return wipeout(session); });
}
