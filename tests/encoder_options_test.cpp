// Encoder options: value checks, set orders and duplicates, ranges; the
// query's filters, copies and equality.
#include <gtest/gtest.h>

#include <set>
#include <utility>
#include <vector>

#include "vantrel/ddk.h"

using vantrel::ddk::internal::EncoderOptions;
using vantrel::ddk::internal::Resolution;
using vantrel::ddk::internal::VideoOptionsQuery;

namespace {

EncoderOptionsHandle* handle(EncoderOptions& o) { return reinterpret_cast<EncoderOptionsHandle*>(&o); }
VideoOptionsQueryHandle* handle(VideoOptionsQuery& q) {
  return reinterpret_cast<VideoOptionsQueryHandle*>(&q);
}
EncodingType enc(int value) { return static_cast<EncodingType>(value); }

std::vector<std::pair<unsigned, unsigned>> walk(const EncoderOptions& o) {
  std::vector<std::pair<unsigned, unsigned>> out;
  for (const Resolution& r : o.resolutions) out.emplace_back(r.width, r.height);
  return out;
}

TEST(EncoderOptions, NewRecordIsEmptyAndUnflagged) {
  EncoderOptions o;
  EXPECT_FALSE(o.hasGopRange || o.hasBitrateRange || o.hasDscpRange || o.hasSigning);
  EXPECT_TRUE(o.encodings.empty() && o.framerates.empty() && o.rateControls.empty() &&
              o.gopStructures.empty() && o.videoProfiles.empty() && o.resolutions.empty());
}

// Each adder: a refused value gives -2 before the handle is looked at.
TEST(EncoderOptions, ValueChecksComeBeforeTheHandle) {
  struct Case {
    const char* call;
    int (*fn)(EncoderOptionsHandle*, int);
    std::vector<int> refused;
    std::vector<int> accepted;
  } cases[] = {
      {"framerate", [](EncoderOptionsHandle* h, int v) {
         return ddk_add_framerate_to_encoder_options(h, static_cast<unsigned>(v));
       }, {0}, {1, 30, -1}},
      {"gop structure", &ddk_add_gop_structure_to_encoder_options, {3, 100}, {2, 0, -1, -2147483647 - 1}},
      {"rate control", &ddk_add_rate_control_to_encoder_options, {0}, {1, -1, 7}},
      {"profile", &ddk_add_video_profile_to_encoder_options, {6, 2147483647}, {5, 0, -3}},
      {"encoding", [](EncoderOptionsHandle* h, int v) {
         return ddk_add_encoding_to_encoder_options(h, enc(v));
       }, {0}, {1, 2, 3, -4}},
      {"resolution width", [](EncoderOptionsHandle* h, int v) {
         return ddk_add_resolution_to_encoder_options(h, static_cast<unsigned>(v), 480);
       }, {0}, {640}},
      {"resolution height", [](EncoderOptionsHandle* h, int v) {
         return ddk_add_resolution_to_encoder_options(h, 640, static_cast<unsigned>(v));
       }, {0}, {480}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.call);
    EncoderOptions o;
    for (int v : c.refused) {
      EXPECT_EQ(c.fn(nullptr, v), -2) << v;
      EXPECT_EQ(c.fn(handle(o), v), -2) << v;
    }
    EXPECT_TRUE(o.encodings.empty() && o.framerates.empty() && o.rateControls.empty() &&
                o.gopStructures.empty() && o.videoProfiles.empty() && o.resolutions.empty());
    for (int v : c.accepted) {
      EXPECT_EQ(c.fn(nullptr, v), -1) << v;
      EXPECT_EQ(c.fn(handle(o), v), 0) << v;
      EXPECT_EQ(c.fn(handle(o), v), 0) << v;  // already there: still success
    }
  }
}

TEST(EncoderOptions, SetsWalkInTheirOrderWithoutDuplicates) {
  EncoderOptions o;
  for (unsigned v : {15u, 30u, 25u, 30u}) EXPECT_EQ(ddk_add_framerate_to_encoder_options(handle(o), v), 0);
  EXPECT_EQ(std::vector<unsigned>(o.framerates.begin(), o.framerates.end()),
            (std::vector<unsigned>{30, 25, 15}));
  for (int v : {3, 1, 2, 1, -5}) EXPECT_EQ(ddk_add_encoding_to_encoder_options(handle(o), enc(v)), 0);
  EXPECT_EQ(std::vector<EncodingType>(o.encodings.begin(), o.encodings.end()),
            (std::vector<EncodingType>{enc(-5), enc(1), enc(2), enc(3)}));
  for (int v : {2, -1, 0, 2}) EXPECT_EQ(ddk_add_gop_structure_to_encoder_options(handle(o), v), 0);
  EXPECT_EQ(o.gopStructures, (std::set<int>{-1, 0, 2}));
  for (int v : {5, 1, -2, 1}) EXPECT_EQ(ddk_add_video_profile_to_encoder_options(handle(o), v), 0);
  EXPECT_EQ(o.videoProfiles, (std::set<int>{-2, 1, 5}));
  for (int v : {4, -7, 1, 4}) EXPECT_EQ(ddk_add_rate_control_to_encoder_options(handle(o), v), 0);
  EXPECT_EQ(o.rateControls, (std::set<int>{-7, 1, 4}));
}

TEST(EncoderOptions, ResolutionsByPixelCountLargestFirst) {
  EncoderOptions o;
  auto* h = handle(o);
  EXPECT_EQ(ddk_add_resolution_to_encoder_options(h, 640, 480), 0);
  EXPECT_EQ(ddk_add_resolution_to_encoder_options(h, 1920, 1080), 0);
  EXPECT_EQ(ddk_add_resolution_to_encoder_options(h, 320, 240), 0);
  EXPECT_EQ(walk(o), (std::vector<std::pair<unsigned, unsigned>>{{1920, 1080}, {640, 480}, {320, 240}}));
  // Same pixel count: the first one added stays.
  EXPECT_EQ(ddk_add_resolution_to_encoder_options(h, 480, 640), 0);
  EXPECT_EQ(ddk_add_resolution_to_encoder_options(h, 307200, 1), 0);
  EXPECT_EQ(ddk_add_resolution_to_encoder_options(h, 1280, 720), 0);
  EXPECT_EQ(walk(o), (std::vector<std::pair<unsigned, unsigned>>{
                         {1920, 1080}, {1280, 720}, {640, 480}, {320, 240}}));
}

TEST(EncoderOptions, PixelCountWrapsInThirtyTwoBits) {
  // 65536 x 65536 wraps to 0 pixels, 65536 x 65537 to 65536 (as 256 x 256).
  EXPECT_EQ(Resolution(65536, 65536).pixelCount(), 0u);
  EXPECT_EQ(Resolution(65536, 65537).pixelCount(), 65536u);
  EXPECT_TRUE(Resolution(1, 1) > Resolution(65536, 65536));
  EXPECT_FALSE(Resolution(256, 256) > Resolution(65536, 65537));
  EXPECT_FALSE(Resolution(65536, 65537) > Resolution(256, 256));
  EXPECT_FALSE(Resolution(640, 480) > Resolution(640, 480));
  EXPECT_FALSE(Resolution(640, 480) > Resolution(480, 640));
  EncoderOptions o;
  auto* h = handle(o);
  EXPECT_EQ(ddk_add_resolution_to_encoder_options(h, 65536, 65537), 0);
  EXPECT_EQ(ddk_add_resolution_to_encoder_options(h, 256, 256), 0);
  EXPECT_EQ(ddk_add_resolution_to_encoder_options(h, 65536, 65536), 0);
  EXPECT_EQ(ddk_add_resolution_to_encoder_options(h, 1, 1), 0);
  EXPECT_EQ(walk(o), (std::vector<std::pair<unsigned, unsigned>>{
                         {65536, 65537}, {1, 1}, {65536, 65536}}));
}

TEST(EncoderOptions, RangesAreNormalisedAndFlagged) {
  using Setter = int (*)(EncoderOptionsHandle*, unsigned, unsigned, unsigned);
  struct Case {
    const char* range;
    Setter fn;
    vantrel::ddk::internal::EncoderRange EncoderOptions::*field;
    bool EncoderOptions::*flag;
  } cases[] = {
      {"gop", &ddk_set_gop_range_on_encoder_options, &EncoderOptions::gopRange, &EncoderOptions::hasGopRange},
      {"bitrate", &ddk_set_bitrate_range_on_encoder_options, &EncoderOptions::bitrateRange,
       &EncoderOptions::hasBitrateRange},
      {"dscp", &ddk_set_dscp_range_on_encoder_options, &EncoderOptions::dscpRange,
       &EncoderOptions::hasDscpRange},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.range);
    EncoderOptions o;
    o.reserved = 0xA5A5A5A5u;
    EXPECT_EQ(c.fn(nullptr, 1, 2, 3), -1);
    EXPECT_EQ(c.fn(handle(o), 8000, 64, 2000), 0);
    EXPECT_TRUE(o.*c.flag);
    EXPECT_EQ((o.*c.field).low, 64u);
    EXPECT_EQ((o.*c.field).high, 8000u);
    EXPECT_EQ((o.*c.field).thirdValue, 2000u);
    // Unsigned comparison; the third value is not compared with the bounds.
    EXPECT_EQ(c.fn(handle(o), 0, 0xFFFFFFFFu, 0xFFFFFFFFu), 0);
    EXPECT_EQ((o.*c.field).low, 0u);
    EXPECT_EQ((o.*c.field).high, 0xFFFFFFFFu);
    EXPECT_EQ(c.fn(handle(o), 200, 0, 0), 0);
    EXPECT_EQ((o.*c.field).low, 0u);
    EXPECT_EQ((o.*c.field).high, 200u);
    EXPECT_EQ((o.*c.field).thirdValue, 0u);
    EXPECT_EQ(o.reserved, 0xA5A5A5A5u);
    EXPECT_EQ(o.hasGopRange + o.hasBitrateRange + o.hasDscpRange, 1);
  }
}

