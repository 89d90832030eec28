// Allocation failures in the stream configuration families: every adder and
// text setter completes or gives its failure value with the map, set or
// record exactly as before; the query's own members let std::bad_alloc pass
// and keep the query as it was.
#include <gtest/gtest.h>

#include <map>
#include <new>
#include <string>

#include "oom_cases.h"
#include "vantrel/ddk.h"

using vantrel::AudioStreamConfiguration;
using vantrel::AudioStreamConfigurations;
using namespace vantrel::ddk::internal;

namespace {

const std::string kLong = "stream-" + std::string(60, 's');
const std::string kOld = "old-" + std::string(60, 'o');
const unsigned kLongLength = static_cast<unsigned>(kLong.size());

TEST(StreamAllocationFailure, CollectionAdders) {
  VideoStreamPresets presets;
  VideoStreamConfigurationsHandle* preset = nullptr;
  oom_cases::expect_all_or_nothing(
      "preset", [&] { presets = {{kOld, {{kOld, VideoStreamConfiguration(kOld)}}}}; },
      [&] {
        preset = ddk_add_to_presets(reinterpret_cast<VideoStreamPresetsHandle*>(&presets), kLong.data(), kLongLength);
        return preset != nullptr;
      },
      [&] {
        ASSERT_EQ(presets.size(), 1u);
        EXPECT_EQ(presets.begin()->first, kOld);
        EXPECT_EQ(presets.begin()->second.size(), 1u);
      });
  EXPECT_EQ(preset, reinterpret_cast<VideoStreamConfigurationsHandle*>(&presets[kLong]));

  VideoStreamConfigurations streams;
  VideoStreamConfigurationHandle* stream = nullptr;
  oom_cases::expect_all_or_nothing(
      "stream", [&] { streams = {{kOld, VideoStreamConfiguration(kOld)}}; },
      [&] {
        stream = ddk_add_video_stream_to_configurations(reinterpret_cast<VideoStreamConfigurationsHandle*>(&streams),
                                                        kLong.data(), kLongLength);
        return stream != nullptr;
      },
      [&] {
        ASSERT_EQ(streams.size(), 1u);
        EXPECT_EQ(streams.begin()->second.streamToken, kOld);
      });
  EXPECT_EQ(streams.at(kLong).streamToken, kLong);
  EXPECT_EQ(streams.at(kLong).timeout, 900u);

  VideoAnalyticsProfiles profiles;
  void* profile = nullptr;
  oom_cases::expect_all_or_nothing(
      "analytics profile", [&] { profiles = {{1, ProfileSummary(kOld, 1, 1)}}; },
      [&] {
        profile = ddk_add_video_analytics_profile(reinterpret_cast<VideoAnalyticsProfilesHandle*>(&profiles),
                                                  kLong.c_str(), 2, 7);
        return profile != nullptr;
      },
      [&] {
        ASSERT_EQ(profiles.size(), 1u);
        EXPECT_EQ(profiles.at(1).name, kOld);
      });
  EXPECT_EQ(profiles.at(2).name, kLong);

  AudioStreamConfigurations audio;
  AudioStreamConfigurationHandle* entry = nullptr;
  oom_cases::expect_all_or_nothing(
      "audio", [&] { audio.clear(); audio[kOld].vbr = true; },
      [&] {
        entry = ddk_add_audio_to_configurations(reinterpret_cast<AudioStreamConfigurationsHandle*>(&audio),
                                                kLong.c_str(), kLongLength);
        return entry != nullptr;
      },
      [&] {
        ASSERT_EQ(audio.size(), 1u);
        EXPECT_TRUE(audio.at(kOld).vbr);
      });
  EXPECT_EQ(entry, reinterpret_cast<AudioStreamConfigurationHandle*>(&audio.at(kLong)));
}

TEST(StreamAllocationFailure, ConfigurationTextSetters) {
  VideoStreamConfiguration c;
  auto* h = reinterpret_cast<VideoStreamConfigurationHandle*>(&c);
  auto reset = [&] {
    c = VideoStreamConfiguration(kOld);
    c.descriptiveName = kOld;
    c.multicastAddress = kOld;
    c.multicastPort = 1;
  };
  int result = 0;
  oom_cases::expect_all_or_nothing(
      "stream token", reset, [&] { return (result = ddk_video_set_stream_token(h, kLong.data(), kLongLength)) == 0; },
      [&] {
        EXPECT_EQ(result, -1);
        EXPECT_EQ(c.streamToken, kOld);
      });
  EXPECT_EQ(c.streamToken, kLong);
  oom_cases::expect_all_or_nothing(
      "descriptive name", reset,
      [&] {
        ddk_video_set_descriptive_name(h, kLong.data(), kLongLength);
        return c.descriptiveName == kLong;
      },
      [&] { EXPECT_EQ(c.descriptiveName, kOld); });
  oom_cases::expect_all_or_nothing(
      "multicast", reset,
      [&] { return (result = ddk_video_set_multicast(h, kLong.data(), kLongLength, 5004, 16, 1)) == 0; },
      [&] {
        EXPECT_EQ(result, -1);
        EXPECT_EQ(c.multicastAddress, kOld);
        EXPECT_EQ(c.multicastPort, 1u);  // nothing half-set
        EXPECT_FALSE(c.multicastFlag);
      });
  EXPECT_EQ(c.multicastAddress, kLong);
  EXPECT_EQ(c.multicastPort, 5004u);
}

TEST(StreamAllocationFailure, EncoderOptionSets) {
  EncoderOptions o;
  auto* h = reinterpret_cast<EncoderOptionsHandle*>(&o);
  auto reset = [&] {
    o = EncoderOptions();
    o.framerates = {30, 25};
    o.gopStructures = {0};
    o.rateControls = {1};
    o.videoProfiles = {1};
    o.encodings = {DDK_ENCODING_H264};
    o.resolutions = {Resolution(640, 480)};
  };
  struct Case {
    const char* what;
    std::function<int()> add;
    std::function<std::size_t()> size;
  };
  const Case cases[] = {
      {"framerate", [&] { return ddk_add_framerate_to_encoder_options(h, 15); }, [&] { return o.framerates.size(); }},
      {"gop structure", [&] { return ddk_add_gop_structure_to_encoder_options(h, -4); },
       [&] { return o.gopStructures.size(); }},
      {"rate control", [&] { return ddk_add_rate_control_to_encoder_options(h, 2); },
       [&] { return o.rateControls.size(); }},
      {"profile", [&] { return ddk_add_video_profile_to_encoder_options(h, 5); },
       [&] { return o.videoProfiles.size(); }},
      {"encoding", [&] { return ddk_add_encoding_to_encoder_options(h, DDK_ENCODING_H265); },
       [&] { return o.encodings.size(); }},
      {"resolution", [&] { return ddk_add_resolution_to_encoder_options(h, 1920, 1080); },
       [&] { return o.resolutions.size(); }},
  };
  for (const Case& c : cases) {
    int result = 0;
    std::size_t before = 0;
    oom_cases::expect_all_or_nothing(
        c.what, [&] { reset(); before = c.size(); }, [&] { return (result = c.add()) == 0; },
        [&] {
          EXPECT_EQ(result, -1) << c.what;
          EXPECT_EQ(c.size(), before) << c.what;
        });
    EXPECT_EQ(c.size(), before + 1) << c.what;
  }
}

// The query's members are C++: an allocation failure leaves as
// std::bad_alloc, and the query keeps its filters.
TEST(StreamAllocationFailure, QueryKeepsItsFiltersWhenCopyingFails) {
  VideoOptionsQuery source;
  source.setResolution(640, 480);
  source.setEncodingType(DDK_ENCODING_H264);
  source.setFramerate(25);
  VideoOptionsQuery target;
  bool threw = false;
  oom_cases::expect_all_or_nothing(
      "query assignment", [&] { target = VideoOptionsQuery(); target.setFramerate(5); },
      [&] {
        try {
          target = source;
          return true;
        } catch (const std::bad_alloc&) {
          threw = true;
          return false;
        }
      },
      [&] {
        EXPECT_TRUE(threw);
        EXPECT_EQ(target.resolution(), nullptr);
        EXPECT_EQ(target.encodingType(), nullptr);
        ASSERT_NE(target.framerate(), nullptr);
        EXPECT_EQ(*target.framerate(), 5u);
      });
  EXPECT_TRUE(target == source);
  // A failing copy construction releases what it had already taken (the
  // leak check of the injector covers it).
  oom_cases::expect_all_or_nothing(
      "query copy", [] {},
      [&] {
        try {
          VideoOptionsQuery copy(source);
          return copy == source;
        } catch (const std::bad_alloc&) {
          return false;
        }
      },
      [] {});
}

TEST(StreamAllocationFailure, NullHandlesKeepTheirFailureValue) {
  const oom_cases::NullCase cases[] = {
      {"stream token", -1, [] { return ddk_video_set_stream_token(nullptr, kLong.data(), kLongLength); }},
      {"multicast", -1, [] { return ddk_video_set_multicast(nullptr, kLong.data(), kLongLength, 1, 1, 1); }},
      {"gop", -1, [] { return ddk_video_set_gop(nullptr, 5); }},
      {"timeout", 900, [] { return static_cast<int>(ddk_video_get_timeout(nullptr)); }},
      {"mtu", 1500, [] { return static_cast<int>(ddk_video_get_mtu(nullptr)); }},
      {"bitrate", -1, [] { return ddk_video_get_bitrate(nullptr); }},
      {"add stream", 0,
       [] { return ddk_add_video_stream_to_configurations(nullptr, kLong.data(), kLongLength) == nullptr ? 0 : 1; }},
      {"lookup", 0, [] { return ddk_get_video_stream_configuration(nullptr, kLong.c_str()) == nullptr ? 0 : 1; }},
      {"framerate option", -1, [] { return ddk_add_framerate_to_encoder_options(nullptr, 30); }},
      {"range", -1, [] { return ddk_set_gop_range_on_encoder_options(nullptr, 1, 2, 3); }},
      {"query encoding", -1,
       [] {
         EncodingType e = DDK_ENCODING_NONE;
         return ddk_get_encoder_query_encoding(nullptr, &e);
       }},
      {"audio entry", 0,
       [] { return ddk_add_audio_to_configurations(nullptr, kLong.c_str(), kLongLength) == nullptr ? 0 : 1; }},
      {"audio format", -1,
       [] {
         const unsigned format = 3;
         return static_cast<int>(ddk_audio_set_format(nullptr, &format));
       }},
      {"audio level", -1, [] { return static_cast<int>(ddk_audio_set_source_level(nullptr, 50)); }},
  };
  oom_cases::expect_null_cases(cases);
}

}  // namespace
