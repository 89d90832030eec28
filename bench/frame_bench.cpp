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

BASELINE int direct_set_string(std::string* s, const char* text, unsigned length) {
  if (text == nullptr || length == 0) return -1;
  if (s == nullptr) return -1;
  s->assign(text, length);
  return 0;
}
BASELINE int direct_append(std::vector<std::string>* v, const char* text, unsigned length) {
  if (text == nullptr || length == 0) return -2;
  if (v == nullptr) return -1;
  v->emplace_back(text, length);
  return 0;
}
BASELINE const char* direct_at(std::vector<std::string>* v, unsigned index) {
  return v != nullptr && index < v->size() ? (*v)[index].c_str() : nullptr;
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
  for (auto _ : state) benchmark::DoNotOptimize(direct_set_string(&s, kText, kLength));
}
void BM_SetString_NullHandle(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(ddk_set_string(nullptr, kText, kLength));
}

void BM_AppendString(benchmark::State& state) {
  std::vector<std::string> v;
  append_loop(state, v, [&] {
    benchmark::DoNotOptimize(ddk_append_string(reinterpret_cast<StringListHandle*>(&v), kText, kLength));
  });
}
void BM_AppendString_Baseline(benchmark::State& state) {
  std::vector<std::string> v;
  append_loop(state, v, [&] { benchmark::DoNotOptimize(direct_append(&v, kText, kLength)); });
}
void BM_AppendString_Refused(benchmark::State& state) {
  std::vector<std::string> v;
  for (auto _ : state) benchmark::DoNotOptimize(ddk_append_string(reinterpret_cast<StringListHandle*>(&v), kText, 0));
}

void BM_GetStringAt(benchmark::State& state) {
  std::vector<std::string> v(16, kText);
  for (auto _ : state) benchmark::DoNotOptimize(ddk_get_string_at(reinterpret_cast<StringListHandle*>(&v), 7));
}
void BM_GetStringAt_Baseline(benchmark::State& state) {
  std::vector<std::string> v(16, kText);
  for (auto _ : state) benchmark::DoNotOptimize(direct_at(&v, 7));
}
void BM_GetStringAt_BaselineIndirect(benchmark::State& state) {
  std::vector<std::string> v(16, kText);
  auto call = opaque(&direct_at);
  for (auto _ : state) benchmark::DoNotOptimize(call(&v, 7));
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

void BM_Log_BaselineIndirect(benchmark::State& state) {
  DDKServiceProvider table{};
  table.logCallback = &sink;
  auto call = opaque(&direct_log);
  for (auto _ : state) call(&table, 2, kText);
}

}  // namespace

BENCHMARK(BM_SetString);
BENCHMARK(BM_SetString_Baseline);
BENCHMARK(BM_SetString_NullHandle);
BENCHMARK(BM_AppendString);
BENCHMARK(BM_AppendString_Baseline);
BENCHMARK(BM_AppendString_Refused);
BENCHMARK(BM_GetStringAt);
BENCHMARK(BM_GetStringAt_Baseline);
BENCHMARK(BM_GetStringAt_BaselineIndirect);
BENCHMARK(BM_GetStringAt_OutOfRange);
BENCHMARK(BM_NewFreeError);
BENCHMARK(BM_NewFreeError_Baseline);
BENCHMARK(BM_Log);
BENCHMARK(BM_Log_Baseline);
BENCHMARK(BM_Log_BaselineIndirect);
