// How the costs of a drawing grow with its size: opening, reading every attribute, editing, undoing, saving.
// The time per block reference must stay the same from one size to the next; the last lines of each benchmark
// show the fitted growth.
#include "DbAttribute.h"
#include "DbBlockReference.h"
#include "DbBlockTableRecord.h"
#include "DbObjectIterator.h"
#include "DxfReader.h"
#include "DxfWriter.h"
#include "big_drawing.h"
#include <benchmark/benchmark.h>
#include <map>

namespace {

const std::string& drawingOf(int references) {
  static std::map<int, std::string> made;
  std::string& text = made[references];
  if (text.empty()) text = bigDrawing({.references = references});
  return text;
}

OdDbDatabasePtr opened(int references) {
  const std::string& text = drawingOf(references);
  OdDbDatabasePtr db = OdDbDatabase::createObject();
  odDbReadBytes(*db, text, nullptr, L"bench.dxf");
  return db;
}

template <class Visit>
void forEachAttribute(OdDbDatabase& db, OdDb::OpenMode mode, const Visit& visit) {
  const OdDbBlockTableRecordPtr space = db.getModelSpaceId().safeOpenObject();
  for (auto entity = space->newIterator(); !entity->done(); entity->step()) {
    const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(entity->objectId().openObject());
    if (reference.isNull()) continue;
    for (auto i = reference->attributeIterator(); !i->done(); i->step())
      visit(*OdDbAttribute::cast(i->objectId().openObject(mode)));
  }
}

void finish(benchmark::State& state) {
  state.SetComplexityN(state.range(0));
  state.counters["per_reference"] =
      benchmark::Counter(static_cast<double>(state.range(0)),
                         benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void open(benchmark::State& state) {
  const int references = static_cast<int>(state.range(0));
  drawingOf(references);
  for (auto _ : state) benchmark::DoNotOptimize(opened(references));
  finish(state);
}

void readAttributes(benchmark::State& state) {
  const OdDbDatabasePtr db = opened(static_cast<int>(state.range(0)));
  for (auto _ : state)
    forEachAttribute(*db, OdDb::kForRead, [](OdDbAttribute& attribute) {
      benchmark::DoNotOptimize(attribute.tag());
      benchmark::DoNotOptimize(attribute.textString());
    });
  finish(state);
}

void editAndUndo(benchmark::State& state) {
  const OdDbDatabasePtr db = opened(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    db->startUndoRecord();
    forEachAttribute(*db, OdDb::kForWrite,
                     [](OdDbAttribute& attribute) { attribute.setTextString(L"edited"); });
    db->undo();
  }
  finish(state);
}

void save(benchmark::State& state) {
  const OdDbDatabasePtr db = opened(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(odDbWriteBytes(*db));
  finish(state);
}

void saveEdited(benchmark::State& state) {
  const OdDbDatabasePtr db = opened(static_cast<int>(state.range(0)));
  forEachAttribute(*db, OdDb::kForWrite,
                   [](OdDbAttribute& attribute) { attribute.setTextString(L"edited"); });
  for (auto _ : state) benchmark::DoNotOptimize(odDbWriteBytes(*db));
  finish(state);
}

constexpr int kSmall = 1000;
constexpr int kLarge = 20000;

BENCHMARK(open)->Arg(kSmall)->Arg(kLarge)->Complexity(benchmark::oN)->Unit(benchmark::kMillisecond);
BENCHMARK(readAttributes)->Arg(kSmall)->Arg(kLarge)->Complexity(benchmark::oN)->Unit(benchmark::kMillisecond);
BENCHMARK(editAndUndo)->Arg(kSmall)->Arg(kLarge)->Complexity(benchmark::oN)->Unit(benchmark::kMillisecond);
BENCHMARK(save)->Arg(kSmall)->Arg(kLarge)->Complexity(benchmark::oN)->Unit(benchmark::kMillisecond);
BENCHMARK(saveEdited)->Arg(kSmall)->Arg(kLarge)->Complexity(benchmark::oN)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