TEST(EncoderOptions, SigningByteIsStoredAsPassed) {
  EncoderOptions o;
  EXPECT_EQ(ddk_set_signing_on_encoder_options(nullptr, 1), -1);
  EXPECT_FALSE(o.hasSigning);
  EXPECT_EQ(ddk_set_signing_on_encoder_options(handle(o), 2), 0);
  EXPECT_TRUE(o.hasSigning);
  EXPECT_EQ(o.signing, 2);
  EXPECT_EQ(ddk_set_signing_on_encoder_options(handle(o), 0), 0);
  EXPECT_TRUE(o.hasSigning);
  EXPECT_EQ(o.signing, 0);
}

TEST(VideoOptionsQuery, GettersReportOnlyPresentFilters) {
  VideoOptionsQuery q;
  EncodingType e = enc(9);
  unsigned rate = 9, w = 9, h = 9;
  EXPECT_EQ(ddk_get_encoder_query_encoding(handle(q), &e), 0);
  EXPECT_EQ(ddk_get_encoder_query_framerate(handle(q), &rate), 0);
  EXPECT_EQ(ddk_get_encoder_query_video_resolution(handle(q), &w, &h), 0);
  q.setFramerate(25);
  EXPECT_EQ(ddk_get_encoder_query_framerate(handle(q), &rate), 1);
  EXPECT_EQ(rate, 25u);
  EXPECT_EQ(ddk_get_encoder_query_encoding(handle(q), &e), 0);
  EXPECT_EQ(e, enc(9));
  q.setEncodingType(DDK_ENCODING_H265);
  q.setResolution(640, 480);
  EXPECT_EQ(ddk_get_encoder_query_encoding(handle(q), &e), 1);
  EXPECT_EQ(e, DDK_ENCODING_H265);
  EXPECT_EQ(ddk_get_encoder_query_video_resolution(handle(q), &w, &h), 1);
  EXPECT_EQ(w, 640u);
  EXPECT_EQ(h, 480u);
  EXPECT_EQ(ddk_get_encoder_query_video_resolution(nullptr, &w, &h), -1);
  EXPECT_EQ(ddk_get_encoder_query_encoding(nullptr, &e), -1);
  EXPECT_EQ(ddk_get_encoder_query_framerate(nullptr, &rate), -1);
}

