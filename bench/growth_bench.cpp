// Per-operation cost against the number of entries already held. Keyed
// get-or-create and lookup grow logarithmically; the walks that the contract
// makes positional grow linearly. Each runs at 10^2 to 10^5 entries.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <map>
#include <string>
#include <vector>

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

using vantrel::ddk::internal::ProfileSummary;
using vantrel::ddk::internal::VideoStreamConfiguration;
using vantrel::ddk::internal::VideoStreamConfigurations;
using vantrel::ddk::internal::VideoStreamPresets;

template <class H, class R>
H* handle(R& record) {
  return reinterpret_cast<H*>(&record);
}

// Keys "key-<i>" for i in [0, n), in a shuffled order; lookups cycle through
// all of them so that every depth of the tree is visited.
std::vector<std::string> keys(long n) {
  std::vector<std::string> k;
  for (long i = 0; i < n; ++i) k.push_back("key-" + std::to_string(i * 7919 % n));
  return k;
}

// Get-or-create of an existing token among n streams.
void BM_Growth_AddVideoStreamExisting(benchmark::State& state) {
  const auto k = keys(state.range(0));
  VideoStreamConfigurations map;
  for (const auto& t : k) map.emplace(t, VideoStreamConfiguration(t));
  std::size_t i = 0;
  for (auto _ : state) {
    const std::string& t = k[i++ % k.size()];
    benchmark::DoNotOptimize(ddk_add_video_stream_to_configurations(
        handle<VideoStreamConfigurationsHandle>(map), t.data(), static_cast<unsigned>(t.size())));
  }
}

// Lookup by NUL-terminated token among n streams.
void BM_Growth_GetVideoStream(benchmark::State& state) {
  const auto k = keys(state.range(0));
  VideoStreamConfigurations map;
  for (const auto& t : k) map.emplace(t, VideoStreamConfiguration(t));
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(ddk_get_video_stream_configuration(handle<VideoStreamConfigurationsHandle>(map),
                                                                k[i++ % k.size()].c_str()));
  }
}

// Get-or-create of a new token: the map is filled to n by the calls
// themselves, then rebuilt untimed.
void BM_Growth_AddVideoStreamNew(benchmark::State& state) {
  const auto k = keys(state.range(0));
  VideoStreamConfigurations map;
  std::size_t i = 0;
  for (auto _ : state) {
    if (i == k.size()) {
      state.PauseTiming();
      map.clear();
      i = 0;
      state.ResumeTiming();
    }
    const std::string& t = k[i++];
    benchmark::DoNotOptimize(ddk_add_video_stream_to_configurations(
        handle<VideoStreamConfigurationsHandle>(map), t.data(), static_cast<unsigned>(t.size())));
  }
}

// Get-or-create of an existing preset name among n presets.
void BM_Growth_AddToPresetsExisting(benchmark::State& state) {
  const auto k = keys(state.range(0));
  VideoStreamPresets presets;
  for (const auto& t : k) presets[t];
  std::size_t i = 0;
  for (auto _ : state) {
    const std::string& t = k[i++ % k.size()];
    benchmark::DoNotOptimize(
        ddk_add_to_presets(handle<VideoStreamPresetsHandle>(presets), t.data(), static_cast<unsigned>(t.size())));
  }
}

// Get-or-create of an existing profile number among n profiles.
void BM_Growth_AddAnalyticsProfileExisting(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  std::map<int, ProfileSummary> profiles;
  for (int id = 0; id < n; ++id) profiles.emplace(id, ProfileSummary("profile", id, 1));
  int i = 0;
  for (auto _ : state) {
    const int id = (i++ * 7919) % n;
    benchmark::DoNotOptimize(
        ddk_add_video_analytics_profile(handle<VideoAnalyticsProfilesHandle>(profiles), "profile", id, 1));
  }
}

// Positional walk, linear by contract: the entry in the middle of n streams.
void BM_Growth_GetVideoStreamAtMiddle(benchmark::State& state) {
  const auto k = keys(state.range(0));
  VideoStreamConfigurations map;
  for (const auto& t : k) map.emplace(t, VideoStreamConfiguration(t));
  const auto middle = static_cast<unsigned>(k.size() / 2);
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        ddk_get_video_stream_configuration_at(handle<VideoStreamConfigurationsHandle>(map), middle));
  }
}

}  // namespace

BENCHMARK(BM_Growth_AddVideoStreamExisting)->Apply(sizes);
BENCHMARK(BM_Growth_GetVideoStream)->Apply(sizes);
BENCHMARK(BM_Growth_AddVideoStreamNew)->Apply(sizes);
BENCHMARK(BM_Growth_AddToPresetsExisting)->Apply(sizes);
BENCHMARK(BM_Growth_AddAnalyticsProfileExisting)->Apply(sizes);
BENCHMARK(BM_Growth_GetVideoStreamAtMiddle)->Apply(sizes);
BENCHMARK(BM_Growth_InsertPlugin)->Apply(sizes);
