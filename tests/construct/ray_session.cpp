#include "ray_session.h"
#include "support/drawings.h"
#include "sys/library.h"
#include <cmath>
#include <sstream>

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

host::RunResult RaySession::execute(const std::string& command, const std::string& answers) {
  lines.prompts.clear();
  lines.printed.clear();
  std::size_t count = 0;
  std::istringstream stream(answers + "|");
  for (std::string answer; std::getline(stream, answer, '|'); ++count) lines.type({answer.c_str()});
  const host::RunResult result = session.execute(OdString::fromUtf8(command));
  EXPECT_EQ(lines.prompts.size(), count) << "as many questions as answers";
  EXPECT_FALSE(lines.readLine("")) << "an answer was not asked for";
  lines.prompts.pop_back();
  return result;
}

RaySession::Outcome RaySession::run(const std::string& command, const std::string& answers) {
  database().clearUndo();
  const std::string before = test::savedBytes(database());
  const std::size_t old = linesOf(database().getModelSpaceId()).size();
  Outcome outcome{execute(command, answers), {}};
  const std::vector<std::string> printed = lines.printed;
  const std::vector<std::string> all = linesOf(database().getModelSpaceId());
  for (std::size_t i = old; i < all.size(); ++i) outcome.drawn += (i > old ? " + " : "") + all[i];
  if (all.size() > old) session.execute(L"U");
  EXPECT_EQ(test::savedBytes(database()), before);
  lines.printed = printed;
  return outcome;
}

void RaySession::check(const std::string& command, std::initializer_list<Case> cases) {
  for (const Case& test : cases) {
    SCOPED_TRACE(test.name);
    setUcs(test.ucs);
    const Outcome outcome = run(command, test.answers);
    EXPECT_EQ(outcome.result, test.result);
    EXPECT_EQ(outcome.drawn, test.drawn);
    EXPECT_EQ(lines.printed, std::vector<std::string>(test.unusable, "No usable object selected"));
  }
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