TEST(VideoOptionsQuery, SettersAllocateOnceAndOverwriteInPlace) {
  VideoOptionsQuery q;
  EXPECT_FALSE(q.hasFilters());
  EXPECT_EQ(q.resolution(), nullptr);
  EXPECT_EQ(q.encodingType(), nullptr);
  EXPECT_EQ(q.framerate(), nullptr);
  q.setFramerate(0);  // 0 is a filter value like any other
  EXPECT_TRUE(q.hasFilters());
  const unsigned* rate = q.framerate();
  ASSERT_NE(rate, nullptr);
  EXPECT_EQ(*rate, 0u);
  q.setFramerate(30);
  EXPECT_EQ(q.framerate(), rate);
  EXPECT_EQ(*rate, 30u);
}

TEST(VideoOptionsQuery, CopiesAreIndependent) {
  VideoOptionsQuery q;
  q.setResolution(640, 480);
  q.setEncodingType(DDK_ENCODING_H264);
  q.setFramerate(25);
  VideoOptionsQuery copy(q);
  EXPECT_TRUE(copy == q);
  EXPECT_TRUE(copy.hasFilters());
  EXPECT_NE(copy.resolution(), q.resolution());
  EXPECT_NE(copy.encodingType(), q.encodingType());
  EXPECT_NE(copy.framerate(), q.framerate());
  copy.setFramerate(30);
  copy.setResolution(1, 2);
  EXPECT_EQ(*q.framerate(), 25u);
  EXPECT_EQ(q.resolution()->width, 640u);
  EXPECT_FALSE(copy == q);

  // Assignment keeps existing values in place and drops filters the source lacks.
  VideoOptionsQuery only;
  only.setEncodingType(enc(3));
  const unsigned* ownRate = copy.framerate();
  copy = q;
  EXPECT_EQ(copy.framerate(), ownRate);
  EXPECT_EQ(*copy.framerate(), 25u);
  copy = only;
  EXPECT_EQ(copy.framerate(), nullptr);
  EXPECT_EQ(copy.resolution(), nullptr);
  ASSERT_NE(copy.encodingType(), nullptr);
  EXPECT_EQ(*copy.encodingType(), enc(3));
  copy = copy;
  EXPECT_EQ(*copy.encodingType(), enc(3));
  // Assigned a query without filters, it reads as having none.
  copy = VideoOptionsQuery();
  EXPECT_EQ(copy.encodingType(), nullptr);
  EXPECT_FALSE(copy.hasFilters());
  EXPECT_TRUE(copy == VideoOptionsQuery());
  EXPECT_FALSE(VideoOptionsQuery(VideoOptionsQuery()).hasFilters());
}

