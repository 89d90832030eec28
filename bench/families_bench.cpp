// Signals, stream configuration and camera control against direct code on
// the same records. A signal's baseline builds the record by hand and passes
// it to the callback directly.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "baseline.h"
#include "vantrel/ddk.h"

using vantrel::AudioStreamConfiguration;
using vantrel::MotionEvent;
using vantrel::TimeZone;
using vantrel::ddk::internal::ProfileSummary;
using vantrel::ddk::internal::VideoStreamConfiguration;
using vantrel::ddk::internal::VideoStreamConfigurations;

namespace {

const char kToken[] = "stream-token-main-1080p";
const unsigned kTokenLength = sizeof kToken - 1;
const char kZone[] = "Central European Time";

template <class H, class R>
H* handle(R& record) {
  return reinterpret_cast<H*>(&record);
}

// Host callbacks: they only keep the record from being optimised away.
void on_alarm(void*, AlarmEvent event) { benchmark::DoNotOptimize(event); }
void on_motion(void*, MotionEvent event) { benchmark::DoNotOptimize(event.value); }
void on_diagnostics(void*, vantrel::DiagnosticsEvent event) { benchmark::DoNotOptimize(event.value); }
void on_state(void*, int enabled) { benchmark::DoNotOptimize(enabled); }

DDKServiceProvider table() {
  DDKServiceProvider t{};
  t.alarmCallback = &on_alarm;
  t.motionCallback = &on_motion;
  t.diagnosticsCallback = &on_diagnostics;
  t.motionDetectionStateCallback = &on_state;
  return t;
}

BASELINE void direct_alarm(DDKServiceProvider* p, AlarmEvent event) {
  if (p != nullptr && p->alarmCallback != nullptr) p->alarmCallback(p->alarmContext, event);
}
BASELINE void direct_motion(DDKServiceProvider* p, unsigned value, const char* text1, unsigned length1,
                            const char* text2, unsigned length2) {
  if (p == nullptr || p->motionCallback == nullptr) return;
  MotionEvent event(value);
  if (text1 != nullptr && length1 != 0) event.text1.assign(text1, length1);
  if (text2 != nullptr && length2 != 0) event.text2.assign(text2, length2);
  p->motionCallback(p->motionContext, std::move(event));
}
BASELINE void direct_video_loss(DDKServiceProvider* p, unsigned char b1, unsigned char b2, unsigned value) {
  if (p != nullptr && p->diagnosticsCallback != nullptr) {
    p->diagnosticsCallback(p->diagnosticsContext, vantrel::DiagnosticsEvent(b1, b2, value));
  }
}

BASELINE VideoStreamConfiguration* direct_add_stream(VideoStreamConfigurations* map, const char* text,
                                                     unsigned length) {
  if (map == nullptr) return nullptr;
  const std::string token = text != nullptr && length != 0 ? std::string(text, length) : std::string();
  auto it = map->lower_bound(token);
  if (it != map->end() && it->first == token) return &it->second;
  return &map->emplace_hint(it, token, VideoStreamConfiguration(token))->second;
}
BASELINE VideoStreamConfiguration* direct_find_stream(VideoStreamConfigurations* map, const char* token) {
  if (token == nullptr || map == nullptr) return nullptr;
  auto it = map->find(std::string(token));
  return it != map->end() ? &it->second : nullptr;
}
BASELINE int direct_set_framerate(VideoStreamConfiguration* c, unsigned framerate) {
  if (c == nullptr) return -1;
  c->framerate = framerate;
  return 0;
}
BASELINE ProfileSummary* direct_add_profile(std::map<int, ProfileSummary>* map, const char* name, int id,
                                            unsigned char flag) {
  if (map == nullptr || name == nullptr) return nullptr;
  auto it = map->lower_bound(id);
  if (it == map->end() || it->first != id) it = map->emplace_hint(it, id, ProfileSummary(name, id, flag));
  return &it->second;
}
BASELINE AudioStreamConfiguration* direct_add_audio(std::map<std::string, AudioStreamConfiguration>* map,
                                                    const char* name, unsigned length) {
  if (name == nullptr || length == 0 || map == nullptr) return nullptr;
  const std::string key(name, ::strnlen(name, length));
  auto it = map->lower_bound(key);
  if (it == map->end() || it->first != key) it = map->emplace_hint(it, key, AudioStreamConfiguration());
  return &it->second;
}
BASELINE int direct_set_flag(std::vector<bool>* flags, unsigned index) {
  if (flags == nullptr) return -1;
  if (index >= flags->size()) return -2;
  (*flags)[index] = true;
  return 0;
}
BASELINE int direct_set_zone_name(TimeZone* zone, const char* text, unsigned length) {
  if (zone == nullptr) return -1;
  if (text == nullptr && length != 0) return -2;
  if (length == 0) zone->name.clear();
  else zone->name.assign(text, length);
  return 0;
}
BASELINE vantrel::MotionDetectionRegion* direct_region_at(std::vector<vantrel::MotionDetectionRegion>* v,
                                                          unsigned index) {
  return v != nullptr && index < v->size() ? &(*v)[index] : nullptr;
}

// Signals.

void BM_SignalAlarm(benchmark::State& state) {
  DDKServiceProvider t = table();
  const AlarmEvent event{3, 1, 1, 1700000000};
  for (auto _ : state) ddk_signal_alarm(&t, event);
}
void BM_SignalAlarm_Baseline(benchmark::State& state) {
  DDKServiceProvider t = table();
  const AlarmEvent event{3, 1, 1, 1700000000};
  for (auto _ : state) direct_alarm(&t, event);
}
void BM_SignalAlarm_BaselineIndirect(benchmark::State& state) {
  DDKServiceProvider t = table();
  const AlarmEvent event{3, 1, 1, 1700000000};
  auto call = opaque(&direct_alarm);
  for (auto _ : state) call(&t, event);
}
void BM_SignalAlarm_NullHandle(benchmark::State& state) {
  const AlarmEvent event{3, 1, 1, 1700000000};
  for (auto _ : state) ddk_signal_alarm(nullptr, event);
}

void BM_SignalMotionDetected(benchmark::State& state) {
  DDKServiceProvider t = table();
  for (auto _ : state) ddk_signal_motion_detected(&t, 7, kToken, kTokenLength, kZone, sizeof kZone - 1);
}
void BM_SignalMotionDetected_Baseline(benchmark::State& state) {
  DDKServiceProvider t = table();
  for (auto _ : state) direct_motion(&t, 7, kToken, kTokenLength, kZone, sizeof kZone - 1);
}

void BM_SignalVideoLoss(benchmark::State& state) {
  DDKServiceProvider t = table();
  for (auto _ : state) ddk_signal_video_loss_event(&t, 1, 2, 3);
}
void BM_SignalVideoLoss_Baseline(benchmark::State& state) {
  DDKServiceProvider t = table();
  for (auto _ : state) direct_video_loss(&t, 1, 2, 3);
}

// Video stream configurations.

VideoStreamConfigurations streams(long n) {
  VideoStreamConfigurations map;
  for (long i = 0; i < n; ++i) {
    const std::string token = "stream-" + std::to_string(i * 7919 % n);
    map.emplace(token, VideoStreamConfiguration(token));
  }
  return map;
}

void BM_AddVideoStreamExisting(benchmark::State& state) {
  VideoStreamConfigurations map = streams(16);
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        ddk_add_video_stream_to_configurations(handle<VideoStreamConfigurationsHandle>(map), "stream-5", 8));
  }
}
void BM_AddVideoStreamExisting_Baseline(benchmark::State& state) {
  VideoStreamConfigurations map = streams(16);
  for (auto _ : state) benchmark::DoNotOptimize(direct_add_stream(&map, "stream-5", 8));
}
void BM_AddVideoStreamExisting_NullHandle(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(ddk_add_video_stream_to_configurations(nullptr, "stream-5", 8));
}

