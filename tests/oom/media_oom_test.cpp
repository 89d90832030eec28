// Whichever allocation fails inside the media session families, once or from
// then on, a call either completes or gives its failure value and leaves the
// record or the collection as it was.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "oom_cases.h"
#include "vantrel/ddk.h"

using vantrel::MediaSession;
using vantrel::NetworkAddress;
using vantrel::ddk::internal::StreamConnectionInfo;

namespace {

// Longer than any short-string buffer, so building it must allocate.
const std::string kLong = "video/" + std::string(60, 'x');
const std::string kOld = "old/" + std::string(60, 'o');

template <class Record, class Handle, class Add>
void expect_append_all_or_nothing(const char* what, std::string Record::*text, Add add) {
  std::vector<Record> records;
  Handle* added = nullptr;
  oom_cases::expect_all_or_nothing(
      what,
      [&] {
        records = oom_cases::full_vector(std::vector<Record>(2));
        records[0].*text = kOld;
      },
      [&] { return (added = add(records)) != nullptr; },
      [&] {
        EXPECT_EQ(records.size(), 2u) << what;
        EXPECT_EQ(records[0].*text, kOld) << what;
      });
  ASSERT_EQ(records.size(), 3u) << what;
  EXPECT_EQ(added, reinterpret_cast<Handle*>(&records[2])) << what;
}

TEST(MediaAllocationFailure, Appends) {
  expect_append_all_or_nothing<MediaSession, MediaSessionHandle>(
      "media session", &MediaSession::uri, [](auto& v) {
        return ddk_add_media_session_to_collection(reinterpret_cast<MediaSessionCollectionHandle*>(&v));
      });
  expect_append_all_or_nothing<StreamConnectionInfo, StreamConnectionInfoHandle>(
      "stream connection", &StreamConnectionInfo::url, [](auto& v) {
        return ddk_add_stream_connection_info(reinterpret_cast<StreamConnectionInfosHandle*>(&v));
      });
  for (const std::string& text : {std::string("10.0.0.1"), kLong}) {
    std::vector<NetworkAddress> addresses{{0, ""}};
    int result = 0;
    oom_cases::expect_all_or_nothing(
        "network address", [&] { addresses = oom_cases::full_vector(std::vector<NetworkAddress>{{1, kOld}}); },
        [&] {
          result = ddk_append_network_address(reinterpret_cast<NetworkAddressCollectionHandle*>(&addresses), 2,
                                              text.c_str(), static_cast<unsigned>(text.size()));
          return result == 0;
        },
        [&] {
          EXPECT_EQ(result, -2);
          ASSERT_EQ(addresses.size(), 1u);
          EXPECT_EQ(addresses[0].address, kOld);
        });
    ASSERT_EQ(addresses.size(), 2u);
    EXPECT_EQ(addresses[1].address, text);
    EXPECT_EQ(addresses[1].type, 2);
  }
}

// `set(record, text)` calls one text setter; a failure must leave the field.
template <class Record, class Set>
void expect_text_all_or_nothing(std::string Record::*field, Set set) {
  Record record;
  int result = 0;
  oom_cases::expect_all_or_nothing(
      // A fresh buffer just big enough for the old text: the new one must allocate.
      "text setter", [&] { std::string(kOld).swap(record.*field); },
      [&] { return (result = set(record, kLong)) == 0; },
      [&] {
        EXPECT_EQ(result, -1);
        EXPECT_EQ(record.*field, kOld);
      });
  EXPECT_EQ(record.*field, kLong);
}

TEST(MediaAllocationFailure, TextSetters) {
  using SessionSetter = int (*)(MediaSessionHandle*, const char*, const uint16_t*);
  const std::pair<SessionSetter, std::string MediaSession::*> sessionSetters[] = {
      {ddk_set_media_session_uri, &MediaSession::uri},
      {ddk_set_media_session_mime, &MediaSession::mime},
      {ddk_set_media_session_stream_token, &MediaSession::streamToken},
      {ddk_set_media_session_destination_ip, &MediaSession::destinationIp},
      {ddk_set_media_session_id, &MediaSession::id}};
  for (const auto& s : sessionSetters) {
    expect_text_all_or_nothing(s.second, [&](MediaSession& r, const std::string& text) {
      const uint16_t n = static_cast<uint16_t>(text.size());
      return s.first(reinterpret_cast<MediaSessionHandle*>(&r), text.c_str(), &n);
    });
  }
  using InfoSetter = int (*)(StreamConnectionInfoHandle*, const char*, unsigned);
  const std::pair<InfoSetter, std::string StreamConnectionInfo::*> infoSetters[] = {
      {ddk_set_stream_connection_info_url, &StreamConnectionInfo::url},
      {ddk_set_stream_connection_info_token, &StreamConnectionInfo::token},
      {ddk_set_stream_connection_info_mime_type, &StreamConnectionInfo::mimeType}};
  for (const auto& s : infoSetters) {
    expect_text_all_or_nothing(s.second, [&](StreamConnectionInfo& r, const std::string& text) {
      return s.first(reinterpret_cast<StreamConnectionInfoHandle*>(&r), text.c_str(),
                     static_cast<unsigned>(text.size()));
    });
  }
}

// A null handle keeps its own failure value when memory is short, although
// the handle exception cannot be built then.
TEST(MediaAllocationFailure, NullHandlesKeepTheirFailureValue) {
  const oom_cases::NullCase cases[] = {
      {"append network address", -1, [] { return ddk_append_network_address(nullptr, 1, "10.0.0.1", 8); }},
      {"network address type", -1,
       [] {
         int32_t type = 0;
         return ddk_get_network_address_type(nullptr, &type);
       }},
      {"stream connection type", -1, [] { return ddk_set_stream_connection_info_type(nullptr, 1); }},
      {"stream connection url", -1, [] { return ddk_set_stream_connection_info_url(nullptr, kLong.c_str(), 60); }},
      {"stream connection token", -1,
       [] { return ddk_set_stream_connection_info_token(nullptr, kLong.c_str(), 60); }},
      {"stream connection media type", -1,
       [] { return ddk_set_stream_connection_info_mime_type(nullptr, kLong.c_str(), 60); }},
      {"stream connection at", 0,
       [] { return ddk_get_stream_connection_info_at(nullptr, 0) == nullptr ? 0 : 1; }},
      {"network address at", 0, [] { return ddk_get_network_address_at(nullptr, 0) == nullptr ? 0 : 1; }},
  };
  oom_cases::expect_null_cases(cases);
}

}  // namespace
