// How the cost of the command Divide grows: curves of many pieces, divided into many parts by points and by
// blocks, as a user would. The time per part must stay the same from one size to the next; "each" shows it.
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "hbview/HostSession.h"
#include "sample_curves.h"
#include "sys/library.h"
#include <algorithm>
#include <benchmark/benchmark.h>
#include <deque>

namespace {

constexpr int kMostParts = 32767;

/// A console of answers that nobody looks at.
class Answers : public host::Console {
public:
  std::optional<std::string> readLine(const std::string&) override {
    if (m_lines.empty()) return std::nullopt;
    std::string line = m_lines.front();
    m_lines.pop_front();
    return line;
  }
  void print(const std::string& line) override { printed = line; }
  std::string place() const override { return {}; }
  bool isTerminal() const override { return true; }
  void type(std::initializer_list<std::string> lines) { m_lines.insert(m_lines.end(), lines); }

  std::string printed;

private:
  std::deque<std::string> m_lines;
};

OdDbDatabasePtr drawingWith(const OdDbCurvePtr& curve) {
  OdDbDatabasePtr database = OdDbDatabase::createBlank();
  const OdDbBlockTablePtr blocks = database->getBlockTableId().safeOpenObject(OdDb::kForWrite);
  const OdDbBlockTableRecordPtr tick = OdDbBlockTableRecord::createObject();
  tick->setName(L"Tick");
  blocks->add(tick);
  const OdDbBlockTableRecordPtr space = database->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
  space->appendOdDbEntity(curve);
  return database;
}

/// A curve of `range(0)` pieces is divided into as many parts, as far as the command goes.
template <class Make>
void divide(benchmark::State& state, Make make, bool byBlocks) {
  const int pieces = static_cast<int>(state.range(0));
  const std::string parts = std::to_string(std::min(kMostParts, pieces));
  Answers answers;
  host::HostSession session(answers);
  session.setDrawing(drawingWith(make(pieces)), L"");
  for (auto _ : state) {
    answers.type({"last"});
    if (byBlocks) answers.type({"Block", "Tick", "Yes"});
    answers.type({parts});
    if (session.execute(L"Divide") != host::RunResult::completed)
      state.SkipWithError(answers.printed.c_str());
    state.PauseTiming();
    session.execute(L"U");
    state.ResumeTiming();
  }
  state.counters["each"] = benchmark::Counter(
      std::stod(parts), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

} // namespace

// Sizes eight times apart; the last has more vertices than the command makes parts.
BENCHMARK_CAPTURE(divide, polyline_by_points, &polyline, false)
    ->Arg(4000)
    ->Arg(32000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(divide, polyline_by_blocks, &polyline, true)
    ->Arg(4000)
    ->Arg(32000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(divide, spline_by_points, &spline, false)
    ->Arg(4000)
    ->Arg(32000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(divide, ellipse_by_points, &ellipse, false)
    ->Arg(4000)
    ->Arg(32000)
    ->Unit(benchmark::kMillisecond);

int main(int count, char** arguments) {
  std::string error;
  if (!sys::loadLibrary("blockattr", error)) {
    std::fprintf(stderr, "%s\n", error.c_str());
    return 1;
  }
  benchmark::Initialize(&count, arguments);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