void BM_AddVideoStreamNew(benchmark::State& state) {
  for (auto _ : state) {
    VideoStreamConfigurations map;
    benchmark::DoNotOptimize(ddk_add_video_stream_to_configurations(
        handle<VideoStreamConfigurationsHandle>(map), kToken, kTokenLength));
  }
}
void BM_AddVideoStreamNew_Baseline(benchmark::State& state) {
  for (auto _ : state) {
    VideoStreamConfigurations map;
    benchmark::DoNotOptimize(direct_add_stream(&map, kToken, kTokenLength));
  }
}

void BM_GetVideoStream(benchmark::State& state) {
  VideoStreamConfigurations map = streams(16);
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        ddk_get_video_stream_configuration(handle<VideoStreamConfigurationsHandle>(map), "stream-5"));
  }
}
void BM_GetVideoStream_Baseline(benchmark::State& state) {
  VideoStreamConfigurations map = streams(16);
  for (auto _ : state) benchmark::DoNotOptimize(direct_find_stream(&map, "stream-5"));
}
void BM_GetVideoStream_Absent(benchmark::State& state) {
  VideoStreamConfigurations map = streams(16);
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        ddk_get_video_stream_configuration(handle<VideoStreamConfigurationsHandle>(map), "stream-99"));
  }
}

