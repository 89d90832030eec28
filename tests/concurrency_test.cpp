// Independent containers of every family and plug-ins used from several
// threads at once, and several threads signalling and logging into one host
// table: the library keeps no hidden shared state. Meaningful under the
// thread sanitizer preset.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <thread>
#include <map>
#include <vector>

#include "vantrel/ddk.h"

namespace {

constexpr int kThreads = 4;
constexpr int kRounds = 500;

TEST(Concurrency, IndependentContainersPerThread) {
  std::vector<std::thread> threads;
  std::atomic<int> failures{0};
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&failures, t] {
      std::string text;
      std::vector<std::string> list;
      PluginParameters params{nullptr, nullptr};
      const std::string word = "thread-" + std::to_string(t) + std::string(40, 'x');
      for (int i = 0; i < kRounds; ++i) {
        if (ddk_set_string(reinterpret_cast<StringHandle*>(&text), word.data(),
                           static_cast<unsigned>(word.size())) != 0 ||
            ddk_append_string(reinterpret_cast<StringListHandle*>(&list), word.data(),
                              static_cast<unsigned>(word.size())) != 0) {
          ++failures;
        }
        const int code = i;
        ddk_free_error(ddk_new_error(word.c_str(), &code));
        insert_plugin(&params, &text, &list, nullptr);
      }
      free_parameters(&params);
      if (list.size() != static_cast<std::size_t>(kRounds) || text != word) ++failures;
    });
  }
  for (auto& th : threads) th.join();
  EXPECT_EQ(failures.load(), 0);
}

// Every thread fills its own media collections; the shared media type check
// keeps no state between calls.
TEST(Concurrency, IndependentMediaCollectionsPerThread) {
  std::vector<std::thread> threads;
  std::atomic<int> failures{0};
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&failures, t] {
      std::vector<vantrel::MediaSession> sessions;
      std::vector<vantrel::ddk::internal::StreamConnectionInfo> infos;
      std::vector<vantrel::NetworkAddress> addresses;
      const std::string uri = "rtsp://camera/" + std::to_string(t) + std::string(40, 'u');
      const uint16_t uriLength = static_cast<uint16_t>(uri.size());
      const int32_t state = t;
      for (int i = 0; i < kRounds; ++i) {
        MediaSessionHandle* s =
            ddk_add_media_session_to_collection(reinterpret_cast<MediaSessionCollectionHandle*>(&sessions));
        StreamConnectionInfoHandle* info =
            ddk_add_stream_connection_info(reinterpret_cast<StreamConnectionInfosHandle*>(&infos));
        auto* list = reinterpret_cast<NetworkAddressCollectionHandle*>(&addresses);
        if (ddk_set_media_session_uri(s, uri.c_str(), &uriLength) != 0 ||
            ddk_set_media_session_stream_state(s, &state) != 0 ||
            ddk_set_stream_connection_info_mime_type(info, "video/H264", 10) != 0 ||
            ddk_append_network_address(list, t, uri.c_str(), uriLength) != 0 ||
            ddk_get_network_address_collection_size(list) != static_cast<unsigned>(i + 1)) {
          ++failures;
        }
      }
      for (const auto& s : sessions) {
        if (s.uri != uri || s.streamState != state) ++failures;
      }
      if (infos.size() != static_cast<std::size_t>(kRounds) || infos.back().mimeType != "video/H264") {
        ++failures;
      }
    });
  }
  for (auto& th : threads) th.join();
  EXPECT_EQ(failures.load(), 0);
}

struct CountingHost {
  std::atomic<int> lines{0};
  DDKServiceProvider table{};
  CountingHost() {
    table.logContext = this;
    table.logCallback = [](void* context, int, const char*) {
      ++static_cast<CountingHost*>(context)->lines;
    };
  }
};

struct Worker : vantrel::ddk::IPlugin {
  DDKError* doInit() override {
    ddk_log(serviceProvider, 1, "started");
    return nullptr;
  }
  void doShutdown() override { throw std::runtime_error("stop failed"); }
};

