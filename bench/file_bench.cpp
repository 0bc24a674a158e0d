#include <benchmark/benchmark.h>

#include <cstdint>
#include <filesystem>
#include <string>

#include "platform/file.h"
#include "platform/headless/memory_file.h"

namespace {

constexpr int kPiecesPerEntity = 10;

// An entity as a drawing writes it: ten pieces of eight bytes.
void writeEntities(CFile& file, std::int64_t count) {
  for (std::int64_t i = 0; i < count; ++i) {
    for (int piece = 0; piece < kPiecesPerEntity; ++piece) {
      const double value = static_cast<double>(i + piece);
      file.Write(&value, sizeof value);
    }
  }
}

std::string entityBytes(std::int64_t count) {
  qdr::MemoryFile file;
  writeEntities(file, count);
  file.Close();
  return file.bytes();
}

void countEntities(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * state.range(0));
  state.SetBytesProcessed(state.iterations() * state.range(0) * kPiecesPerEntity * 8);
}

void BM_WriteToMemory(benchmark::State& state) {
  for (auto _ : state) {
    qdr::MemoryFile file;
    writeEntities(file, state.range(0));
    benchmark::DoNotOptimize(file.Close());
  }
  countEntities(state);
}

void BM_ReadFromMemory(benchmark::State& state) {
  const std::string bytes = entityBytes(state.range(0));
  for (auto _ : state) {
    qdr::MemoryFile file(bytes);
    double sum = 0.0;
    double value = 0.0;
    while (qdr::readRaw(&file, &value, sizeof value))
      sum += value;
    benchmark::DoNotOptimize(sum);
  }
  countEntities(state);
}

// Sync and replacement of the target are part of every save.
void BM_SaveToDisk(benchmark::State& state) {
  const auto path = std::filesystem::temp_directory_path() / "qdr-file-bench.kov";
  const CString target(path.string().c_str());
  for (auto _ : state) {
    CFile file;
    if (!file.Open(target, CFile::modeCreateWrite)) return state.SkipWithError("cannot open");
    writeEntities(file, state.range(0));
    if (!file.Close()) return state.SkipWithError("cannot save");
  }
  std::filesystem::remove(path);
  countEntities(state);
}

BENCHMARK(BM_WriteToMemory)->Arg(100)->Arg(10'000)->Arg(1'000'000);
BENCHMARK(BM_ReadFromMemory)->Arg(100)->Arg(10'000)->Arg(1'000'000);
BENCHMARK(BM_SaveToDisk)->Arg(100)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

}  // namespace
