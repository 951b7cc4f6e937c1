// How the costs of walking along a curve, and of the curve beside it, grow: curves of many pieces, divided
// into many parts as a command would. The time per piece and part must stay the same from one size to the
// next; the last lines of each benchmark show the fitted growth.
#include "Ge/GePolylineOffset.h"
#include "sample_curves.h"
#include <algorithm>
#include <benchmark/benchmark.h>

namespace {

constexpr int kMostParts = 32767;

/// The points at equal distances and the directions there, as for dividing.
void divide(const OdDbCurve& curve, int parts) {
  double end = 0;
  double length = 0;
  curve.getEndParam(end);
  curve.getDistAtParam(end, length);
  for (int i = 1; i < parts; ++i) {
    OdGePoint3d point;
    OdGeVector3d way;
    curve.getPointAtDist(length * i / parts, point);
    curve.getFirstDeriv(point, way);
    benchmark::DoNotOptimize(way);
  }
}

using Make = OdDbCurvePtr (*)(int);

void finish(benchmark::State& state) {
  state.SetComplexityN(state.range(0));
  state.counters["each"] =
      benchmark::Counter(static_cast<double>(state.range(0)),
                         benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

/// The number of parts grows, and the number of pieces with it.
void divideMore(benchmark::State& state, Make make) {
  const int parts = std::min<int>(kMostParts, static_cast<int>(state.range(0)));
  const OdDbCurvePtr curve = make(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    curve->setColorIndex(1); // what was known of the curve is forgotten
    divide(*curve, parts);
  }
  finish(state);
}

/// Beside a zigzag of so many pieces, which lies or stands.
void offsetMore(benchmark::State& state, bool stands) {
  OdGeFlatPolyline zigzag;
  for (int i = 0; i <= state.range(0); ++i)
    zigzag.points.push_back(stands ? OdGePoint2d(i % 2 * 3, i) : OdGePoint2d(i, i % 2 * 3));
  for (auto _ : state) benchmark::DoNotOptimize(odGeOffset(zigzag, 0.25));
  finish(state);
}

} // namespace

BENCHMARK_CAPTURE(offsetMore, lying, false)
    ->Arg(1000)
    ->Arg(8000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();
BENCHMARK_CAPTURE(offsetMore, standing, true)
    ->Arg(1000)
    ->Arg(8000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();
BENCHMARK_CAPTURE(divideMore, polyline, &polyline)
    ->Arg(4000)
    ->Arg(32000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();
BENCHMARK_CAPTURE(divideMore, polyline_of_100000, &polyline)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(divideMore, spline, &spline)
    ->Arg(4000)
    ->Arg(32000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();
BENCHMARK_CAPTURE(divideMore, ellipse, &ellipse)
    ->Arg(4000)
    ->Arg(32000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();
BENCHMARK_MAIN();