TEST(VideoOptionsQuery, EqualityRules) {
  VideoOptionsQuery none1, none2;
  EXPECT_TRUE(none1 == none2);
  VideoOptionsQuery rate30, encoding1;
  rate30.setFramerate(30);
  encoding1.setEncodingType(DDK_ENCODING_H264);
  EXPECT_FALSE(none1 == rate30);
  EXPECT_FALSE(rate30 == none1);
  EXPECT_NE(none1, rate30);  // != is the negation of ==
  EXPECT_FALSE(none1 != none2);
  // A filter that only one side has does not make them differ.
  EXPECT_TRUE(rate30 == encoding1);
  EXPECT_TRUE(rate30 == rate30);
  VideoOptionsQuery rate25;
  rate25.setFramerate(25);
  EXPECT_FALSE(rate30 == rate25);
  // Resolutions compare by width and height, not by pixel count.
  VideoOptionsQuery landscape, portrait, landscape2;
  landscape.setResolution(640, 480);
  portrait.setResolution(480, 640);
  landscape2.setResolution(640, 480);
  EXPECT_FALSE(landscape == portrait);
  EXPECT_TRUE(landscape == landscape2);
  // The height counts on its own: same width, other height.
  VideoOptionsQuery lower;
  lower.setResolution(640, 360);
  EXPECT_FALSE(landscape == lower);
  EXPECT_FALSE(lower == landscape);
  landscape2.setEncodingType(DDK_ENCODING_H265);
  landscape.setEncodingType(DDK_ENCODING_H264);
  EXPECT_FALSE(landscape == landscape2);
  landscape.setEncodingType(DDK_ENCODING_H265);
  EXPECT_TRUE(landscape == landscape2);
}

}  // namespace
