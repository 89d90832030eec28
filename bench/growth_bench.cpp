// Per-operation cost against the number of entries already held. Keyed
// get-or-create and lookup grow logarithmically; the walks that the contract
// makes positional grow linearly. Each runs at 10^2 to 10^5 entries.
#include <benchmark/benchmark.h>

#include <cstdlib>

#include "baseline.h"
#include "vantrel/ddk.h"

namespace {

void sizes(benchmark::internal::Benchmark* b) {
  for (long n : {100L, 1000L, 10000L, 100000L}) b->Arg(n);
}

// The parameter list has no tail pointer: appending walks the whole chain.
// One append at the end of n entries, then the new entry is unlinked and
// freed again (constant time) so the list keeps its length.
void BM_Growth_InsertPlugin(benchmark::State& state) {
  PluginParameters list{nullptr, nullptr};
  for (long i = 0; i < state.range(0); ++i) insert_plugin(&list, nullptr, nullptr, nullptr);
  PluginEntry* last = list.head;
  while (last->next != nullptr) last = last->next;
  for (auto _ : state) {
    insert_plugin(&list, nullptr, nullptr, nullptr);
    std::free(last->next);
    last->next = nullptr;
  }
  free_parameters(&list);
}

}  // namespace

BENCHMARK(BM_Growth_InsertPlugin)->Apply(sizes);
