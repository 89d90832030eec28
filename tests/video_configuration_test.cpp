// Fields of one video stream configuration through its handle.
#include <gtest/gtest.h>

#include <string>

#include "vantrel/ddk.h"

using vantrel::ddk::internal::VideoStreamConfiguration;

namespace {

VideoStreamConfigurationHandle* handle(VideoStreamConfiguration& c) {
  return reinterpret_cast<VideoStreamConfigurationHandle*>(&c);
}
const EncodingType kOther = static_cast<EncodingType>(3);

TEST(VideoConfiguration, ConstructorsGiveTheDefaults) {
  for (const VideoStreamConfiguration& c :
       {VideoStreamConfiguration(), VideoStreamConfiguration("main")}) {
    EXPECT_EQ(c.timeout, 900u);
    EXPECT_EQ(c.dscp, 34u);
    EXPECT_EQ(c.mtu, 0u);
    EXPECT_EQ(c.encoding, DDK_ENCODING_NONE);
    EXPECT_EQ(c.bitrate + c.multicastPort + c.multicastTtl + c.width + c.height + c.framerate +
                  c.gop,
              0u);
    EXPECT_EQ(c.gopStructure | c.profile | c.imageProcessing | c.rateControl | c.reserved, 0);
    EXPECT_FALSE(c.multicastFlag);
    EXPECT_FALSE(c.signing);
    EXPECT_TRUE(c.descriptiveName.empty());
    EXPECT_TRUE(c.multicastAddress.empty());
  }
  EXPECT_EQ(VideoStreamConfiguration().streamToken, "");
  EXPECT_EQ(VideoStreamConfiguration("main").streamToken, "main");
}

TEST(VideoConfiguration, NewRecordReadsThroughTheGetters) {
  VideoStreamConfiguration c("main");
  auto* h = handle(c);
  EXPECT_STREQ(ddk_video_get_stream_token(h), "main");
  EXPECT_EQ(ddk_video_get_timeout(h), 900u);
  EXPECT_EQ(ddk_video_get_mtu(h), 0u);
  unsigned char dscp = 0;
  EXPECT_EQ(ddk_video_get_dscp(h, &dscp), 0);
  EXPECT_EQ(dscp, 34);
  unsigned int u = 77, w = 77, hgt = 77;
  EXPECT_EQ(ddk_video_get_framerate(h, &u), -2);
  EXPECT_EQ(u, 77u);
  EXPECT_EQ(ddk_video_get_resolution(h, &w, &hgt), -2);
  EXPECT_EQ(w, 77u);
  EXPECT_EQ(hgt, 77u);
  EncodingType e = kOther;
  EXPECT_EQ(ddk_video_get_encoding(h, &e), -2);
  EXPECT_EQ(e, DDK_ENCODING_NONE);
  int code = 9;
  EXPECT_EQ(ddk_video_get_rate_control(h, &code), 0);
  EXPECT_EQ(code, 0);
  code = 9;
  EXPECT_EQ(ddk_video_get_profile(h, &code), -2);
  EXPECT_EQ(code, 0);
  EXPECT_EQ(ddk_video_get_multicast(h, &u, nullptr, nullptr), nullptr);
  ddk_bool signing = 5;
  EXPECT_EQ(ddk_video_get_signing(h, &signing), 0);
  EXPECT_EQ(signing, 0);
  EXPECT_EQ(ddk_video_get_bitrate(h), 0);
  StringHandle* name = ddk_video_get_descriptive_name(h);
  ASSERT_NE(name, nullptr);
  EXPECT_STREQ(ddk_string_to_cstr(name), "");
}

TEST(VideoConfiguration, NullHandleGivesEachFunctionsFailureValue) {
  int code = 7;
  unsigned int u = 7;
  unsigned char byte = 7;
  ddk_bool flag = 7;
  EncodingType e = kOther;
  EXPECT_EQ(ddk_video_get_rate_control(nullptr, &code), -1);
  EXPECT_EQ(ddk_video_set_rate_control(nullptr, 1), -1);
  EXPECT_EQ(ddk_video_get_dscp(nullptr, &byte), -1);
  EXPECT_EQ(ddk_video_set_dscp(nullptr, 10), -1);
  EXPECT_EQ(ddk_video_set_signing_disabled(nullptr), -1);
  EXPECT_EQ(ddk_video_set_signing_enabled(nullptr), -1);
  EXPECT_EQ(ddk_video_get_image_processing(nullptr, &code), -1);
  EXPECT_EQ(ddk_video_set_image_processing(nullptr, 1), -1);
  EXPECT_EQ(ddk_video_get_profile(nullptr, &code), -1);
  EXPECT_EQ(ddk_video_set_profile(nullptr, 1), -1);
  EXPECT_EQ(ddk_video_get_gop_structure(nullptr, &code), -1);
  EXPECT_EQ(ddk_video_set_gop_structure(nullptr, 1), -1);
  EXPECT_EQ(ddk_video_get_gop(nullptr, &u), -1);
  EXPECT_EQ(ddk_video_set_gop(nullptr, 1), -1);
  EXPECT_EQ(ddk_video_get_framerate(nullptr, &u), -1);
  EXPECT_EQ(ddk_video_set_framerate(nullptr, 1), -1);
  EXPECT_EQ(ddk_video_get_resolution(nullptr, &u, &u), -1);
  EXPECT_EQ(ddk_video_set_resolution(nullptr, 1, 1), -1);
  EXPECT_EQ(ddk_video_get_encoding(nullptr, &e), -1);
  EXPECT_EQ(ddk_video_set_encoding(nullptr, DDK_ENCODING_H264), -1);
  EXPECT_EQ(ddk_video_get_descriptive_name(nullptr), nullptr);
  EXPECT_EQ(ddk_video_get_timeout(nullptr), 900u);
  EXPECT_EQ(ddk_video_get_mtu(nullptr), 1500u);
  EXPECT_EQ(ddk_video_get_multicast(nullptr, &u, &byte, &flag), nullptr);
  EXPECT_EQ(ddk_video_get_bitrate(nullptr), -1);
  EXPECT_EQ(ddk_video_set_bitrate(nullptr, 1), -1);
  EXPECT_EQ(ddk_video_get_stream_token(nullptr), nullptr);
  EXPECT_EQ(ddk_video_set_stream_token(nullptr, "x", 1), -1);
  EXPECT_EQ(ddk_video_get_signing(nullptr, &flag), -1);
  EXPECT_EQ(ddk_video_set_multicast(nullptr, "a", 1, 1, 1, 1), -1);
  ddk_video_set_timeout(nullptr, 5);
  ddk_video_set_mtu(nullptr, 5);
  ddk_video_set_descriptive_name(nullptr, "x", 1);
  // Nothing was written through any out-parameter.
  EXPECT_EQ(code, 7);
  EXPECT_EQ(u, 7u);
  EXPECT_EQ(byte, 7);
  EXPECT_EQ(flag, 7);
  EXPECT_EQ(e, kOther);
}

// Calls wrong both ways: the value test comes first where marked so.
TEST(VideoConfiguration, ValueFirstAndHandleFirstOrders) {
  struct Case {
    const char* call;
    int nullHandleBadValue;
    int nullHandleGoodValue;
    int badValue;
    int (*fn)(VideoStreamConfigurationHandle*, bool bad);
  } cases[] = {
      {"set_dscp", -2, -1, -2,
       [](VideoStreamConfigurationHandle* h, bool bad) {
         return ddk_video_set_dscp(h, bad ? 64 : 63);
       }},
      {"set_resolution width", -2, -1, -2,
       [](VideoStreamConfigurationHandle* h, bool bad) {
         return ddk_video_set_resolution(h, bad ? 0 : 640, 480);
       }},
      {"set_resolution height", -2, -1, -2,
       [](VideoStreamConfigurationHandle* h, bool bad) {
         return ddk_video_set_resolution(h, 640, bad ? 0 : 480);
       }},
      {"set_encoding", -2, -1, -2,
       [](VideoStreamConfigurationHandle* h, bool bad) {
         return ddk_video_set_encoding(h, bad ? DDK_ENCODING_NONE : kOther);
       }},
      {"set_stream_token null text", -2, -1, -2,
       [](VideoStreamConfigurationHandle* h, bool bad) {
         return ddk_video_set_stream_token(h, bad ? nullptr : "cam", 3);
       }},
      {"set_stream_token zero length", -2, -1, -2,
       [](VideoStreamConfigurationHandle* h, bool bad) {
         return ddk_video_set_stream_token(h, "cam", bad ? 0 : 3);
       }},
      {"set_gop", -1, -1, -2,
       [](VideoStreamConfigurationHandle* h, bool bad) {
         return ddk_video_set_gop(h, bad ? 0 : 30);
       }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.call);
    EXPECT_EQ(c.fn(nullptr, true), c.nullHandleBadValue);
    EXPECT_EQ(c.fn(nullptr, false), c.nullHandleGoodValue);
    VideoStreamConfiguration record("keep");
    const VideoStreamConfiguration before = record;
    EXPECT_EQ(c.fn(handle(record), true), c.badValue);
    // A refused call changes nothing.
    EXPECT_EQ(record.dscp, before.dscp);
    EXPECT_EQ(record.width, before.width);
    EXPECT_EQ(record.height, before.height);
    EXPECT_EQ(record.encoding, before.encoding);
    EXPECT_EQ(record.streamToken, before.streamToken);
    EXPECT_EQ(record.gop, before.gop);
    EXPECT_EQ(c.fn(handle(record), false), 0);
  }
}

TEST(VideoConfiguration, DscpBoundary) {
  VideoStreamConfiguration c;
  unsigned char dscp = 0;
  for (unsigned value : {0u, 1u, 63u}) {
    EXPECT_EQ(ddk_video_set_dscp(handle(c), static_cast<unsigned char>(value)), 0);
    EXPECT_EQ(ddk_video_get_dscp(handle(c), &dscp), 0);
    EXPECT_EQ(dscp, value);
  }
  for (unsigned value : {64u, 128u, 255u}) {
    EXPECT_EQ(ddk_video_set_dscp(handle(c), static_cast<unsigned char>(value)), -2);
    EXPECT_EQ(c.dscp, 63);
  }
}

// The getters of GOP, GOP structure and rate control read 0 with success
// outside encodings 1 and 2; the profile reads 0 with -2.
TEST(VideoConfiguration, EncodingGateOnTheGetters) {
  VideoStreamConfiguration c;
  auto* h = handle(c);
  EXPECT_EQ(ddk_video_set_gop(h, 30), 0);
  EXPECT_EQ(ddk_video_set_gop_structure(h, 2), 0);
  EXPECT_EQ(ddk_video_set_rate_control(h, 4), 0);
  EXPECT_EQ(c.gop, 30u);
  EXPECT_EQ(c.gopStructure, 2);
  EXPECT_EQ(c.rateControl, 4);
  c.profile = 5;  // stored while the gate was open, as a host might have done
  const struct {
    EncodingType encoding;
    bool open;
  } encodings[] = {{DDK_ENCODING_NONE, false}, {kOther, false}, {static_cast<EncodingType>(-1), false},
                   {DDK_ENCODING_H264, true},  {DDK_ENCODING_H265, true}};
  for (const auto& enc : encodings) {
    SCOPED_TRACE(static_cast<int>(enc.encoding));
    c.encoding = enc.encoding;
    unsigned int gop = 99;
    int structure = 99, rate = 99, profile = 99;
    EXPECT_EQ(ddk_video_get_gop(h, &gop), 0);
    EXPECT_EQ(ddk_video_get_gop_structure(h, &structure), 0);
    EXPECT_EQ(ddk_video_get_rate_control(h, &rate), 0);
    EXPECT_EQ(ddk_video_get_profile(h, &profile), enc.open ? 0 : -2);
    EXPECT_EQ(gop, enc.open ? 30u : 0u);
    EXPECT_EQ(structure, enc.open ? 2 : 0);
    EXPECT_EQ(rate, enc.open ? 4 : 0);
    EXPECT_EQ(profile, enc.open ? 5 : 0);
  }
}

TEST(VideoConfiguration, EncodingGateBeforeAndAfterChangingTheEncoding) {
  VideoStreamConfiguration c;
  auto* h = handle(c);
  ASSERT_EQ(ddk_video_set_encoding(h, kOther), 0);
  ASSERT_EQ(ddk_video_set_gop(h, 30), 0);
  unsigned int gop = 99;
  EXPECT_EQ(ddk_video_get_gop(h, &gop), 0);
  EXPECT_EQ(gop, 0u);
  EXPECT_EQ(ddk_video_set_encoding(h, DDK_ENCODING_H265), 0);
  EXPECT_EQ(ddk_video_get_gop(h, &gop), 0);
  EXPECT_EQ(gop, 30u);

  // The profile setter is the only setter that looks at the encoding.
  ASSERT_EQ(ddk_video_set_encoding(h, kOther), 0);
  EXPECT_EQ(ddk_video_set_profile(h, 4), 0);
  EXPECT_EQ(c.profile, 0);
  int profile = 99;
  EXPECT_EQ(ddk_video_get_profile(h, &profile), -2);
  EXPECT_EQ(profile, 0);
  ASSERT_EQ(ddk_video_set_encoding(h, DDK_ENCODING_H264), 0);
  EXPECT_EQ(ddk_video_get_profile(h, &profile), 0);
  EXPECT_EQ(profile, 0);  // changing the encoding later does not bring it back
  EXPECT_EQ(ddk_video_set_profile(h, 4), 0);
  EXPECT_EQ(ddk_video_get_profile(h, &profile), 0);
  EXPECT_EQ(profile, 4);
  // Going back to another encoding keeps the stored profile but hides it.
  ASSERT_EQ(ddk_video_set_encoding(h, kOther), 0);
  EXPECT_EQ(c.profile, 4);
  EXPECT_EQ(ddk_video_set_profile(h, 3), 0);
  EXPECT_EQ(c.profile, 0);
}

TEST(VideoConfiguration, ReplacementValuesForTimeoutAndMtu) {
  VideoStreamConfiguration c;
  auto* h = handle(c);
  ddk_video_set_timeout(h, 30);
  EXPECT_EQ(ddk_video_get_timeout(h), 30u);
  ddk_video_set_timeout(h, 0);
  EXPECT_EQ(ddk_video_get_timeout(h), 900u);
  ddk_video_set_mtu(h, 1400);
  EXPECT_EQ(ddk_video_get_mtu(h), 1400u);
  ddk_video_set_mtu(h, 0);
  EXPECT_EQ(ddk_video_get_mtu(h), 1500u);
  EXPECT_EQ(c.mtu, 1500u);
}

TEST(VideoConfiguration, FramerateResolutionAndEncodingRoundTrip) {
  VideoStreamConfiguration c;
  auto* h = handle(c);
  unsigned int rate = 0, w = 5, hgt = 5;
  EXPECT_EQ(ddk_video_set_framerate(h, 25), 0);
  EXPECT_EQ(ddk_video_get_framerate(h, &rate), 0);
  EXPECT_EQ(rate, 25u);
  EXPECT_EQ(ddk_video_set_framerate(h, 0), 0);  // 0 is stored, then reads as unset
  EXPECT_EQ(ddk_video_get_framerate(h, &rate), -2);

  EXPECT_EQ(ddk_video_set_resolution(h, 1920, 1080), 0);
  EXPECT_EQ(ddk_video_get_resolution(h, nullptr, &hgt), 0);
  EXPECT_EQ(hgt, 1080u);
  EXPECT_EQ(ddk_video_get_resolution(h, &w, nullptr), 0);
  EXPECT_EQ(w, 1920u);
  c.height = 0;  // either dimension unset makes the resolution unset
  w = hgt = 5;
  EXPECT_EQ(ddk_video_get_resolution(h, &w, &hgt), -2);
  EXPECT_EQ(w + hgt, 10u);

  EncodingType e = DDK_ENCODING_NONE;
  EXPECT_EQ(ddk_video_set_encoding(h, static_cast<EncodingType>(-7)), 0);
  EXPECT_EQ(ddk_video_get_encoding(h, &e), 0);
  EXPECT_EQ(e, -7);
}

TEST(VideoConfiguration, PlainFieldsAreStoredAsGiven) {
  VideoStreamConfiguration c;
  auto* h = handle(c);
  EXPECT_EQ(ddk_video_set_bitrate(h, 0x80000001u), 0);
  EXPECT_EQ(ddk_video_get_bitrate(h), static_cast<int>(0x80000001u));
  EXPECT_EQ(ddk_video_set_bitrate(h, 0), 0);
  EXPECT_EQ(ddk_video_get_bitrate(h), 0);
  int code = 0;
  EXPECT_EQ(ddk_video_set_image_processing(h, -3), 0);
  EXPECT_EQ(ddk_video_get_image_processing(h, &code), 0);
  EXPECT_EQ(code, -3);
  ddk_bool signing = 9;
  EXPECT_EQ(ddk_video_set_signing_enabled(h), 0);
  EXPECT_EQ(ddk_video_get_signing(h, &signing), 0);
  EXPECT_EQ(signing, 1);
  EXPECT_EQ(ddk_video_set_signing_disabled(h), 0);
  EXPECT_EQ(ddk_video_get_signing(h, &signing), 0);
  EXPECT_EQ(signing, 0);
  EXPECT_EQ(c.reserved, 0);
}

TEST(VideoConfiguration, TokenAndDescriptiveNameTakeExactlyLengthBytes) {
  VideoStreamConfiguration c("main");
  auto* h = handle(c);
  EXPECT_EQ(ddk_video_set_stream_token(h, "cam1xyz", 4), 0);
  EXPECT_STREQ(ddk_video_get_stream_token(h), "cam1");
  EXPECT_EQ(ddk_video_set_stream_token(h, "a\0b", 3), 0);
  EXPECT_EQ(c.streamToken, std::string("a\0b", 3));
  EXPECT_EQ(ddk_video_get_stream_token(h), c.streamToken.c_str());

  ddk_video_set_descriptive_name(h, "Front door camera", 10);
  EXPECT_EQ(c.descriptiveName, "Front door");
  StringHandle* name = ddk_video_get_descriptive_name(h);
  EXPECT_EQ(reinterpret_cast<std::string*>(name), &c.descriptiveName);
  ddk_video_set_descriptive_name(h, nullptr, 5);
  EXPECT_EQ(c.descriptiveName, "");
  ddk_video_set_descriptive_name(h, "x", 1);
  ddk_video_set_descriptive_name(h, "y", 0);
  EXPECT_EQ(c.descriptiveName, "");
}

TEST(VideoConfiguration, MulticastSetAndClear) {
  VideoStreamConfiguration c;
  auto* h = handle(c);
  EXPECT_EQ(ddk_video_set_multicast(h, "239.1.1.1xx", 9, 5004, 16, 1), 0);
  unsigned int port = 0;
  unsigned char ttl = 0;
  ddk_bool flag = 0;
  StringHandle* address = ddk_video_get_multicast(h, &port, &ttl, &flag);
  ASSERT_NE(address, nullptr);
  EXPECT_EQ(reinterpret_cast<std::string*>(address), &c.multicastAddress);
  EXPECT_STREQ(ddk_string_to_cstr(address), "239.1.1.1");
  EXPECT_EQ(port, 5004u);
  EXPECT_EQ(ttl, 16);
  EXPECT_EQ(flag, 1);
  // Only the non-null out-parameters are written.
  port = 0;
  EXPECT_NE(ddk_video_get_multicast(h, &port, nullptr, nullptr), nullptr);
  EXPECT_EQ(port, 5004u);

  // The flag is normalised to a bool; TTL and port are stored as given.
  EXPECT_EQ(ddk_video_set_multicast(h, "ff02::1", 7, 0, 255, 200), 0);
  EXPECT_TRUE(c.multicastFlag);
  EXPECT_EQ(ddk_video_get_multicast(h, &port, &ttl, &flag), address);
  EXPECT_EQ(flag, 1);
  EXPECT_EQ(ttl, 255);
  EXPECT_EQ(ddk_video_set_multicast(h, "239.1.1.1", 9, 5004, 16, 1), 0);

  // A null address clears the address only.
  EXPECT_EQ(ddk_video_set_multicast(h, nullptr, 0, 0, 0, 0), 0);
  port = 1;
  EXPECT_EQ(ddk_video_get_multicast(h, &port, &ttl, &flag), nullptr);
  EXPECT_EQ(port, 1u);
  EXPECT_EQ(c.multicastPort, 5004u);
  EXPECT_EQ(c.multicastTtl, 16);
  EXPECT_TRUE(c.multicastFlag);

  // A zero length with an address stores an empty address but the other values.
  EXPECT_EQ(ddk_video_set_multicast(h, "1.2.3.4", 0, 7, 8, 0), 0);
  EXPECT_EQ(ddk_video_get_multicast(h, &port, &ttl, &flag), nullptr);
  EXPECT_EQ(c.multicastPort, 7u);
  EXPECT_FALSE(c.multicastFlag);
}

TEST(VideoConfiguration, FromHandleIsTheLibrarysConversion) {
  VideoStreamConfiguration c;
  EXPECT_EQ(&vantrel::from_handle<VideoStreamConfiguration>(handle(c)), &c);
  try {
    vantrel::from_handle<VideoStreamConfiguration>(static_cast<VideoStreamConfigurationHandle*>(nullptr));
    FAIL() << "no exception";
  } catch (const vantrel::InvalidHandleException& e) {
    EXPECT_STREQ(e.what(), "DDK Handle is NULL, unable to cast");
  }
}

}  // namespace
