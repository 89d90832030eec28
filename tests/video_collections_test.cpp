// Video stream collections and presets: get-or-create, key order, lookup, walk.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "vantrel/ddk.h"

using vantrel::ddk::internal::VideoStreamConfiguration;
using vantrel::ddk::internal::VideoStreamConfigurations;
using vantrel::ddk::internal::VideoStreamPresets;

namespace {

VideoStreamConfigurationsHandle* handle(VideoStreamConfigurations& m) {
  return reinterpret_cast<VideoStreamConfigurationsHandle*>(&m);
}
VideoStreamPresetsHandle* handle(VideoStreamPresets& m) {
  return reinterpret_cast<VideoStreamPresetsHandle*>(&m);
}
VideoStreamConfigurationHandle* add(VideoStreamConfigurations& m, const std::string& token) {
  return ddk_add_video_stream_to_configurations(handle(m), token.data(),
                                                static_cast<unsigned>(token.size()));
}
// Tokens as the positional walk reports them.
std::vector<std::string> walk(VideoStreamConfigurations& m) {
  std::vector<std::string> tokens;
  for (unsigned i = 0; i < ddk_get_video_stream_configurations_count(handle(m)); ++i) {
    auto* c = ddk_get_video_stream_configuration_at(handle(m), i);
    tokens.push_back(reinterpret_cast<VideoStreamConfiguration*>(c)->streamToken);
  }
  return tokens;
}

TEST(VideoCollections, AddIsGetOrCreate) {
  VideoStreamConfigurations m;
  auto* first = add(m, "main");
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first, reinterpret_cast<VideoStreamConfigurationHandle*>(&m.at("main")));
  EXPECT_STREQ(ddk_video_get_stream_token(first), "main");
  EXPECT_EQ(ddk_video_get_timeout(first), 900u);
  unsigned char dscp = 0;
  EXPECT_EQ(ddk_video_get_dscp(first, &dscp), 0);
  EXPECT_EQ(dscp, 34);
  ASSERT_EQ(ddk_video_set_framerate(first, 12), 0);
  auto* again = add(m, "main");
  EXPECT_EQ(again, first);
  unsigned int rate = 0;
  EXPECT_EQ(ddk_video_get_framerate(again, &rate), 0);
  EXPECT_EQ(rate, 12u);
  EXPECT_EQ(m.size(), 1u);
}

TEST(VideoCollections, AddTakesExactlyLengthBytes) {
  VideoStreamConfigurations m;
  auto* h = ddk_add_video_stream_to_configurations(handle(m), "mainXYZ", 4);
  EXPECT_STREQ(ddk_video_get_stream_token(h), "main");
  EXPECT_EQ(m.count("main"), 1u);
  // A null text or a zero length is the empty token, an ordinary key.
  auto* empty1 = ddk_add_video_stream_to_configurations(handle(m), nullptr, 4);
  auto* empty2 = ddk_add_video_stream_to_configurations(handle(m), "abc", 0);
  ASSERT_NE(empty1, nullptr);
  EXPECT_EQ(empty1, empty2);
  EXPECT_EQ(ddk_get_video_stream_configuration_at(handle(m), 0), empty1);
  EXPECT_STREQ(ddk_video_get_stream_token(empty1), "");
  EXPECT_EQ(ddk_add_video_stream_to_configurations(nullptr, "main", 4), nullptr);
  EXPECT_EQ(ddk_add_video_stream_to_configurations(nullptr, nullptr, 0), nullptr);
}

TEST(VideoCollections, KeysAreOrderedByteWise) {
  VideoStreamConfigurations m;
  EXPECT_EQ(ddk_get_video_stream_configuration_at(handle(m), 0), nullptr);
  add(m, "b");
  add(m, "a");
  add(m, "ab");
  EXPECT_EQ(ddk_get_video_stream_configurations_count(handle(m)), 3u);
  EXPECT_EQ(walk(m), (std::vector<std::string>{"a", "ab", "b"}));
  EXPECT_EQ(ddk_get_video_stream_configuration_at(handle(m), 3), nullptr);
  EXPECT_EQ(ddk_get_video_stream_configuration_at(handle(m), 0xFFFFFFFFu), nullptr);

  // Upper case before lower case, bytes above 0x7F after ASCII, NUL before
  // every other byte, the empty key first.
  add(m, "B");
  add(m, "\xC3\xA9");
  add(m, std::string("a\0z", 3));
  add(m, "");
  EXPECT_EQ(walk(m), (std::vector<std::string>{"", "B", "a", std::string("a\0z", 3), "ab", "b",
                                               "\xC3\xA9"}));
}

