// Strings, string lists, error records and the log path against direct code.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "baseline.h"
#include "vantrel/ddk.h"

namespace {

const char kText[] = "stream-token-main-1080p";
const unsigned kLength = sizeof kText - 1;

BASELINE void direct_set_string(std::string& s, const char* text, unsigned length) {
  s.assign(text, length);
}
BASELINE void direct_append(std::vector<std::string>& v, const char* text, unsigned length) {
  v.emplace_back(text, length);
}
BASELINE const char* direct_at(std::vector<std::string>& v, unsigned index) {
  return index < v.size() ? v[index].c_str() : nullptr;
}
BASELINE DDKError* direct_new_error(const char* message, int code) {
  auto* e = static_cast<DDKError*>(std::malloc(sizeof(DDKError)));
  e->code = code;
  e->message = strdup(message);
  return e;
}
BASELINE void direct_log(DDKServiceProvider* p, int level, const char* message) {
  p->logCallback(p->logContext, level, message);
}

void sink(void*, int, const char* message) { benchmark::DoNotOptimize(message); }

void BM_SetString(benchmark::State& state) {
  std::string s;
  for (auto _ : state) benchmark::DoNotOptimize(ddk_set_string(reinterpret_cast<StringHandle*>(&s), kText, kLength));
}
void BM_SetString_Baseline(benchmark::State& state) {
  std::string s;
  for (auto _ : state) {
    direct_set_string(s, kText, kLength);
    benchmark::ClobberMemory();
  }
}
void BM_SetString_NullHandle(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(ddk_set_string(nullptr, kText, kLength));
}

void BM_AppendString(benchmark::State& state) {
  std::vector<std::string> v;
  v.reserve(1 << 20);
  for (auto _ : state) {
    if (v.size() == v.capacity()) {
      state.PauseTiming();
      v.clear();
      state.ResumeTiming();
    }
    benchmark::DoNotOptimize(ddk_append_string(reinterpret_cast<StringListHandle*>(&v), kText, kLength));
  }
}
void BM_AppendString_Baseline(benchmark::State& state) {
  std::vector<std::string> v;
  v.reserve(1 << 20);
  for (auto _ : state) {
    if (v.size() == v.capacity()) {
      state.PauseTiming();
      v.clear();
      state.ResumeTiming();
    }
    direct_append(v, kText, kLength);
    benchmark::ClobberMemory();
  }
}

void BM_GetStringAt(benchmark::State& state) {
  std::vector<std::string> v(16, kText);
  for (auto _ : state) benchmark::DoNotOptimize(ddk_get_string_at(reinterpret_cast<StringListHandle*>(&v), 7));
}
void BM_GetStringAt_Baseline(benchmark::State& state) {
  std::vector<std::string> v(16, kText);
  for (auto _ : state) benchmark::DoNotOptimize(direct_at(v, 7));
}
void BM_GetStringAt_OutOfRange(benchmark::State& state) {
  std::vector<std::string> v(16, kText);
  for (auto _ : state) benchmark::DoNotOptimize(ddk_get_string_at(reinterpret_cast<StringListHandle*>(&v), 16));
}

void BM_NewFreeError(benchmark::State& state) {
  const int code = 3;
  for (auto _ : state) ddk_free_error(ddk_new_error(kText, &code));
}
void BM_NewFreeError_Baseline(benchmark::State& state) {
  for (auto _ : state) {
    DDKError* e = direct_new_error(kText, 3);
    std::free(e->message);
    std::free(e);
  }
}

void BM_Log(benchmark::State& state) {
  DDKServiceProvider table{};
  table.logCallback = &sink;
  for (auto _ : state) ddk_log(&table, 2, kText);
}
void BM_Log_Baseline(benchmark::State& state) {
  DDKServiceProvider table{};
  table.logCallback = &sink;
  for (auto _ : state) direct_log(&table, 2, kText);
}

}  // namespace

BENCHMARK(BM_SetString);
BENCHMARK(BM_SetString_Baseline);
BENCHMARK(BM_SetString_NullHandle);
BENCHMARK(BM_AppendString);
BENCHMARK(BM_AppendString_Baseline);
BENCHMARK(BM_GetStringAt);
BENCHMARK(BM_GetStringAt_Baseline);
BENCHMARK(BM_GetStringAt_OutOfRange);
BENCHMARK(BM_NewFreeError);
BENCHMARK(BM_NewFreeError_Baseline);
BENCHMARK(BM_Log);
BENCHMARK(BM_Log_Baseline);
