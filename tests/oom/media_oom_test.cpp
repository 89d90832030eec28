// Whichever allocation fails inside the media session families, a call
// either completes or gives its failure value and leaves the record or the
// collection as it was.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "no_memory.h"
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
  expect_append_all_or_nothing<MediaSession, MediaSessionHandle>(
      "media session", &MediaSession::uri, [](auto& v) {
        return ddk_add_media_session_to_collection(reinterpret_cast<MediaSessionCollectionHandle*>(&v));
      });
  expect_append_all_or_nothing<StreamConnectionInfo, StreamConnectionInfoHandle>(
      "stream connection", &StreamConnectionInfo::url, [](auto& v) {
        return ddk_add_stream_connection_info(reinterpret_cast<StreamConnectionInfosHandle*>(&v));
      });
  for (const std::string& text : {std::string("10.0.0.1"), kLong}) {
    expect_all_or_nothing("network address", [&](long allowed) {
      auto addresses = full_vector(std::vector<NetworkAddress>{{1, kOld}});
      auto* h = reinterpret_cast<NetworkAddressCollectionHandle*>(&addresses);
      const auto length = static_cast<unsigned>(text.size());
      const int result =
          without_memory([&] { return ddk_append_network_address(h, 2, text.c_str(), length); }, allowed);
      if (result == 0) return addresses.size() == 2 && addresses[1].address == text;
      EXPECT_EQ(result, -2);
      EXPECT_EQ(addresses.size(), 1u);
      EXPECT_EQ(addresses[0].address, kOld);
      return false;
    });
  }
}

// `set(record, text)` calls one text setter; a failure must leave the field.
template <class Record, class Set>
void expect_text_all_or_nothing(std::string Record::*field, Set set) {
  expect_all_or_nothing("text setter", [&](long allowed) {
    Record record;
    record.*field = kOld;
    const int result = without_memory([&] { return set(record, kLong); }, allowed);
    if (result == 0) return record.*field == kLong;
    EXPECT_EQ(result, -1);
    EXPECT_EQ(record.*field, kOld);
    return false;
  });
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

}  // namespace
