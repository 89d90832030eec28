// Binary-interface facts of the media session records and their C functions,
// checked on every target (std::string is 32 bytes on x86-64, 24 on armhf).
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>

#include "vantrel/ddk.h"

using vantrel::MediaSession;
using vantrel::NetworkAddress;
using vantrel::ddk::internal::StreamConnectionInfo;

namespace {

struct Field {
  const char* name;
  std::size_t offset;
  std::size_t size;
  std::size_t expectedSize;
};

constexpr bool k64 = sizeof(void*) == 8;
constexpr std::size_t S = sizeof(std::string);

// Offsets as the host's compiler lays the record out: x86-64, then armhf.
template <class Record, std::size_t N>
void expect_layout(const Field (&fields)[N], const std::size_t (&x86_64)[N + 1],
                   const std::size_t (&armhf)[N + 1]) {
  EXPECT_EQ(S, k64 ? 32u : 24u) << "std::string";
  EXPECT_TRUE(std::is_standard_layout<Record>::value);
  EXPECT_FALSE(std::is_polymorphic<Record>::value);
  const std::size_t* expected = k64 ? x86_64 : armhf;
  for (std::size_t i = 0; i < N; ++i) {
    EXPECT_EQ(fields[i].size, fields[i].expectedSize) << fields[i].name;
    EXPECT_EQ(fields[i].offset, expected[i]) << fields[i].name;
  }
  EXPECT_EQ(sizeof(Record), expected[N]) << "size";
}

#define FIELD(R, f, width) \
  { #f, offsetof(R, f), sizeof(R::f), width }

TEST(MediaSessionLayout, TenFieldsInOrder) {
  const Field fields[] = {
      FIELD(MediaSession, uri, S),           FIELD(MediaSession, mime, S),
      FIELD(MediaSession, transmissionMode, 4), FIELD(MediaSession, streamToken, S),
      FIELD(MediaSession, streamType, 4),    FIELD(MediaSession, destinationIp, S),
      FIELD(MediaSession, id, S),            FIELD(MediaSession, timeout, 2),
      FIELD(MediaSession, streamState, 4),   FIELD(MediaSession, destinationPort, 2),
  };
  expect_layout<MediaSession>(fields, {0, 32, 64, 72, 104, 112, 144, 176, 180, 184, 192},
                              {0, 24, 48, 52, 76, 80, 104, 128, 132, 136, 140});
  EXPECT_TRUE((std::is_same<decltype(MediaSession::timeout), uint16_t>::value));
  EXPECT_TRUE((std::is_same<decltype(MediaSession::destinationPort), uint16_t>::value));
  EXPECT_TRUE((std::is_same<decltype(MediaSession::id), std::string>::value));
}

TEST(StreamConnectionInfoLayout, FiveFieldsInOrder) {
  const Field fields[] = {
      FIELD(StreamConnectionInfo, url, S),   FIELD(StreamConnectionInfo, mimeType, S),
      FIELD(StreamConnectionInfo, token, S), FIELD(StreamConnectionInfo, transmissionMode, 4),
      FIELD(StreamConnectionInfo, type, 4),
  };
  expect_layout<StreamConnectionInfo>(fields, {0, 32, 64, 96, 100, 104}, {0, 24, 48, 72, 76, 80});
  EXPECT_TRUE((std::is_same<decltype(StreamConnectionInfo::token), std::string>::value));
}

TEST(NetworkAddressLayout, TypeThenAddress) {
  const Field fields[] = {FIELD(NetworkAddress, type, 4), FIELD(NetworkAddress, address, S)};
  expect_layout<NetworkAddress>(fields, {0, 8, 40}, {0, 4, 28});
  EXPECT_TRUE((std::is_same<decltype(NetworkAddress::address), std::string>::value));
  EXPECT_FALSE(std::is_default_constructible<NetworkAddress>::value);
}

// Parameter and result widths of the C functions are part of the interface too.
static_assert(std::is_same<decltype(&ddk_set_media_session_id),
                           int (*)(MediaSessionHandle*, const char*, const uint16_t*)>::value, "");
static_assert(std::is_same<decltype(&ddk_set_media_session_timeout),
                           int (*)(MediaSessionHandle*, const uint16_t*)>::value, "");
static_assert(std::is_same<decltype(&ddk_set_media_session_stream_state),
                           int (*)(MediaSessionHandle*, const int32_t*)>::value, "");
static_assert(std::is_same<decltype(&ddk_set_media_session_transmission_mode),
                           int (*)(MediaSessionHandle*, int32_t)>::value, "");
static_assert(std::is_same<decltype(&ddk_set_stream_connection_info_url),
                           int (*)(StreamConnectionInfoHandle*, const char*, unsigned int)>::value, "");
static_assert(std::is_same<decltype(&ddk_get_stream_connection_info_at),
                           StreamConnectionInfoHandle* (*)(StreamConnectionInfosHandle*, unsigned int)>::value, "");
static_assert(std::is_same<decltype(&ddk_append_network_address),
                           int (*)(NetworkAddressCollectionHandle*, int32_t, const char*, unsigned int)>::value, "");
static_assert(std::is_same<decltype(&ddk_get_network_address_type),
                           int (*)(NetworkAddressHandle*, int32_t*)>::value, "");
static_assert(sizeof(unsigned int) == 4 && sizeof(int) == 4, "32-bit counts and statuses");

}  // namespace
