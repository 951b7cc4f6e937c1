#include "ray_session.h"
#include "support/drawings.h"
#include "sys/library.h"
#include <cmath>

namespace {

std::string triple(double x, double y, double z) {
  std::ostringstream out;
  out.precision(9);
  const char* separator = "";
  for (const double number : {x, y, z}) {
    out << separator << (std::fabs(number) < 1e-12 ? 0 : number);
    separator = ",";
  }
  return out.str();
}

} // namespace

std::string text(const OdDbEndlessLine& line) {
  const OdGePoint3d base = line.basePoint();
  const OdGeVector3d way = line.unitDir();
  EXPECT_NEAR(way.length(), 1, 1e-12);
  return (line.isA() == OdDbRay::desc() ? "ray " : "xline ") + triple(base.x, base.y, base.z) + " " +
         triple(way.x, way.y, way.z);
}

RaySession::RaySession() {
  std::string error;
  m_module = sys::loadLibrary("blockattr", error);
  EXPECT_NE(m_module, nullptr) << error;
}

RaySession::~RaySession() {
  sys::freeLibrary(m_module);
  EXPECT_EQ(sys::findLoadedLibrary("blockattr"), nullptr) << "settings of one test would reach the next";
}

host::RunResult RaySession::execute(const std::string& command, const std::vector<std::string>& answers) {
  lines.prompts.clear();
  lines.printed.clear();
  for (const std::string& answer : answers) lines.type({answer.c_str()});
  const host::RunResult result = session.execute(OdString::fromUtf8(command));
  EXPECT_EQ(lines.prompts.size(), answers.size()) << "as many questions as answers";
  EXPECT_FALSE(lines.readLine("")) << "an answer was not asked for";
  lines.prompts.pop_back();
  return result;
}

RaySession::Outcome RaySession::run(const std::string& command, const std::vector<std::string>& answers) {
  database().clearUndo();
  const std::string before = test::savedBytes(database());
  const std::size_t old = linesOf(database().getModelSpaceId()).size();
  const host::RunResult result = execute(command, answers);
  const std::vector<std::string> printed = lines.printed;
  std::vector<std::string> drawn = linesOf(database().getModelSpaceId());
  drawn.erase(drawn.begin(), drawn.begin() + static_cast<std::ptrdiff_t>(old));
  if (!drawn.empty()) session.execute(L"U");
  EXPECT_EQ(test::savedBytes(database()), before);
  lines.printed = printed;
  return {result, drawn};
}

std::vector<std::string> RaySession::linesOf(OdDbObjectId record) {
  std::vector<std::string> found;
  const OdDbBlockTableRecordPtr opened = record.safeOpenObject();
  for (auto each = opened->newIterator(); !each->done(); each->step()) {
    const OdDbEntityPtr entity = each->entity();
    if (const OdDbRayPtr ray = OdDbRay::cast(entity); !ray.isNull()) found.push_back(text(*ray));
    if (const OdDbXlinePtr line = OdDbXline::cast(entity); !line.isNull()) found.push_back(text(*line));
  }
  return found;
}

std::string RaySession::add(OdDbEntity* entity) {
  const OdDbBlockTableRecordPtr space = database().getModelSpaceId().safeOpenObject(OdDb::kForWrite);
  const OdDbObjectId id = space->appendOdDbEntity(entity);
  return "handle " + id.getHandle().ascii().toUtf8();
}
