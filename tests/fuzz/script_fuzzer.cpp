// Scripts: the command prompt and every kind of question that commands ask.
#include "DbBlockTableRecord.h"
#include "DbCircle.h"
#include "DbLine.h"
#include "check.h"
#include "hbview/HostSession.h"
#include "hbview/PointParser.h"
#include <cmath>
#include <cstdint>

namespace {

class Script final : public host::Console {
public:
  explicit Script(std::string_view text) : m_rest(text) {}
  std::optional<std::string> readLine(const std::string&) override {
    if (m_rest.empty()) return std::nullopt;
    const std::string_view line = m_rest.substr(0, m_rest.find('\n'));
    m_rest.remove_prefix(std::min(line.size() + 1, m_rest.size()));
    return std::string(line);
  }
  void print(const std::string&) override {}
  std::string place() const override { return "script"; }
  bool isTerminal() const override { return false; }

private:
  std::string_view m_rest;
};

bool isFinite(const OdGePoint3d& point) {
  return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

/// A command for each kind of question.
class Questions {
public:
  explicit Questions(host::HostSession& session) : m_session(session) {
    const std::pair<const char*, void (Questions::*)()> all[] = {
        {"POINT", &Questions::askPoint},     {"DISTANCE", &Questions::askDistance},
        {"ANGLE", &Questions::askAngle},     {"INTEGER", &Questions::askInteger},
        {"KEYWORD", &Questions::askKeyword}, {"TEXT", &Questions::askText},
        {"ENTITY", &Questions::askEntity},   {"SELECTION", &Questions::askSelection},
    };
    for (const auto& [name, ask] : all)
      session.addCommand(name, [this, ask = ask] {
        (this->*ask)();
        return kCmdCompleted;
      });
  }

private:
  HostEdInput& editor() { return *m_session.editor(); }
  void askPoint() {
    OdGePoint3d point;
    if (editor().GetPoint(nullptr, point, L"Point", L"Undo Close", 0, nullptr, nullptr) != kHostEdValue)
      return;
    check(isFinite(point), "a point lies nowhere");
    m_session.database()->setUCS(point, {0, 1, 0}, {-1, 0, 0});
  }
  void askDistance() {
    double distance = 0;
    editor().GetDistance(nullptr, distance, L"Distance", L"Through", kHostEdNoNegative, nullptr, nullptr);
    check(!(distance < 0), "a refused distance was taken");
    check(std::isfinite(distance), "a distance has no end");
  }
  void askAngle() {
    double angle = 0;
    editor().GetAngle(nullptr, angle, L"Angle", L"Reference", 0, nullptr, nullptr);
    check(std::isfinite(angle), "an angle is no number");
  }
  void askInteger() {
    int number = 1;
    editor().GetInteger(number, L"Number", L"All", kHostEdNoZero | kHostEdNoEmpty, nullptr);
    check(number != 0, "a refused number was taken");
  }
  void askKeyword() {
    const int code =
        editor().GetStringOrKeyword(L"Option [%s]", L"eXit Exact _ One Two", 0, nullptr, nullptr);
    check(code == kHostEdCancel || code == kHostEdEmpty || code == 2 || code == 3,
          "no keyword has this code");
  }
  void askText() {
    OdString text;
    editor().GetStringOrKeyword(L"Text", L"Yes No", 0, &text, nullptr);
    editor().Print(L"%ls", text.c_str());
  }
  void askEntity() {
    OdDbObjectId id;
    const int code = editor().SelectEntity(L"Object", 0, id, nullptr);
    check((code == kHostEdValue) == !id.isNull(), "the answer and the object differ");
  }
  void askSelection() {
    OdDbObjectIdArray ids;
    const int code = editor().SelectEntities(L"Objects", 0, nullptr, nullptr, ids);
    check((code == kHostEdValue) == !ids.isEmpty(), "the answer and the objects differ");
  }
  host::HostSession& m_session;
};

OdDbDatabasePtr smallDrawing() {
  OdDbDatabasePtr drawing = OdDbDatabase::createBlank();
  const OdDbBlockTableRecordPtr space = drawing->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
  const OdDbLinePtr line = OdDbLine::createObject();
  line->setEndPoint({10, 0, 0});
  space->appendOdDbEntity(line);
  const OdDbCirclePtr circle = OdDbCircle::createObject();
  circle->setRadius(5);
  space->appendOdDbEntity(circle);
  drawing->clearUndo();
  return drawing;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // One drawing for all scripts, because making one takes longer than everything else here.
  static const OdDbDatabasePtr drawing = smallDrawing();
  Script script({reinterpret_cast<const char*>(data), size});
  host::HostSession session(script);
  session.setDrawing(drawing, L"plan.dxf");
  Questions questions(session);
  try {
    while (const std::optional<OdString> line = session.input().nextCommand(L"Command: "))
      session.execute(*line);
  } catch (const host::ScriptEnded&) {}
  while (drawing->undo()) {}
  drawing->clearUndo();
  check(drawing->getUCSORG() == OdGePoint3d::kOrigin,
        "undoing everything does not lead back to the beginning");
  return 0;
}