TEST(Concurrency, PluginsAndLoggingIntoOneTable) {
  CountingHost host;
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&host] {
      for (int i = 0; i < kRounds; ++i) {
        Worker plugin;  // one plug-in per thread: its flags are unlocked by design
        ddk_free_error(plugin.init(&host.table));
        plugin.shutdown();
        ddk_log(&host.table, 3, "line");
      }
    });
  }
  for (auto& th : threads) th.join();
  // init logs once, the throwing shutdown once, the loop once.
  EXPECT_EQ(host.lines.load(), kThreads * kRounds * 3);
}

// Stream configuration and camera control records, one set per thread.
TEST(Concurrency, IndependentConfigurationsPerThread) {
  using namespace vantrel::ddk::internal;
  std::vector<std::thread> threads;
  std::atomic<int> failures{0};
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&failures, t] {
      VideoStreamPresets presets;
      EncoderOptions options;
      VideoAnalyticsProfiles profiles;
      vantrel::AudioStreamConfigurations audio;
      std::vector<vantrel::MotionDetectionRegion> regions;
      std::vector<bool> flags;
      vantrel::TimeZone zone;
      const std::string name = "thread-" + std::to_string(t) + std::string(30, 'n');
      const unsigned length = static_cast<unsigned>(name.size());
      const unsigned char mask[2] = {0xFF, 0x01};
      auto* list = reinterpret_cast<MotionDetectionRegionListHandle*>(&regions);
      for (int i = 0; i < kRounds; ++i) {
        const std::string token = name + std::to_string(i);
        VideoStreamConfigurationsHandle* preset =
            ddk_add_to_presets(reinterpret_cast<VideoStreamPresetsHandle*>(&presets), name.data(), length);
        VideoStreamConfigurationHandle* stream =
            ddk_add_video_stream_to_configurations(preset, token.data(), static_cast<unsigned>(token.size()));
        AudioStreamConfigurationHandle* entry = ddk_add_audio_to_configurations(
            reinterpret_cast<AudioStreamConfigurationsHandle*>(&audio), token.c_str(), 100);
        ddk_append_motion_region(list);
        MotionDetectionRegionHandle* region = ddk_get_motion_region_at(list, static_cast<unsigned>(i));
        if (ddk_video_set_resolution(stream, 640 + t, 480) != 0 ||
            ddk_video_set_multicast(stream, name.data(), length, 5004, 1, 1) != 0 ||
            ddk_add_framerate_to_encoder_options(reinterpret_cast<EncoderOptionsHandle*>(&options),
                                                 static_cast<unsigned>(i + 1)) != 0 ||
            ddk_add_video_analytics_profile(reinterpret_cast<VideoAnalyticsProfilesHandle*>(&profiles),
                                            name.c_str(), i, 1) == nullptr ||
            ddk_audio_enable_vbr(entry) != 0 ||
            ddk_set_motion_region_dimensions(region, 0, 0, 2, 2, mask, 2) != 0 ||
            ddk_set_preset_vector_size(reinterpret_cast<PresetVectorHandle*>(&flags), static_cast<unsigned>(i)) != 0 ||
            ddk_set_preset_enabled(reinterpret_cast<PresetVectorHandle*>(&flags), static_cast<unsigned>(i)) != 0 ||
            ddk_set_timezone_name(reinterpret_cast<TimeZoneHandle*>(&zone), token.data(),
                                  static_cast<unsigned>(token.size())) != 0) {
          ++failures;
        }
      }
      if (presets.at(name).size() != static_cast<std::size_t>(kRounds) ||
          presets.at(name).begin()->second.width != static_cast<unsigned>(640 + t) ||
          options.framerates.size() != static_cast<std::size_t>(kRounds) || profiles.size() != options.framerates.size() ||
          audio.size() != profiles.size() || regions.size() != audio.size() || regions.back().macroBlockCount() != 9 ||
          flags.size() != regions.size() || !flags.back() || zone.name != name + std::to_string(kRounds - 1)) {
        ++failures;
      }
    });
  }
  for (auto& th : threads) th.join();
  EXPECT_EQ(failures.load(), 0);
}