void BM_VideoSetFramerate(benchmark::State& state) {
  VideoStreamConfiguration c;
  for (auto _ : state) {
    benchmark::DoNotOptimize(ddk_video_set_framerate(handle<VideoStreamConfigurationHandle>(c), 25));
  }
}
void BM_VideoSetFramerate_Baseline(benchmark::State& state) {
  VideoStreamConfiguration c;
  for (auto _ : state) benchmark::DoNotOptimize(direct_set_framerate(&c, 25));
}
void BM_VideoSetFramerate_BaselineIndirect(benchmark::State& state) {
  VideoStreamConfiguration c;
  auto call = opaque(&direct_set_framerate);
  for (auto _ : state) benchmark::DoNotOptimize(call(&c, 25));
}
void BM_VideoSetFramerate_NullHandle(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(ddk_video_set_framerate(nullptr, 25));
}

// Analytics profiles and audio: get-or-create of an existing key.

void BM_AddAnalyticsProfileExisting(benchmark::State& state) {
  std::map<int, ProfileSummary> map;
  for (int id = 0; id < 16; ++id) map.emplace(id, ProfileSummary("profile", id, 1));
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        ddk_add_video_analytics_profile(handle<VideoAnalyticsProfilesHandle>(map), "profile", 5, 1));
  }
}
void BM_AddAnalyticsProfileExisting_Baseline(benchmark::State& state) {
  std::map<int, ProfileSummary> map;
  for (int id = 0; id < 16; ++id) map.emplace(id, ProfileSummary("profile", id, 1));
  for (auto _ : state) benchmark::DoNotOptimize(direct_add_profile(&map, "profile", 5, 1));
}
void BM_AddAnalyticsProfileExisting_NullHandle(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(ddk_add_video_analytics_profile(nullptr, "profile", 5, 1));
}

void BM_AddAudioExisting(benchmark::State& state) {
  std::map<std::string, AudioStreamConfiguration> map;
  map.emplace(kToken, AudioStreamConfiguration());
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        ddk_add_audio_to_configurations(handle<AudioStreamConfigurationsHandle>(map), kToken, kTokenLength));
  }
}
void BM_AddAudioExisting_Baseline(benchmark::State& state) {
  std::map<std::string, AudioStreamConfiguration> map;
  map.emplace(kToken, AudioStreamConfiguration());
  for (auto _ : state) benchmark::DoNotOptimize(direct_add_audio(&map, kToken, kTokenLength));
}

// Camera control.

void BM_SetPresetEnabled(benchmark::State& state) {
  std::vector<bool> flags(64);
  for (auto _ : state) benchmark::DoNotOptimize(ddk_set_preset_enabled(handle<PresetVectorHandle>(flags), 33));
}
void BM_SetPresetEnabled_Baseline(benchmark::State& state) {
  std::vector<bool> flags(64);
  for (auto _ : state) benchmark::DoNotOptimize(direct_set_flag(&flags, 33));
}
void BM_SetPresetEnabled_BaselineIndirect(benchmark::State& state) {
  std::vector<bool> flags(64);
  auto call = opaque(&direct_set_flag);
  for (auto _ : state) benchmark::DoNotOptimize(call(&flags, 33));
}
void BM_SetPresetEnabled_OutOfRange(benchmark::State& state) {
  std::vector<bool> flags(64);
  for (auto _ : state) benchmark::DoNotOptimize(ddk_set_preset_enabled(handle<PresetVectorHandle>(flags), 64));
}

