// Binary-interface facts of the stream configuration records: field order,
// widths and sizes on x86-64 (8-byte pointers) and armhf (4-byte pointers).
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <set>
#include <string>
#include <type_traits>

#include "support/vtable.h"
#include "vantrel/ddk.h"

using testing_support::offset_in;

namespace {

constexpr bool k64 = sizeof(void*) == 8;
// Offsets per target: {x86-64, armhf}.
struct Where {
  std::ptrdiff_t lp64, ilp32;
  std::ptrdiff_t here() const { return k64 ? lp64 : ilp32; }
};

TEST(EncodingTypeLayout, SignedThirtyTwoBits) {
  EXPECT_EQ(sizeof(EncodingType), 4u);
  EXPECT_TRUE((std::is_same<std::underlying_type<EncodingType>::type, int32_t>::value));
  EXPECT_EQ(DDK_ENCODING_NONE, 0);
  EXPECT_EQ(DDK_ENCODING_H264, 1);
  EXPECT_EQ(DDK_ENCODING_H265, 2);
}

TEST(VideoStreamConfigurationLayout, TwentyOneFieldsInOrder) {
  using vantrel::ddk::internal::VideoStreamConfiguration;
  ASSERT_EQ(sizeof(std::string), k64 ? 32u : 24u);
  VideoStreamConfiguration c;
  const struct {
    const char* field;
    std::ptrdiff_t offset;
    std::size_t size;
    Where expected;
  } fields[] = {
      {"streamToken", offset_in(c, c.streamToken), sizeof c.streamToken, {0, 0}},
      {"bitrate", offset_in(c, c.bitrate), sizeof c.bitrate, {32, 24}},
      {"timeout", offset_in(c, c.timeout), sizeof c.timeout, {36, 28}},
      {"encoding", offset_in(c, c.encoding), sizeof c.encoding, {40, 32}},
      {"descriptiveName", offset_in(c, c.descriptiveName), sizeof c.descriptiveName, {48, 36}},
      {"multicastAddress", offset_in(c, c.multicastAddress), sizeof c.multicastAddress, {80, 60}},
      {"multicastPort", offset_in(c, c.multicastPort), sizeof c.multicastPort, {112, 84}},
      {"multicastTtl", offset_in(c, c.multicastTtl), sizeof c.multicastTtl, {116, 88}},
      {"mtu", offset_in(c, c.mtu), sizeof c.mtu, {120, 92}},
      {"multicastFlag", offset_in(c, c.multicastFlag), sizeof c.multicastFlag, {124, 96}},
      {"width", offset_in(c, c.width), sizeof c.width, {128, 100}},
      {"height", offset_in(c, c.height), sizeof c.height, {132, 104}},
      {"framerate", offset_in(c, c.framerate), sizeof c.framerate, {136, 108}},
      {"gop", offset_in(c, c.gop), sizeof c.gop, {140, 112}},
      {"gopStructure", offset_in(c, c.gopStructure), sizeof c.gopStructure, {144, 116}},
      {"profile", offset_in(c, c.profile), sizeof c.profile, {148, 120}},
      {"imageProcessing", offset_in(c, c.imageProcessing), sizeof c.imageProcessing, {152, 124}},
      {"signing", offset_in(c, c.signing), sizeof c.signing, {156, 128}},
      {"dscp", offset_in(c, c.dscp), sizeof c.dscp, {157, 129}},
      {"rateControl", offset_in(c, c.rateControl), sizeof c.rateControl, {160, 132}},
      {"reserved", offset_in(c, c.reserved), sizeof c.reserved, {164, 136}},
  };
  const std::size_t widths[] = {sizeof(std::string), 4, 4, 4, sizeof(std::string),
                                sizeof(std::string), 4, 1, 4, 1, 4, 4, 4, 4, 4, 4, 4, 1, 1, 4, 4};
  for (std::size_t i = 0; i < sizeof fields / sizeof fields[0]; ++i) {
    SCOPED_TRACE(fields[i].field);
    EXPECT_EQ(fields[i].offset, fields[i].expected.here());
    EXPECT_EQ(fields[i].size, widths[i]);
  }
  EXPECT_EQ(sizeof(VideoStreamConfiguration), k64 ? 168u : 140u);
  EXPECT_FALSE(std::is_polymorphic<VideoStreamConfiguration>::value);
  EXPECT_TRUE(std::is_unsigned<decltype(c.bitrate)>::value);
  EXPECT_TRUE(std::is_signed<decltype(c.rateControl)>::value);
}

TEST(ResolutionLayout, WidthThenHeight) {
  using vantrel::ddk::internal::Resolution;
  EXPECT_EQ(offsetof(Resolution, width), 0u);
  EXPECT_EQ(offsetof(Resolution, height), 4u);
  EXPECT_EQ(sizeof(Resolution), 8u);
  EXPECT_TRUE(std::is_trivially_copyable<Resolution>::value);
}

TEST(EncoderOptionsLayout, FlagsSetsRangesSigningResolutions) {
  using vantrel::ddk::internal::EncoderOptions;
  using vantrel::ddk::internal::EncoderRange;
  ASSERT_EQ(sizeof(std::set<int>), k64 ? 48u : 24u);
  EXPECT_EQ(sizeof(EncoderRange), 12u);
  EXPECT_EQ(offsetof(EncoderRange, low), 0u);
  EXPECT_EQ(offsetof(EncoderRange, high), 4u);
  EXPECT_EQ(offsetof(EncoderRange, thirdValue), 8u);
  EncoderOptions o;
  const struct {
    const char* field;
    std::ptrdiff_t offset;
    Where expected;
  } fields[] = {
      {"reserved", offset_in(o, o.reserved), {0, 0}},
      {"hasGopRange", offset_in(o, o.hasGopRange), {4, 4}},
      {"hasBitrateRange", offset_in(o, o.hasBitrateRange), {5, 5}},
      {"hasDscpRange", offset_in(o, o.hasDscpRange), {6, 6}},
      {"hasSigning", offset_in(o, o.hasSigning), {7, 7}},
      {"encodings", offset_in(o, o.encodings), {8, 8}},
      {"framerates", offset_in(o, o.framerates), {56, 32}},
      {"rateControls", offset_in(o, o.rateControls), {104, 56}},
      {"gopStructures", offset_in(o, o.gopStructures), {152, 80}},
      {"videoProfiles", offset_in(o, o.videoProfiles), {200, 104}},
      {"gopRange", offset_in(o, o.gopRange), {248, 128}},
      {"bitrateRange", offset_in(o, o.bitrateRange), {260, 140}},
      {"dscpRange", offset_in(o, o.dscpRange), {272, 152}},
      {"signing", offset_in(o, o.signing), {284, 164}},
      {"resolutions", offset_in(o, o.resolutions), {288, 168}},
  };
  for (const auto& f : fields) {
    SCOPED_TRACE(f.field);
    EXPECT_EQ(f.offset, f.expected.here());
  }
  EXPECT_EQ(sizeof o.reserved, 4u);
  EXPECT_EQ(sizeof o.hasSigning, 1u);
  EXPECT_EQ(sizeof o.signing, 1u);
  EXPECT_EQ(sizeof(EncoderOptions), k64 ? 336u : 192u);
  EXPECT_TRUE((std::is_same<decltype(o.encodings), std::set<EncodingType>>::value));
  EXPECT_TRUE((std::is_same<decltype(o.framerates),
                            std::set<unsigned int, std::greater<unsigned int>>>::value));
  EXPECT_TRUE((std::is_same<decltype(o.rateControls), std::set<int>>::value));
  EXPECT_TRUE((std::is_same<decltype(o.resolutions),
                            std::set<vantrel::ddk::internal::Resolution,
                                     std::greater<vantrel::ddk::internal::Resolution>>>::value));
}

// The filters are private: read the words behind the vtable pointer.
TEST(VideoOptionsQueryLayout, VptrThenThreeOwnedFiltersThenFlag) {
  using vantrel::ddk::internal::VideoOptionsQuery;
  constexpr std::size_t P = sizeof(void*);
  EXPECT_TRUE(std::is_polymorphic<VideoOptionsQuery>::value);
  EXPECT_EQ(sizeof(VideoOptionsQuery), 5 * P);
  VideoOptionsQuery q;
  q.setResolution(1, 2);
  q.setEncodingType(DDK_ENCODING_H265);
  q.setFramerate(25);
  const void* words[3];
  std::memcpy(words, reinterpret_cast<const char*>(&q) + P, sizeof words);
  EXPECT_EQ(words[0], q.resolution());
  EXPECT_EQ(words[1], q.encodingType());
  EXPECT_EQ(words[2], q.framerate());
  bool flag = false;
  std::memcpy(&flag, reinterpret_cast<const char*>(&q) + 4 * P, 1);
  EXPECT_TRUE(flag);
  EXPECT_EQ(testing_support::vtable_index(&VideoOptionsQuery::hasFilters), -1);
}

TEST(ProfileSummaryLayout, NameIdFlag) {
  using vantrel::ddk::internal::ProfileSummary;
  ProfileSummary p;
  EXPECT_EQ(offset_in(p, p.name), 0);
  EXPECT_EQ(offset_in(p, p.id), static_cast<std::ptrdiff_t>(sizeof(std::string)));
  EXPECT_EQ(offset_in(p, p.flag), static_cast<std::ptrdiff_t>(sizeof(std::string) + 4));
  EXPECT_EQ(sizeof p.id, 4u);
  EXPECT_TRUE(std::is_signed<decltype(p.id)>::value);
  EXPECT_EQ(sizeof p.flag, 1u);
  EXPECT_EQ(sizeof(ProfileSummary), k64 ? 40u : 32u);
  EXPECT_FALSE(std::is_polymorphic<ProfileSummary>::value);
}

TEST(AudioStreamConfigurationLayout, VptrThenSixFields) {
  using vantrel::AudioStreamConfiguration;
  constexpr std::ptrdiff_t P = sizeof(void*);
  EXPECT_TRUE(std::is_polymorphic<AudioStreamConfiguration>::value);
  AudioStreamConfiguration c;
  EXPECT_EQ(offset_in(c, c.format), P);
  EXPECT_EQ(offset_in(c, c.sampleSizeInBits), P + 4);
  EXPECT_EQ(offset_in(c, c.samplesPerSecond), P + 8);
  EXPECT_EQ(offset_in(c, c.framesPerKilosecond), P + 12);
  EXPECT_EQ(offset_in(c, c.bigEndian), P + 14);
  EXPECT_EQ(offset_in(c, c.vbr), P + 15);
  EXPECT_EQ(sizeof c.sampleSizeInBits, 2u);
  EXPECT_EQ(sizeof c.framesPerKilosecond, 2u);
  EXPECT_EQ(sizeof c.bigEndian, 1u);
  EXPECT_EQ(sizeof(AudioStreamConfiguration), k64 ? 24u : 20u);
}

TEST(AudioSourceLayout, FivePlainFields) {
  using vantrel::AudioSource;
  EXPECT_EQ(offsetof(AudioSource, type), 0u);
  EXPECT_EQ(offsetof(AudioSource, sampleSizeInBits), 4u);
  EXPECT_EQ(offsetof(AudioSource, samplesPerSecond), 8u);
  EXPECT_EQ(offsetof(AudioSource, channels), 12u);
  EXPECT_EQ(offsetof(AudioSource, level), 14u);
  EXPECT_EQ(sizeof(AudioSource), 16u);
  EXPECT_TRUE(std::is_trivial<AudioSource>::value);
  EXPECT_TRUE(std::is_standard_layout<AudioSource>::value);
}

}  // namespace