// Several threads signal into one host table at once; the host's callbacks
// count with atomics, which is all the host has to guard.
struct EventHost {
  std::atomic<int> alarms{0}, states{0}, motions{0}, analytics{0}, diagnostics{0}, refreshes{0}, logs{0};
  std::atomic<int> wrong{0};
  DDKServiceProvider table{};
  EventHost() {
    table.alarmCallback = [](void* c, AlarmEvent e) {
      auto* h = static_cast<EventHost*>(c);
      ++h->alarms;
      if (e.type != e.source + 1) ++h->wrong;
    };
    table.audioStateCallback = [](void* c, int) { ++static_cast<EventHost*>(c)->states; };
    table.motionDetectionStateCallback = [](void* c, int) { ++static_cast<EventHost*>(c)->states; };
    table.motionCallback = [](void* c, vantrel::MotionEvent e) {
      auto* h = static_cast<EventHost*>(c);
      ++h->motions;
      if (e.text1 != "motion-" + std::to_string(e.value)) ++h->wrong;
    };
    table.analyticsCallback = [](void* c, vantrel::AnalyticsEvent e) {
      auto* h = static_cast<EventHost*>(c);
      ++h->analytics;
      if (e.ruleName != "Camera Sabotage" || e.text1 != std::to_string(e.value1)) ++h->wrong;
    };
    table.diagnosticsCallback = [](void* c, vantrel::DiagnosticsEvent e) {
      auto* h = static_cast<EventHost*>(c);
      ++h->diagnostics;
      if (e.byte1 != e.byte2) ++h->wrong;
    };
    table.refreshDdfCallback = [](void* c) { ++static_cast<EventHost*>(c)->refreshes; };
    table.logCallback = [](void* c, int, const char*) { ++static_cast<EventHost*>(c)->logs; };
    table.alarmContext = table.audioContext = table.motionContext = table.analyticsContext =
        table.diagnosticsContext = table.refreshDdfContext = table.logContext = this;
  }
};

TEST(Concurrency, SignalsFromSeveralThreadsIntoOneTable) {
  EventHost host;
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&host, t] {
      for (int i = 0; i < kRounds; ++i) {
        const unsigned value = static_cast<unsigned>(t * kRounds + i);
        const std::string motion = "motion-" + std::to_string(value);
        const std::string number = std::to_string(value);
        ddk_signal_alarm(&host.table, AlarmEvent{value, value + 1, 1, 0});
        ddk_signal_audio_enabled(&host.table);
        ddk_signal_motion_detection_disabled(&host.table);
        ddk_signal_motion_detected(&host.table, value, motion.data(), static_cast<unsigned>(motion.size()),
                                   nullptr, 0);
        ddk_signal_sabotage_event(&host.table, "lens covered", value, 0, number.c_str());
        ddk_signal_video_loss_event(&host.table, static_cast<unsigned char>(t), static_cast<unsigned char>(t), value);
        ddk_signal_refresh_ddf(&host.table);
        ddk_log(&host.table, 1, "signalled");
      }
    });
  }
  for (auto& th : threads) th.join();
  const int n = kThreads * kRounds;
  EXPECT_EQ(host.alarms.load(), n);
  EXPECT_EQ(host.states.load(), 2 * n);
  EXPECT_EQ(host.motions.load(), n);
  EXPECT_EQ(host.analytics.load(), n);
  EXPECT_EQ(host.diagnostics.load(), n);
  EXPECT_EQ(host.refreshes.load(), n);
  EXPECT_EQ(host.logs.load(), n);
  EXPECT_EQ(host.wrong.load(), 0);
}

}  // namespace
