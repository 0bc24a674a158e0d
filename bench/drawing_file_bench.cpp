// Saving and reading of a drawing of N entities, lines and rectangles in turn, beside a plain copy
// of as many bytes.

#include <benchmark/benchmark.h>

#include <cstring>
#include <map>

#include "database/database.h"
#include "database/file/drawing_scanner.h"
#include "entities/line.h"
#include "entities/rect.h"
#include "platform/headless/memory_file.h"

namespace {

std::string saved(CQdrDbDatabase& database) {
  qdr::MemoryFile file;
  CArchive archive(&file, CArchive::store);
  database.Save(archive);
  file.Close();
  database.m_pFile = nullptr;
  return file.bytes();
}

std::unique_ptr<CQdrDbDatabase> drawing(std::int64_t entities) {
  auto database = std::make_unique<CQdrDbDatabase>(false);
  for (std::int64_t i = 0; i < entities; ++i) {
    const double x = static_cast<double>(i % 1000);
    const double y = static_cast<double>(i / 1000);
    CQdrDbEntity* entity = nullptr;
    if (i % 2 == 0) {
      entity = new CQdrDbLine(CQdrGePoint2d(x, y), CQdrGePoint2d(x + 1.0, y));
    } else {
      entity = new CQdrDbRect(CQdrGePoint2d(x, y + 1.0), CQdrGePoint2d(x + 1.0, y));
    }
    CQdrDbObjectId id;
    entity->setDatabase(database.get());
    database->addEntity(entity, id);
  }
  return database;
}

// Files by number of entities: each is made once.
const std::string& fileOf(std::int64_t entities) {
  static std::map<std::int64_t, std::string> files;
  std::string& bytes = files[entities];
  if (bytes.empty()) bytes = saved(*drawing(entities));
  return bytes;
}

void report(benchmark::State& state, std::size_t bytes) {
  const auto count = static_cast<double>(state.range(0));
  state.counters["bytes_per_entity"] = static_cast<double>(bytes) / count;
  state.counters["time_per_entity"] = benchmark::Counter(
      count, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * state.iterations());
  state.SetComplexityN(state.range(0));
}

void SaveDrawing(benchmark::State& state) {
  const auto database = drawing(state.range(0));
  std::size_t bytes = 0;
  for (auto _ : state)
    bytes = saved(*database).size();
  report(state, bytes);
}

void ReadDrawing(benchmark::State& state) {
  const std::string& bytes = fileOf(state.range(0));
  for (auto _ : state) {
    qdr::MemoryFile file(bytes);
    CArchive archive(&file, CArchive::load);
    auto database = std::make_unique<CQdrDbDatabase>(false);
    database->Read(archive);
    state.PauseTiming();
    database.reset();
    state.ResumeTiming();
  }
  report(state, bytes.size());
}

void ScanDrawing(benchmark::State& state) {
  const std::string& bytes = fileOf(state.range(0));
  for (auto _ : state) {
    qdr::DrawingVisitor nobody;
    benchmark::DoNotOptimize(qdr::scanDrawing(bytes, nobody).entities);
  }
  report(state, bytes.size());
}

void CopyBytes(benchmark::State& state) {
  const std::string& bytes = fileOf(state.range(0));
  std::string copy(bytes.size(), '\0');
  for (auto _ : state) {
    std::memcpy(copy.data(), bytes.data(), bytes.size());
    benchmark::ClobberMemory();
  }
  report(state, bytes.size());
}

void WriteBytes(benchmark::State& state) {
  const std::string& bytes = fileOf(state.range(0));
  for (auto _ : state) {
    qdr::MemoryFile file;
    file.Write(bytes.data(), static_cast<unsigned>(bytes.size()));
    file.Close();
    benchmark::DoNotOptimize(file.bytes().size());
  }
  report(state, bytes.size());
}

#define QDR_SIZES Arg(1000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond)->Complexity()

BENCHMARK(SaveDrawing)->QDR_SIZES;
BENCHMARK(ReadDrawing)->QDR_SIZES;
BENCHMARK(ScanDrawing)->QDR_SIZES;
BENCHMARK(CopyBytes)->QDR_SIZES;
BENCHMARK(WriteBytes)->QDR_SIZES;

}  // namespace
