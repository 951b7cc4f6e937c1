#include "ray_session.h"
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

std::vector<std::string> split(const std::string& answers) {
  std::vector<std::string> parts;
  std::istringstream stream(answers + "|");
  for (std::string part; std::getline(stream, part, '|');) parts.push_back(part);
  return parts;
}

} // namespace

std::string text(const OdDbEndlessLine& line) {
  const OdGePoint3d base = line.basePoint();
  const OdGeVector3d way = line.unitDir();
  EXPECT_NEAR(way.length(), 1, 1e-12);
  return (line.isA() == OdDbRay::desc() ? "ray " : "xline ") + triple(base.x, base.y, base.z) + " " +
         triple(way.x, way.y, way.z);
}

host::RunResult RaySession::execute(const std::string& command, const std::string& answers) {
  return ConstructSession::execute(command, split(answers));
}

RaySession::Outcome RaySession::run(const std::string& command, const std::string& answers) {
  const std::size_t old = linesOf(modelSpace()).size();
  Outcome outcome;
  outcome.result = ConstructSession::run(command, split(answers), [&] {
    const std::vector<std::string> all = linesOf(modelSpace());
    for (std::size_t i = old; i < all.size(); ++i) outcome.drawn += (i > old ? " + " : "") + all[i];
  });
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
  for (const auto& line : all<OdDbEndlessLine>(record)) found.push_back(text(*line));
  return found;
}

std::string RaySession::add(OdDbEntity* entity) {
  draw(modelSpace(), OdDbEntityPtr(entity));
  return "handle " + entity->objectId().getHandle().ascii().toUtf8();
}