TEST(VideoCollections, LookupIsByNulTerminatedTokenAndExactBytes) {
  VideoStreamConfigurations m;
  auto* main = add(m, "main");
  auto* nul = add(m, std::string("cam\0x", 5));
  EXPECT_EQ(ddk_get_video_stream_configuration(handle(m), "main"), main);
  EXPECT_EQ(ddk_get_video_stream_configuration(handle(m), "Main"), nullptr);
  EXPECT_EQ(ddk_get_video_stream_configuration(handle(m), "mai"), nullptr);
  // The lookup stops at the NUL, so the key with an inner NUL is reached by position only.
  EXPECT_EQ(ddk_get_video_stream_configuration(handle(m), "cam\0x"), nullptr);
  EXPECT_EQ(ddk_get_video_stream_configuration_at(handle(m), 0), nul);
  EXPECT_EQ(ddk_get_video_stream_configuration(handle(m), nullptr), nullptr);
  EXPECT_EQ(ddk_get_video_stream_configuration(nullptr, nullptr), nullptr);
  EXPECT_EQ(ddk_get_video_stream_configuration(nullptr, "main"), nullptr);
  add(m, "");
  EXPECT_NE(ddk_get_video_stream_configuration(handle(m), ""), nullptr);
}

TEST(VideoCollections, NullCollectionCountsZero) {
  EXPECT_EQ(ddk_get_video_stream_configurations_count(nullptr), 0u);
  EXPECT_EQ(ddk_get_video_stream_configuration_at(nullptr, 0), nullptr);
}

TEST(VideoCollections, RenamingDoesNotMoveTheEntry) {
  VideoStreamConfigurations m;
  auto* main = add(m, "main");
  add(m, "b");
  ASSERT_EQ(ddk_video_set_stream_token(main, "side", 4), 0);
  EXPECT_EQ(ddk_get_video_stream_configuration(handle(m), "main"), main);
  EXPECT_EQ(ddk_get_video_stream_configuration(handle(m), "side"), nullptr);
  EXPECT_STREQ(ddk_video_get_stream_token(main), "side");
  EXPECT_EQ(ddk_get_video_stream_configuration_at(handle(m), 1), main);
  // Adding under the old key still finds the renamed record.
  EXPECT_EQ(add(m, "main"), main);
  EXPECT_STREQ(ddk_video_get_stream_token(main), "side");
}

TEST(VideoCollections, HandlesStayValidWhileOthersAreAdded) {
  VideoStreamConfigurations m;
  auto* first = add(m, "m");
  for (int i = 0; i < 50; ++i) add(m, std::to_string(i));
  EXPECT_EQ(add(m, "m"), first);
  EXPECT_EQ(ddk_get_video_stream_configurations_count(handle(m)), 51u);
}

TEST(VideoPresets, GetOrCreateByExactBytes) {
  VideoStreamPresets presets;
  auto* day = ddk_add_to_presets(handle(presets), "day-mode", 3);
  ASSERT_NE(day, nullptr);
  EXPECT_EQ(presets.size(), 1u);
  EXPECT_EQ(presets.count("day"), 1u);
  auto& inner = *reinterpret_cast<VideoStreamConfigurations*>(day);
  EXPECT_EQ(&inner, &presets.at("day"));
  EXPECT_TRUE(inner.empty());
  ASSERT_NE(ddk_add_video_stream_to_configurations(day, "main", 4), nullptr);
  EXPECT_EQ(ddk_add_to_presets(handle(presets), "day", 3), day);
  EXPECT_EQ(ddk_get_video_stream_configurations_count(day), 1u);
  auto* night = ddk_add_to_presets(handle(presets), "a\0b", 3);
  EXPECT_NE(night, day);
  EXPECT_EQ(presets.begin()->first, std::string("a\0b", 3));
}

TEST(VideoPresets, RefusedCallsAddNothing) {
  VideoStreamPresets presets;
  EXPECT_EQ(ddk_add_to_presets(handle(presets), "day", 0), nullptr);
  EXPECT_EQ(ddk_add_to_presets(handle(presets), nullptr, 3), nullptr);
  EXPECT_EQ(ddk_add_to_presets(nullptr, "day", 3), nullptr);
  EXPECT_EQ(ddk_add_to_presets(nullptr, nullptr, 0), nullptr);
  EXPECT_TRUE(presets.empty());
}

}  // namespace
