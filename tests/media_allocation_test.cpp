// Whichever allocation fails inside the media session families, a call
// either completes or gives its failure value and leaves the record or the
// collection as it was.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/allocation_failure.h"
#include "vantrel/ddk.h"

using testing_support::without_memory;
using vantrel::MediaSession;
using vantrel::NetworkAddress;
using vantrel::ddk::internal::StreamConnectionInfo;

namespace {

// Longer than any short-string buffer, so building it must allocate.
const std::string kLong = "video/" + std::string(60, 'x');
const std::string kOld = "old/" + std::string(60, 'o');
constexpr long kEnough = 8;

template <class Record>
std::vector<Record> full_vector(std::vector<Record> v) {
  v.shrink_to_fit();
  EXPECT_EQ(v.capacity(), v.size());
  return v;
}

// `attempt(allowed)` returns true when its call completed; false when it
// failed and left everything as it was. Each failure point is tried.
template <class Attempt>
void expect_all_or_nothing(const char* what, Attempt attempt) {
  EXPECT_FALSE(attempt(0)) << what << ": must allocate";
  for (long allowed = 1; allowed < kEnough; ++allowed) attempt(allowed);
  EXPECT_TRUE(attempt(kEnough)) << what;
}

template <class Record, class Handle, class Add>
void expect_append_all_or_nothing(const char* what, std::string Record::*text, Add add) {
  expect_all_or_nothing(what, [&](long allowed) {
    auto records = full_vector(std::vector<Record>(2));
    records[0].*text = kOld;
    Handle* added = without_memory([&] { return add(records); }, allowed);
    if (added != nullptr) return records.size() == 3 && added == reinterpret_cast<Handle*>(&records[2]);
    EXPECT_EQ(records.size(), 2u) << what;
    EXPECT_EQ(records[0].*text, kOld) << what;
    return false;
  });
}

TEST(MediaAllocationFailure, Appends) {
  expect_append_all_or_nothing<MediaSession, MediaSessionHandle>("media session", &MediaSession::uri, [](auto& v) {
    return ddk_add_media_session_to_collection(reinterpret_cast<MediaSessionCollectionHandle*>(&v));
  });
  expect_append_all_or_nothing<StreamConnectionInfo, StreamConnectionInfoHandle>("stream connection", &StreamConnectionInfo::url, [](auto& v) {
    return ddk_add_stream_connection_info(reinterpret_cast<StreamConnectionInfosHandle*>(&v));
  });
  for (const std::string& text : {std::string("10.0.0.1"), kLong}) {
    expect_all_or_nothing("network address", [&](long allowed) {
      auto addresses = full_vector(std::vector<NetworkAddress>{{1, kOld}});
      auto* h = reinterpret_cast<NetworkAddressCollectionHandle*>(&addresses);
      const int result = without_memory(
          [&] { return ddk_append_network_address(h, 2, text.c_str(), static_cast<unsigned>(text.size())); }, allowed);
      if (result == 0) return addresses.size() == 2 && addresses[1].address == text;
      EXPECT_EQ(result, -2);
      EXPECT_EQ(addresses.size(), 1u);
      EXPECT_EQ(addresses[0].address, kOld);
      return false;
    });
  }
}

TEST(MediaAllocationFailure, MediaSessionTexts) {
  using Setter = int (*)(MediaSessionHandle*, const char*, const uint16_t*);
  const struct {
    Setter set;
    std::string MediaSession::*field;
  } setters[] = {{ddk_set_media_session_uri, &MediaSession::uri},
                 {ddk_set_media_session_mime, &MediaSession::mime},
                 {ddk_set_media_session_stream_token, &MediaSession::streamToken},
                 {ddk_set_media_session_destination_ip, &MediaSession::destinationIp},
                 {ddk_set_media_session_id, &MediaSession::id}};
  for (const auto& s : setters) {
    expect_all_or_nothing("media session text", [&](long allowed) {
      MediaSession session;
      session.*s.field = kOld;
      const uint16_t n = static_cast<uint16_t>(kLong.size());
      auto* h = reinterpret_cast<MediaSessionHandle*>(&session);
      const int result = without_memory([&] { return s.set(h, kLong.c_str(), &n); }, allowed);
      if (result == 0) return session.*s.field == kLong;
      EXPECT_EQ(result, -1);
      EXPECT_EQ(session.*s.field, kOld);
      return false;
    });
  }
}

TEST(MediaAllocationFailure, StreamConnectionTexts) {
  using Setter = int (*)(StreamConnectionInfoHandle*, const char*, unsigned);
  const struct {
    Setter set;
    std::string StreamConnectionInfo::*field;
  } setters[] = {{ddk_set_stream_connection_info_url, &StreamConnectionInfo::url},
                 {ddk_set_stream_connection_info_token, &StreamConnectionInfo::token},
                 {ddk_set_stream_connection_info_mime_type, &StreamConnectionInfo::mimeType}};
  for (const auto& s : setters) {
    expect_all_or_nothing("stream connection text", [&](long allowed) {
      StreamConnectionInfo info;
      info.*s.field = kOld;
      auto* h = reinterpret_cast<StreamConnectionInfoHandle*>(&info);
      const int result =
          without_memory([&] { return s.set(h, kLong.c_str(), static_cast<unsigned>(kLong.size())); }, allowed);
      if (result == 0) return info.*s.field == kLong;
      EXPECT_EQ(result, -1);
      EXPECT_EQ(info.*s.field, kOld);
      return false;
    });
  }
}

}  // namespace
