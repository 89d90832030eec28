// Media sessions: appending, the ten setters, and the media type check that
// the stream connection setter shares.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "vantrel/ddk.h"

using vantrel::MediaSession;
using StreamConnectionInfo = vantrel::ddk::internal::StreamConnectionInfo;

namespace {

MediaSessionHandle* handle(MediaSession& s) { return reinterpret_cast<MediaSessionHandle*>(&s); }
MediaSessionCollectionHandle* handle(std::vector<MediaSession>& v) {
  return reinterpret_cast<MediaSessionCollectionHandle*>(&v);
}

auto fields(const MediaSession& s) {
  return std::tie(s.uri, s.mime, s.transmissionMode, s.streamToken, s.streamType,
                  s.destinationIp, s.id, s.timeout, s.streamState, s.destinationPort);
}

// A session whose every field differs from the defaults.
MediaSession filled() {
  return {"rtsp://cam/1", "video/H264", 1, "main", 2, "192.0.2.1", "session-7", 60, 4, 554};
}

TEST(MediaSessionCollection, AppendsDefaultElements) {
  std::vector<MediaSession> sessions;
  MediaSessionHandle* first = ddk_add_media_session_to_collection(handle(sessions));
  ASSERT_EQ(sessions.size(), 1u);
  EXPECT_EQ(first, handle(sessions[0]));
  EXPECT_EQ(ddk_set_media_session_transmission_mode(first, 9), 0);
  MediaSessionHandle* second = ddk_add_media_session_to_collection(handle(sessions));
  ASSERT_EQ(sessions.size(), 2u);
  EXPECT_EQ(second, handle(sessions[1]));
  EXPECT_EQ(sessions[0].transmissionMode, 9);
  const MediaSession& s = sessions[1];
  EXPECT_EQ(fields(s), std::make_tuple("", "", 3, "unknownStream", 0, "", "", 0, 0, 0));
  EXPECT_EQ(ddk_add_media_session_to_collection(nullptr), nullptr);
}

using TextSetter = int (*)(MediaSessionHandle*, const char*, const uint16_t*);
struct TextField {
  const char* name;
  TextSetter set;
  std::string MediaSession::*field;
  const char* sample;  // a text the setter stores
  bool zeroCountRefused;
};
const TextField kTextFields[] = {
    {"uri", ddk_set_media_session_uri, &MediaSession::uri, "rtsp://h/x", false},
    {"mime", ddk_set_media_session_mime, &MediaSession::mime, "audio/PCMU", false},
    {"streamToken", ddk_set_media_session_stream_token, &MediaSession::streamToken, "tok", false},
    {"destinationIp", ddk_set_media_session_destination_ip, &MediaSession::destinationIp, "::1", false},
    {"id", ddk_set_media_session_id, &MediaSession::id, "id-1", true},
};

TEST(MediaSessionText, StoresExactlyTheCountedBytes) {
  for (const auto& f : kTextFields) {
    MediaSession s = filled();
    const std::string text = std::string(f.sample) + "tail/x y";
    const uint16_t n = static_cast<uint16_t>(std::string(f.sample).size());
    EXPECT_EQ(f.set(handle(s), text.c_str(), &n), 0) << f.name;
    EXPECT_EQ(s.*f.field, f.sample) << f.name;
  }
  MediaSession s;
  const uint16_t four = 4, longest = 65535;
  EXPECT_EQ(ddk_set_media_session_uri(handle(s), "abcdefgh", &four), 0);
  EXPECT_EQ(s.uri, "abcd");
  const std::string text(longest, 'u');
  EXPECT_EQ(ddk_set_media_session_id(handle(s), text.c_str(), &longest), 0);
  EXPECT_EQ(s.id, text);
}

TEST(MediaSessionText, ZeroCountEmptiesAllButTheId) {
  for (const auto& f : kTextFields) {
    MediaSession s = filled();
    const MediaSession before = s;
    const uint16_t zero = 0;
    if (f.zeroCountRefused) {
      EXPECT_EQ(f.set(handle(s), "x", &zero), -1) << f.name;
      EXPECT_EQ(fields(s), fields(before)) << f.name;
    } else {
      EXPECT_EQ(f.set(handle(s), "x", &zero), 0) << f.name;
      EXPECT_EQ(s.*f.field, "") << f.name;
      (s.*f.field) = before.*f.field;
      EXPECT_EQ(fields(s), fields(before)) << f.name << ": another field changed";
    }
  }
}

TEST(MediaSessionText, RefusedCallsAnswerMinusOneAndChangeNothing) {
  const char withNul[] = "ab\0cd";
  struct Case {
    const char* what;
    bool nullSession;
    const char* text;
    uint16_t count;
    bool nullCount;
  } cases[] = {
      {"null text", false, nullptr, 3, false},
      {"null text, count 0", false, nullptr, 0, false},
      {"null session", true, "video/H264", 10, false},
      {"null session and text", true, nullptr, 0, false},
      {"null count pointer", false, "video/H264", 0, true},
      {"count past the text", false, "abc", 4, false},
      {"count far past the text", false, "", 65535, false},
      {"NUL inside the count", false, withNul, 5, false},
      {"NUL as first counted byte", false, withNul + 2, 1, false},
      // Wrong two ways: the session, and the NUL, are tested before the media type.
      {"null session, bad media type", true, "video", 5, false},
      {"NUL inside a bad media type", false, "vi\0deo", 6, false},
  };
  for (const auto& f : kTextFields) {
    for (const auto& c : cases) {
      MediaSession s = filled();
      EXPECT_EQ(f.set(c.nullSession ? nullptr : handle(s), c.text, c.nullCount ? nullptr : &c.count), -1)
          << f.name << ": " << c.what;
      EXPECT_EQ(fields(s), fields(filled())) << f.name << ": " << c.what;
    }
  }
  // Bytes before a NUL stay acceptable when the count stops short of it.
  MediaSession s;
  const uint16_t two = 2;
  EXPECT_EQ(ddk_set_media_session_id(handle(s), withNul, &two), 0);
  EXPECT_EQ(s.id, "ab");
}

template <class T>
struct NumberField {
  const char* name;
  int (*set)(MediaSessionHandle*, const T*);
  T MediaSession::*field;
};

template <class T>
void expect_stores_extremes(const NumberField<T>& f, const std::vector<T>& values) {
  for (T value : values) {
    MediaSession s = filled();
    EXPECT_EQ(f.set(handle(s), &value), 0) << f.name;
    EXPECT_EQ(s.*f.field, value) << f.name;
    s.*f.field = filled().*f.field;
    EXPECT_EQ(fields(s), fields(filled())) << f.name << ": another field changed";
  }
  MediaSession s = filled();
  const T value = values.front();
  EXPECT_EQ(f.set(nullptr, &value), -1) << f.name;
  EXPECT_EQ(f.set(handle(s), nullptr), -1) << f.name;
  EXPECT_EQ(fields(s), fields(filled())) << f.name;
}

TEST(MediaSessionNumbers, StoreEveryValueBitForBit) {
  const std::vector<uint16_t> u16 = {0, 1, 0x8000, 65535};
  const std::vector<int32_t> i32 = {0, -1, INT32_MIN, INT32_MAX, static_cast<int32_t>(0xFFFFFFFFu)};
  expect_stores_extremes<uint16_t>({"timeout", ddk_set_media_session_timeout, &MediaSession::timeout}, u16);
  expect_stores_extremes<uint16_t>(
      {"destinationPort", ddk_set_media_session_destination_port, &MediaSession::destinationPort}, u16);
  expect_stores_extremes<int32_t>({"streamType", ddk_set_media_session_stream_type, &MediaSession::streamType}, i32);
  expect_stores_extremes<int32_t>(
      {"streamState", ddk_set_media_session_stream_state, &MediaSession::streamState}, i32);
  for (int32_t value : i32) {
    MediaSession s;
    EXPECT_EQ(ddk_set_media_session_transmission_mode(handle(s), value), 0);
    EXPECT_EQ(s.transmissionMode, value);
  }
  EXPECT_EQ(ddk_set_media_session_transmission_mode(nullptr, 1), -1);
}

// The byte classes a media type refuses, listed from the token rule.
bool refused_byte(int b) {
  return b < 0x20 || b == 0x7F || std::string(" \"()<>@,;:\\/[]?={}").find(static_cast<char>(b)) != std::string::npos;
}

TEST(MediaType, EveryByteInEveryPositionOfTypeAndSubtype) {
  int refused = 0;
  for (int b = 0; b < 256; ++b) {
    const std::string c(1, static_cast<char>(b));
    refused += refused_byte(b);
    for (const std::string& text : {c + "ype/sub", "ty" + c + "pe/sub", "type" + c + "/sub", "type/" + c + "ub",
                                    "type/s" + c + "b", "type/sub" + c, c + "/" + c}) {
      EXPECT_EQ(vantrel::is_valid_mime_type(text), !refused_byte(b)) << "byte " << b;
    }
  }
  EXPECT_EQ(refused, 32 + 1 + 1 + 1 + 16);  // controls, DEL, space, quote, separators
}

struct MediaTypeCase {
  std::string text;
  bool valid;
};
const MediaTypeCase kMediaTypes[] = {
    {"video/H264", true},
    {"application/x-custom.type+xml", true},
    {"a/b", true},
    {"VIDEO/h264", true},
    {"x/!#$%&'*+-.^_`|~09", true},
    {"video/H\x80\xFF", true},
    {"\xC3\xA9/\xC3\xA9", true},
    {"", false},
    {"/", false},
    {"video", false},
    {"video/", false},
    {"/H264", false},
    {"//", false},
    {"video//H264", false},
    {"video/H264/x", false},
    {"video/H264; profile=1", false},
    {"video/H264;profile=1", false},
    {"video /H264", false},
    {" video/H264", false},
    {"video/H264 ", false},
    {"video/\tH264", false},
    {"video/H264\r\n", false},
    {"a{b}/c", false},
    {"video/H2\x7F" "4", false},
    {"\x7Fvideo/H264", false},
    {"\"video\"/H264", false},
    {std::string("video/H264\0", 11), false},
    {std::string("video\0/H264", 11), false},
};

TEST(MediaType, TableOfTextsThroughTheCheckAndBothSetters) {
  for (const auto& c : kMediaTypes) {
    EXPECT_EQ(vantrel::is_valid_mime_type(c.text), c.valid) << c.text;
    if (c.text.empty()) continue;  // clears the session's media type; refused by the other
    MediaSession s = filled();
    const uint16_t n = static_cast<uint16_t>(c.text.size());
    const bool hasNul = c.text.find('\0') != std::string::npos;
    // A NUL is refused by the session setter's bounded length check first.
    const int expected = c.valid ? 0 : hasNul ? -1 : -2;
    EXPECT_EQ(ddk_set_media_session_mime(handle(s), c.text.data(), &n), expected) << c.text;
    EXPECT_EQ(s.mime, c.valid ? c.text : filled().mime) << c.text;

    StreamConnectionInfo info;
    info.mimeType = "keep/me";
    auto* h = reinterpret_cast<StreamConnectionInfoHandle*>(&info);
    EXPECT_EQ(ddk_set_stream_connection_info_mime_type(h, c.text.data(), n), c.valid ? 0 : -2) << c.text;
    EXPECT_EQ(info.mimeType, c.valid ? c.text : "keep/me") << c.text;
  }
}

}  // namespace
