// Hand-written baselines: the same operations written directly on the same
// standard containers, kept out of line so the comparison is call for call.
#pragma once

#include <benchmark/benchmark.h>

// noipa, where the compiler has it, also stops constant propagation into a
// specialised clone: the baseline receives its arguments as the library does.
#if defined(__GNUC__) && !defined(__clang__)
#define BASELINE __attribute__((noipa))
#else
#define BASELINE __attribute__((noinline))
#endif

// A function pointer the compiler cannot see through: a baseline called with
// it pays an indirect call, as every call into the shared library pays its
// PLT jump. Name_BaselineIndirect benchmarks use it to show that cost apart.
template <class F>
F opaque(F f) {
  benchmark::DoNotOptimize(f);
  return f;
}

// Appends once per iteration to a vector reserved ahead, emptied untimed when
// full, so no reallocation falls inside the timed loop.
template <class V, class Append>
void append_loop(benchmark::State& state, V& v, Append append) {
  v.reserve(1 << 16);
  for (auto _ : state) {
    if (v.size() == v.capacity()) {
      state.PauseTiming();
      v.clear();
      state.ResumeTiming();
    }
    append();
    benchmark::ClobberMemory();
  }
}
