// Video analytics profiles and audio stream configurations.
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <type_traits>
#include <vector>

#include "vantrel/ddk.h"

using vantrel::AudioSource;
using vantrel::AudioStreamConfiguration;
using vantrel::AudioStreamConfigurations;
using vantrel::ddk::internal::ProfileSummary;
using vantrel::ddk::internal::VideoAnalyticsProfiles;

namespace {

VideoAnalyticsProfilesHandle* handle(VideoAnalyticsProfiles& m) {
  return reinterpret_cast<VideoAnalyticsProfilesHandle*>(&m);
}
AudioStreamConfigurationsHandle* handle(AudioStreamConfigurations& m) {
  return reinterpret_cast<AudioStreamConfigurationsHandle*>(&m);
}
AudioStreamConfigurationHandle* handle(AudioStreamConfiguration& c) {
  return reinterpret_cast<AudioStreamConfigurationHandle*>(&c);
}
AudioSourceHandle* handle(AudioSource& s) { return reinterpret_cast<AudioSourceHandle*>(&s); }

TEST(AnalyticsProfiles, GetOrCreateKeepsTheFirstNameAndFlag) {
  VideoAnalyticsProfiles m;
  void* first = ddk_add_video_analytics_profile(handle(m), "Entrance", 3, 1);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first, &m.at(3));
  void* second = ddk_add_video_analytics_profile(handle(m), "Exit", 3, 0);
  EXPECT_EQ(second, first);
  EXPECT_EQ(m.at(3).name, "Entrance");
  EXPECT_EQ(m.at(3).id, 3);
  EXPECT_EQ(m.at(3).flag, 1);
  EXPECT_EQ(m.size(), 1u);
}

TEST(AnalyticsProfiles, WalkedBySignedNumberAndFlagStoredAsPassed) {
  VideoAnalyticsProfiles m;
  for (int id : {7, -2, 3, INT_MIN, INT_MAX}) {
    ASSERT_NE(ddk_add_video_analytics_profile(handle(m), "p", id, static_cast<unsigned char>(id & 0xFF)),
              nullptr);
  }
  std::vector<int> ids;
  for (const auto& entry : m) {
    ids.push_back(entry.first);
    EXPECT_EQ(entry.second.id, entry.first);
    EXPECT_EQ(entry.second.flag, static_cast<unsigned char>(entry.first & 0xFF));
  }
  EXPECT_EQ(ids, (std::vector<int>{INT_MIN, -2, 3, 7, INT_MAX}));
  auto* two = static_cast<ProfileSummary*>(ddk_add_video_analytics_profile(handle(m), "", 0, 2));
  ASSERT_NE(two, nullptr);
  EXPECT_EQ(two->flag, 2);
  EXPECT_EQ(two->name, "");
}

TEST(AnalyticsProfiles, NullMapOrNameAddsNothing) {
  VideoAnalyticsProfiles m;
  EXPECT_EQ(ddk_add_video_analytics_profile(handle(m), nullptr, 1, 1), nullptr);
  EXPECT_EQ(ddk_add_video_analytics_profile(nullptr, "x", 1, 1), nullptr);
  EXPECT_EQ(ddk_add_video_analytics_profile(nullptr, nullptr, 1, 1), nullptr);
  EXPECT_TRUE(m.empty());
  ProfileSummary blank;
  EXPECT_EQ(blank.name, "");
  EXPECT_EQ(blank.id, 0);
  EXPECT_EQ(blank.flag, 0);
}

TEST(AnalyticsProfiles, FromHandleIsTheLibrarysConversion) {
  VideoAnalyticsProfiles m;
  EXPECT_EQ(&vantrel::from_handle<VideoAnalyticsProfiles>(handle(m)), &m);
  EXPECT_THROW(vantrel::from_handle<VideoAnalyticsProfiles>(static_cast<VideoAnalyticsProfilesHandle*>(nullptr)),
               vantrel::InvalidHandleException);
}

TEST(AudioConfigurations, NewEntryHasTheDefaults) {
  AudioStreamConfigurations m;
  auto* h = ddk_add_audio_to_configurations(handle(m), "mic", 3);
  ASSERT_NE(h, nullptr);
  const AudioStreamConfiguration& c = m.at("mic");
  EXPECT_EQ(h, reinterpret_cast<const AudioStreamConfigurationHandle*>(&c));
  EXPECT_EQ(c.format, 0u);
  EXPECT_EQ(c.sampleSizeInBits, 0u);
  EXPECT_EQ(c.samplesPerSecond, 0u);
  EXPECT_EQ(c.framesPerKilosecond, 0u);
  EXPECT_TRUE(c.bigEndian);
  EXPECT_FALSE(c.vbr);
}

