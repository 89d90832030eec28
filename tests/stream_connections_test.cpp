// Stream connection information: the collection functions and the setters,
// whose value is judged before their handle.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "vantrel/ddk.h"

using vantrel::ddk::internal::StreamConnectionInfo;

namespace {

StreamConnectionInfoHandle* handle(StreamConnectionInfo& i) {
  return reinterpret_cast<StreamConnectionInfoHandle*>(&i);
}
StreamConnectionInfosHandle* handle(std::vector<StreamConnectionInfo>& v) {
  return reinterpret_cast<StreamConnectionInfosHandle*>(&v);
}

auto fields(const StreamConnectionInfo& i) {
  return std::tie(i.url, i.mimeType, i.token, i.transmissionMode, i.type);
}

StreamConnectionInfo filled() { return {"rtsp://cam/main", "video/H264", "main", 1, 2}; }

TEST(StreamConnectionInfos, AppendCountAndIndex) {
  std::vector<StreamConnectionInfo> infos;
  EXPECT_EQ(ddk_get_stream_connection_infos_size(handle(infos)), 0u);
  EXPECT_EQ(ddk_get_stream_connection_info_at(handle(infos), 0), nullptr);
  for (unsigned i = 0; i < 3; ++i) {
    StreamConnectionInfoHandle* added = ddk_add_stream_connection_info(handle(infos));
    ASSERT_EQ(infos.size(), i + 1);
    EXPECT_EQ(added, handle(infos.back()));
    EXPECT_EQ(fields(infos.back()), std::make_tuple("", "", "", 3, 0));
    EXPECT_EQ(ddk_set_stream_connection_info_type(added, static_cast<int32_t>(10 + i)), 0);
  }
  EXPECT_EQ(ddk_get_stream_connection_infos_size(handle(infos)), 3u);
  for (unsigned i = 0; i < 3; ++i) {
    EXPECT_EQ(ddk_get_stream_connection_info_at(handle(infos), i), handle(infos[i]));
    EXPECT_EQ(infos[i].type, static_cast<int32_t>(10 + i));
  }
  EXPECT_EQ(ddk_get_stream_connection_info_at(handle(infos), 3), nullptr);
  EXPECT_EQ(ddk_get_stream_connection_info_at(handle(infos), 0xFFFFFFFFu), nullptr);
  EXPECT_EQ(ddk_get_stream_connection_info_at(nullptr, 0), nullptr);
  EXPECT_EQ(ddk_get_stream_connection_infos_size(nullptr), 0u);
  EXPECT_EQ(ddk_add_stream_connection_info(nullptr), nullptr);
}

using TextSetter = int (*)(StreamConnectionInfoHandle*, const char*, unsigned);
struct TextField {
  const char* name;
  TextSetter set;
  std::string StreamConnectionInfo::*field;
  const char* sample;
  int emptyResult;
};
const TextField kTextFields[] = {
    {"url", ddk_set_stream_connection_info_url, &StreamConnectionInfo::url, "rtsp://h/x", -1},
    {"token", ddk_set_stream_connection_info_token, &StreamConnectionInfo::token, "sub", -2},
    {"mimeType", ddk_set_stream_connection_info_mime_type, &StreamConnectionInfo::mimeType, "audio/PCMU", -2},
};

TEST(StreamConnectionText, StoresExactlyLengthBytes) {
  for (const auto& f : kTextFields) {
    StreamConnectionInfo i = filled();
    const std::string text = std::string(f.sample) + "/more";
    EXPECT_EQ(f.set(handle(i), text.c_str(), static_cast<unsigned>(std::string(f.sample).size())), 0) << f.name;
    EXPECT_EQ(i.*f.field, f.sample) << f.name;
    i.*f.field = filled().*f.field;
    EXPECT_EQ(fields(i), fields(filled())) << f.name << ": another field changed";
  }
  StreamConnectionInfo i;
  EXPECT_EQ(ddk_set_stream_connection_info_token(handle(i), "ab\0c", 4), 0);
  EXPECT_EQ(i.token, std::string("ab\0c", 4));
  EXPECT_EQ(ddk_set_stream_connection_info_url(handle(i), "u\0", 2), 0);
  EXPECT_EQ(i.url, std::string("u\0", 2));
}

TEST(StreamConnectionText, ValueIsJudgedBeforeTheHandle) {
  struct Case {
    const char* what;
    bool nullInfo;
    const char* text;
    unsigned length;
    bool emptyValue;
  } cases[] = {
      {"null text", false, nullptr, 5, true},
      {"zero length", false, "abc", 0, true},
      {"null text and handle", true, nullptr, 5, true},
      {"zero length, null handle", true, "abc", 0, true},
      {"good value, null handle", true, "video/H264", 10, false},
  };
  for (const auto& f : kTextFields) {
    for (const auto& c : cases) {
      StreamConnectionInfo i = filled();
      EXPECT_EQ(f.set(c.nullInfo ? nullptr : handle(i), c.text, c.length), c.emptyValue ? f.emptyResult : -1)
          << f.name << ": " << c.what;
      EXPECT_EQ(fields(i), fields(filled())) << f.name << ": " << c.what;
    }
  }
  StreamConnectionInfo i = filled();
  EXPECT_EQ(ddk_set_stream_connection_info_mime_type(handle(i), "video/H264", 10), 0);
  EXPECT_EQ(ddk_set_stream_connection_info_mime_type(handle(i), "video/H264", 5), -2);
  EXPECT_EQ(ddk_set_stream_connection_info_mime_type(nullptr, "video/H264", 5), -2);
  EXPECT_EQ(ddk_set_stream_connection_info_mime_type(nullptr, "video/H264", 10), -1);
  EXPECT_EQ(ddk_set_stream_connection_info_mime_type(handle(i), "video/H264\0", 11), -2);
  EXPECT_EQ(fields(i), fields(filled()));
}

TEST(StreamConnectionCodes, StoredBitForBit) {
  using Setter = int (*)(StreamConnectionInfoHandle*, int32_t);
  const struct {
    const char* name;
    Setter set;
    int32_t StreamConnectionInfo::*field;
  } setters[] = {
      {"transmissionMode", ddk_set_stream_connection_info_transmission_mode, &StreamConnectionInfo::transmissionMode},
      {"type", ddk_set_stream_connection_info_type, &StreamConnectionInfo::type},
  };
  for (const auto& s : setters) {
    for (uint32_t bits : {0u, 1u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
      StreamConnectionInfo i = filled();
      EXPECT_EQ(s.set(handle(i), static_cast<int32_t>(bits)), 0) << s.name;
      EXPECT_EQ(static_cast<uint32_t>(i.*s.field), bits) << s.name;
      i.*s.field = filled().*s.field;
      EXPECT_EQ(fields(i), fields(filled())) << s.name;
    }
    EXPECT_EQ(s.set(nullptr, 5), -1) << s.name;
  }
}

}  // namespace