void BM_SetTimeZoneName(benchmark::State& state) {
  TimeZone zone{};
  for (auto _ : state) {
    benchmark::DoNotOptimize(ddk_set_timezone_name(handle<TimeZoneHandle>(zone), kZone, sizeof kZone - 1));
  }
}
void BM_SetTimeZoneName_Baseline(benchmark::State& state) {
  TimeZone zone{};
  for (auto _ : state) benchmark::DoNotOptimize(direct_set_zone_name(&zone, kZone, sizeof kZone - 1));
}
void BM_SetTimeZoneName_Refused(benchmark::State& state) {
  TimeZone zone{};
  for (auto _ : state) benchmark::DoNotOptimize(ddk_set_timezone_name(handle<TimeZoneHandle>(zone), nullptr, 4));
}

void BM_GetMotionRegionAt(benchmark::State& state) {
  std::vector<vantrel::MotionDetectionRegion> v(8);
  for (auto _ : state) {
    benchmark::DoNotOptimize(ddk_get_motion_region_at(handle<MotionDetectionRegionListHandle>(v), 5));
  }
}
void BM_GetMotionRegionAt_Baseline(benchmark::State& state) {
  std::vector<vantrel::MotionDetectionRegion> v(8);
  for (auto _ : state) benchmark::DoNotOptimize(direct_region_at(&v, 5));
}
void BM_GetMotionRegionAt_BaselineIndirect(benchmark::State& state) {
  std::vector<vantrel::MotionDetectionRegion> v(8);
  auto call = opaque(&direct_region_at);
  for (auto _ : state) benchmark::DoNotOptimize(call(&v, 5));
}
void BM_GetMotionRegionAt_OutOfRange(benchmark::State& state) {
  std::vector<vantrel::MotionDetectionRegion> v(8);
  for (auto _ : state) {
    benchmark::DoNotOptimize(ddk_get_motion_region_at(handle<MotionDetectionRegionListHandle>(v), 8));
  }
}

}  // namespace

BENCHMARK(BM_SignalAlarm);
BENCHMARK(BM_SignalAlarm_Baseline);
BENCHMARK(BM_SignalAlarm_BaselineIndirect);
BENCHMARK(BM_SignalAlarm_NullHandle);
BENCHMARK(BM_SignalMotionDetected);
BENCHMARK(BM_SignalMotionDetected_Baseline);
BENCHMARK(BM_SignalVideoLoss);
BENCHMARK(BM_SignalVideoLoss_Baseline);
BENCHMARK(BM_AddVideoStreamExisting);
BENCHMARK(BM_AddVideoStreamExisting_Baseline);
BENCHMARK(BM_AddVideoStreamExisting_NullHandle);
BENCHMARK(BM_AddVideoStreamNew);
BENCHMARK(BM_AddVideoStreamNew_Baseline);
BENCHMARK(BM_GetVideoStream);
BENCHMARK(BM_GetVideoStream_Baseline);
BENCHMARK(BM_GetVideoStream_Absent);
BENCHMARK(BM_VideoSetFramerate);
BENCHMARK(BM_VideoSetFramerate_Baseline);
BENCHMARK(BM_VideoSetFramerate_BaselineIndirect);
BENCHMARK(BM_VideoSetFramerate_NullHandle);
BENCHMARK(BM_AddAnalyticsProfileExisting);
BENCHMARK(BM_AddAnalyticsProfileExisting_Baseline);
BENCHMARK(BM_AddAnalyticsProfileExisting_NullHandle);
BENCHMARK(BM_AddAudioExisting);
BENCHMARK(BM_AddAudioExisting_Baseline);
BENCHMARK(BM_SetPresetEnabled);
BENCHMARK(BM_SetPresetEnabled_Baseline);
BENCHMARK(BM_SetPresetEnabled_BaselineIndirect);
BENCHMARK(BM_SetPresetEnabled_OutOfRange);
BENCHMARK(BM_SetTimeZoneName);
BENCHMARK(BM_SetTimeZoneName_Baseline);
BENCHMARK(BM_SetTimeZoneName_Refused);
BENCHMARK(BM_GetMotionRegionAt);
BENCHMARK(BM_GetMotionRegionAt_Baseline);
BENCHMARK(BM_GetMotionRegionAt_BaselineIndirect);
BENCHMARK(BM_GetMotionRegionAt_OutOfRange);