TEST(AudioConfigurations, NameIsBoundedAtTheFirstNulAndByLength) {
  AudioStreamConfigurations m;
  auto* a = ddk_add_audio_to_configurations(handle(m), "mic\0xyz", 7);
  auto* b = ddk_add_audio_to_configurations(handle(m), "microphone", 3);
  EXPECT_EQ(a, b);
  ASSERT_EQ(m.size(), 1u);
  EXPECT_EQ(m.begin()->first, "mic");
  ASSERT_EQ(ddk_audio_set_sample_size_in_bits(a, 16), 0);
  EXPECT_EQ(ddk_add_audio_to_configurations(handle(m), "mic", 100), a);
  EXPECT_EQ(m.at("mic").sampleSizeInBits, 16u);
  // A name that starts with NUL is the empty key.
  auto* empty = ddk_add_audio_to_configurations(handle(m), "\0abc", 4);
  ASSERT_NE(empty, nullptr);
  EXPECT_EQ(m.begin()->first, "");
  EXPECT_EQ(m.size(), 2u);
}

TEST(AudioConfigurations, RefusedAddsAddNothing) {
  AudioStreamConfigurations m;
  EXPECT_EQ(ddk_add_audio_to_configurations(nullptr, "mic", 3), nullptr);
  EXPECT_EQ(ddk_add_audio_to_configurations(handle(m), nullptr, 3), nullptr);
  EXPECT_EQ(ddk_add_audio_to_configurations(handle(m), "mic", 0), nullptr);
  EXPECT_EQ(ddk_add_audio_to_configurations(nullptr, nullptr, 0), nullptr);
  EXPECT_TRUE(m.empty());
}

// One row per setter: a refused value gives -2 whatever the handle, a good
// value with a null handle -1; a refused call stores nothing.
TEST(AudioSetters, ValueFirstEightBitStatuses) {
  struct Case {
    const char* setter;
    signed char (*fn)(AudioStreamConfiguration*, AudioSource*, bool nullHandle, unsigned value);
    unsigned refused;
    unsigned good;
  } cases[] = {
      {"format", [](AudioStreamConfiguration* c, AudioSource*, bool n, unsigned v) {
         return ddk_audio_set_format(n ? nullptr : handle(*c), &v);
       }, 0, 7},
      {"sample size", [](AudioStreamConfiguration* c, AudioSource*, bool n, unsigned v) {
         return ddk_audio_set_sample_size_in_bits(n ? nullptr : handle(*c), v);
       }, 0, 16},
      {"samples per second", [](AudioStreamConfiguration* c, AudioSource*, bool n, unsigned v) {
         return ddk_audio_set_samples_per_second(n ? nullptr : handle(*c), v);
       }, 0, 48000},
      {"frames per kilosecond", [](AudioStreamConfiguration* c, AudioSource*, bool n, unsigned v) {
         return ddk_audio_set_frames_per_kilosecond(n ? nullptr : handle(*c), v);
       }, 0, 50000},
      {"source type", [](AudioStreamConfiguration*, AudioSource* s, bool n, unsigned v) {
         return ddk_audio_set_source_type(n ? nullptr : handle(*s), v);
       }, 0, 2},
      {"source sample size", [](AudioStreamConfiguration*, AudioSource* s, bool n, unsigned v) {
         return ddk_audio_set_source_sample_size_in_bits(n ? nullptr : handle(*s), v);
       }, 0, 24},
      {"source samples per second", [](AudioStreamConfiguration*, AudioSource* s, bool n, unsigned v) {
         return ddk_audio_set_source_samples_per_second(n ? nullptr : handle(*s), v);
       }, 0, 8000},
      {"source channels", [](AudioStreamConfiguration*, AudioSource* s, bool n, unsigned v) {
         return ddk_audio_set_source_channels(n ? nullptr : handle(*s), v);
       }, 0, 2},
      {"source level", [](AudioStreamConfiguration*, AudioSource* s, bool n, unsigned v) {
         return ddk_audio_set_source_level(n ? nullptr : handle(*s), v);
       }, 101, 100},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.setter);
    AudioStreamConfiguration config;
    AudioSource source{};
    EXPECT_EQ(c.fn(&config, &source, true, c.refused), -2);
    EXPECT_EQ(c.fn(&config, &source, false, c.refused), -2);
    EXPECT_EQ(config.format + config.sampleSizeInBits + config.samplesPerSecond +
                  config.framesPerKilosecond,
              0u);
    EXPECT_EQ(source.type + source.sampleSizeInBits + source.samplesPerSecond + source.channels +
                  source.level,
              0u);
    EXPECT_EQ(c.fn(&config, &source, true, c.good), -1);
    EXPECT_EQ(c.fn(&config, &source, false, c.good), 0);
    EXPECT_EQ(config.format + config.sampleSizeInBits + config.samplesPerSecond +
                  config.framesPerKilosecond + source.type + source.sampleSizeInBits +
                  source.samplesPerSecond + source.channels + source.level,
              c.good);
  }
  EXPECT_TRUE((std::is_same<decltype(ddk_audio_set_source_level(nullptr, 0)), signed char>::value));
}

TEST(AudioSetters, SixteenBitFieldsKeepTheLowBits) {
  AudioStreamConfiguration c;
  AudioSource s{};
  EXPECT_EQ(ddk_audio_set_sample_size_in_bits(handle(c), 65552), 0);
  EXPECT_EQ(c.sampleSizeInBits, 16u);
  EXPECT_EQ(ddk_audio_set_frames_per_kilosecond(handle(c), 0x12345678u), 0);
  EXPECT_EQ(c.framesPerKilosecond, 0x5678u);
  // 65536 is not 0, so it is accepted and stored as 0.
  EXPECT_EQ(ddk_audio_set_source_channels(handle(s), 65536), 0);
  EXPECT_EQ(s.channels, 0u);
  EXPECT_EQ(ddk_audio_set_source_sample_size_in_bits(handle(s), 0x10018u), 0);
  EXPECT_EQ(s.sampleSizeInBits, 24u);
  // 32-bit fields keep the whole value.
  EXPECT_EQ(ddk_audio_set_samples_per_second(handle(c), 0xFFFFFFFFu), 0);
  EXPECT_EQ(c.samplesPerSecond, 0xFFFFFFFFu);
  unsigned format = 0x80000000u;
  EXPECT_EQ(ddk_audio_set_format(handle(c), &format), 0);
  EXPECT_EQ(c.format, 0x80000000u);
}

TEST(AudioSetters, LevelAcceptsZeroToHundred) {
  AudioSource s{};
  s.level = 50;
  EXPECT_EQ(ddk_audio_set_source_level(handle(s), 0), 0);
  EXPECT_EQ(s.level, 0u);
  EXPECT_EQ(ddk_audio_set_source_level(handle(s), 100), 0);
  EXPECT_EQ(s.level, 100u);
  EXPECT_EQ(ddk_audio_set_source_level(handle(s), 101), -2);
  EXPECT_EQ(ddk_audio_set_source_level(handle(s), 65636), -2);  // refused before truncation
  EXPECT_EQ(s.level, 100u);
  EXPECT_EQ(ddk_audio_set_source_channels(nullptr, 0), -2);
  EXPECT_EQ(ddk_audio_set_source_channels(nullptr, 2), -1);
}

TEST(AudioSetters, FormatThroughANullPointerIsRefused) {
  AudioStreamConfiguration c;
  EXPECT_EQ(ddk_audio_set_format(handle(c), nullptr), -2);
  EXPECT_EQ(ddk_audio_set_format(nullptr, nullptr), -2);
  EXPECT_EQ(c.format, 0u);
}

TEST(AudioSetters, FlagsOnlyGoOneWay) {
  AudioStreamConfiguration c;
  EXPECT_EQ(ddk_audio_enable_little_endian(handle(c)), 0);
  EXPECT_FALSE(c.bigEndian);
  EXPECT_EQ(ddk_audio_enable_little_endian(handle(c)), 0);
  EXPECT_FALSE(c.bigEndian);
  EXPECT_EQ(ddk_audio_enable_vbr(handle(c)), 0);
  EXPECT_EQ(ddk_audio_enable_vbr(handle(c)), 0);
  EXPECT_TRUE(c.vbr);
  EXPECT_EQ(ddk_audio_enable_little_endian(nullptr), -1);
  EXPECT_EQ(ddk_audio_enable_vbr(nullptr), -1);
}

}  // namespace
